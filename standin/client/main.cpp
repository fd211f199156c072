// The stand-in for the farm's client application.
#include "analysis/text/text_convert.h"
#include "base/windows.h"
#include "standin/client/options.h"
#include "standin/client/server.h"
#include "standin/client/shared_memory.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;
constexpr int kWrongUsage = 2;

// The arguments as UTF-8; the C run-time would pass them in the code page of the machine.
std::vector<std::string> Arguments() {
    int count = 0;
    wchar_t** const texts = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(orv::WideToUtf8(texts[i]));
    ::LocalFree(texts);
    return arguments;
}

int Run() {
    standin::Options options;
    std::string problem;
    if (!standin::ParseOptions(Arguments(), options, problem)) {
        std::fprintf(stderr, "%s Run with --help to see the options.\n", problem.c_str());
        return kWrongUsage;
    }
    if (options.help) {
        std::fputs(standin::Usage(), stdout);
        return kSuccess;
    }

    standin::SharedSections sections;
    WSADATA winsock = {};
    if (::WSAStartup(MAKEWORD(2, 2), &winsock) != 0)
        problem = "Winsock cannot be started.";
    else if (!options.sharedMemory ||
             standin::PublishSession(options.userName, options.savePath, sections, problem))
        standin::Serve(options, problem);
    if (problem.empty())
        return kSuccess;
    std::fprintf(stderr, "%s\n", problem.c_str());
    return kFailure;
}

} // namespace

int main() {
    ::_setmode(_fileno(stdout), _O_BINARY); // lines end in LF alone, for readers on any system
    try {
        return Run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return kFailure;
    }
}
