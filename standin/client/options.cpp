#include "standin/client/options.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace standin {

namespace {

bool ReadNumber(const std::string& text, int lowest, int highest, int& number) {
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || value < lowest || value > highest)
        return false;
    number = static_cast<int>(value);
    return true;
}

bool ReadPort(Options& options, const std::string& text) {
    int port = 0;
    if (!ReadNumber(text, 0, 65535, port))
        return false;
    options.port = static_cast<std::uint16_t>(port);
    return true;
}

bool ReadSplit(Options& options, const std::string& text) {
    if (text == "before-body")
        options.split = Split::BeforeBody;
    else if (text == "inside-body")
        options.split = Split::InsideBody;
    else
        return false;
    return true;
}

constexpr int kHour = 60 * 60 * 1000;
constexpr int kMillion = 1000000;

struct Option {
    const char* name;
    bool takesValue;
    bool (*read)(Options& options, const std::string& value);
};

const Option kOptions[] = {
    {"--port", true, &ReadPort},
    {"--requests", true,
     [](Options& o, const std::string& v) { return ReadNumber(v, 1, kMillion, o.requests); }},
    {"--no-shared-memory", false,
     [](Options& o, const std::string&) { return !(o.sharedMemory = false); }},
    {"--user-name", true,
     [](Options& o, const std::string& v) {
         o.userName = v;
         return true;
     }},
    {"--save-path", true,
     [](Options& o, const std::string& v) {
         o.savePath = v;
         return true;
     }},
    {"--reply-code", true,
     [](Options& o, const std::string& v) {
         return ReadNumber(v, -kMillion, kMillion, o.replyCode);
     }},
    {"--err", true,
     [](Options& o, const std::string& v) {
         o.err = v;
         return o.hasErr = true;
     }},
    {"--http-status", true,
     [](Options& o, const std::string& v) { return ReadNumber(v, 100, 599, o.httpStatus); }},
    {"--raw-reply", true,
     [](Options& o, const std::string& v) {
         o.rawReply = v;
         return !v.empty();
     }},
    {"--oversized", false, [](Options& o, const std::string&) { return o.oversized = true; }},
    {"--split", true, &ReadSplit},
    {"--pause", true,
     [](Options& o, const std::string& v) { return ReadNumber(v, 0, kHour, o.pauseMilliseconds); }},
    {"--delay", true,
     [](Options& o, const std::string& v) { return ReadNumber(v, 0, kHour, o.delayMilliseconds); }},
    {"--close-without-reply", false,
     [](Options& o, const std::string&) { return o.closeWithoutReply = true; }},
    {"--close-at-once", false, [](Options& o, const std::string&) { return o.closeAtOnce = true; }},
    {"--record", true,
     [](Options& o, const std::string& v) {
         o.record = v;
         return !v.empty();
     }},
    {"--help", false, [](Options& o, const std::string&) { return o.help = true; }},
};

} // namespace

bool ParseOptions(const std::vector<std::string>& arguments, Options& options,
                  std::string& problem) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        const auto* const option =
            std::find_if(std::begin(kOptions), std::end(kOptions),
                         [&name](const Option& known) { return name == known.name; });
        if (option == std::end(kOptions)) {
            problem = "There is no option \"" + name + "\".";
            return false;
        }
        std::string value;
        if (option->takesValue) {
            if (i + 1 == arguments.size()) {
                problem = name + " needs a value.";
                return false;
            }
            value = arguments[++i];
        }
        if (!option->read(options, value)) {
            problem = name + " cannot be \"";
            problem += value + "\".";
            return false;
        }
    }
    return true;
}

const char* Usage() {
    return "standin-client: stands in for the render farm's client on this machine.\n"
           "\n"
           "  --port N              listen on this port; without it, on any free one\n"
           "  --requests N          end after N requests\n"
           "  --no-shared-memory    do not publish user name and save path\n"
           "  --user-name TEXT      user name to publish (artist)\n"
           "  --save-path FOLDER    save path to publish (none)\n"
           "  --reply-code N        answer with this \"ret\", whatever the request holds\n"
           "  --err TEXT            answer with this \"err\"\n"
           "  --http-status N       answer with this HTTP status (200)\n"
           "  --raw-reply FILE      answer with the bytes of this file\n"
           "  --oversized           answer with more than 2048 bytes\n"
           "  --split WHERE         send the answer in two parts: before-body or inside-body\n"
           "  --pause MS            time between the two parts (300)\n"
           "  --delay MS            wait before the answer\n"
           "  --close-without-reply read the request, then close the connection\n"
           "  --close-at-once       close the connection before reading\n"
           "  --record FILE         append the bytes of each request to this file\n"
           "\n"
           "Prints {\"listening\":PORT} when ready, then one line of JSON for each request.\n";
}

} // namespace standin
