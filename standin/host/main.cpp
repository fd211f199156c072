// The stand-in host as a program.
#include "standin/host/host.h"
#include "standin/host/text.h"

#include <commctrl.h>
#include <shellapi.h>

#include <cstdio>

namespace {

constexpr int kWrongArguments = 2;
constexpr int kNoWindow = 1;

std::vector<std::wstring> Arguments() {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(words[i]);
    LocalFree(words);
    return arguments;
}

// Events go to standard output line by line, so that a waiting reader gets each at once.
class EventPrinter {
public:
    explicit EventPrinter(const std::wstring& logFile) {
        if (!logFile.empty())
            log_ = standin::OpenStream(logFile, L"wb");
    }

    void print(const Json::Value& event) const {
        const std::string line = standin::EventLine(event);
        write(line, stdout);
        if (log_)
            write(line, log_.get());
    }

private:
    static void write(const std::string& line, std::FILE* file) {
        std::fwrite(line.data(), 1, line.size(), file);
        std::fflush(file);
    }

    standin::Stream log_;
};

int Run() {
    standin::HostOptions options;
    std::wstring error;
    if (!standin::ReadArguments(Arguments(), options, error)) {
        std::fprintf(stderr, "standin-host: %s; --help lists the options\n",
                     standin::ToUtf8(error).c_str());
        return kWrongArguments;
    }
    if (options.showHelp) {
        std::fputs(standin::HelpText().c_str(), stdout);
        return 0;
    }
    const EventPrinter printer(options.logFile);
    standin::Host host(options, [&printer](const Json::Value& event) { printer.print(event); });
    if (!host.start()) {
        std::fputs("standin-host: the system gives no window; is there a display?\n", stderr);
        return kNoWindow;
    }
    host.run();
    host.stop();
    return 0;
}

} // namespace

int main() {
    // What the real host has initialised before a plug-in sees it.
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    try {
        return Run();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "standin-host: %s\n", failure.what());
        return 1;
    }
}
