#include "standin/client/answer.h"

#include "analysis/text/text_convert.h"

#include <json/json.h>

#include <cstdio>
#include <memory>

namespace standin {

namespace {

constexpr char kEndOfHead[] = "\r\n\r\n";

std::string ReadWholeFile(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        ::_wfopen(orv::Utf8ToWide(path).c_str(), L"rb"), &std::fclose);
    std::string bytes;
    char buffer[4096];
    while (file != nullptr) {
        const std::size_t read = std::fread(buffer, 1, sizeof(buffer), file.get());
        if (read == 0)
            break;
        bytes.append(buffer, read);
    }
    return bytes;
}

} // namespace

std::string BuildAnswer(const Options& options, int code, const std::string& words) {
    if (!options.rawReply.empty())
        return ReadWholeFile(options.rawReply);

    Json::Value reply(Json::objectValue);
    reply["ret"] = options.replyCode != 0 ? options.replyCode : code;
    if (options.hasErr)
        reply["err"] = options.err;
    else if (options.replyCode == 0 && !words.empty())
        reply["err"] = words;
    if (options.oversized)
        reply["padding"] = std::string(4000, 'x');

    Json::StreamWriterBuilder format;
    format["indentation"] = "";
    format["emitUTF8"] = true;
    const std::string body = Json::writeString(format, reply);
    return "HTTP/1.1 " + std::to_string(options.httpStatus) +
           (options.httpStatus == 200 ? " OK" : " Error") +
           "\r\nContent-Type: application/json;charset=utf-8\r\nContent-Length: " +
           std::to_string(body.size()) + kEndOfHead + body;
}

std::size_t SplitPosition(const Options& options, const std::string& answer) {
    if (options.split == Split::None)
        return answer.size();
    const std::size_t end = answer.find(kEndOfHead);
    const std::size_t body = end == std::string::npos ? 0 : end + sizeof(kEndOfHead) - 1;
    return options.split == Split::BeforeBody ? body : body + (answer.size() - body) / 2;
}

} // namespace standin
