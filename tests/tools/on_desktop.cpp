// on_desktop NAME PROGRAM [ARGUMENT...]: runs a program on the Wine desktop of that name, with this
// program's own standard input and output, and ends with its exit code. Wine's explorer, which
// makes such desktops, starts programs on them as well, but cuts them off from their output.
#include "base/handles.h"
#include "base/windows.h"

#include <cstdio>
#include <string>

namespace {

constexpr int kUsage = 2;
constexpr int kCannotStart = 3;

// What follows the first argument, unchanged: quoting is kept as it was given.
std::wstring CommandAfterName(const std::wstring& commandLine) {
    std::size_t at = 0;
    for (int argument = 0; argument < 2; ++argument) {
        bool quoted = false;
        while (at < commandLine.size() && (quoted || commandLine[at] != L' ')) {
            quoted = quoted != (commandLine[at] == L'"');
            ++at;
        }
        while (at < commandLine.size() && commandLine[at] == L' ') {
            ++at;
        }
    }
    return commandLine.substr(at);
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        std::fputs("usage: on_desktop NAME PROGRAM [ARGUMENT...]\n", stderr);
        return kUsage;
    }
    std::wstring desktop = arguments[1];
    std::wstring command = CommandAfterName(GetCommandLineW());

    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.lpDesktop = &desktop[0];
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started = {};
    if (CreateProcessW(nullptr, &command[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &started) == 0) {
        std::fprintf(stderr, "on_desktop: cannot start %ls: error %lu\n", command.c_str(),
                     GetLastError());
        return kCannotStart;
    }
    const orv::ThreadHandle thread(started.hThread);
    const orv::ProcessHandle process(started.hProcess);
    WaitForSingleObject(process.get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.get(), &exitCode);
    return static_cast<int>(exitCode);
}
