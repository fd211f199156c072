#include "tests/system/host/run_program.h"

#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"

#include <sstream>
#include <stdexcept>

namespace {

constexpr DWORD kDeadline = 60000;

orv::FileHandle CreateOutput(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    orv::FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                     CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        throw std::runtime_error("the output file cannot be created");
    return file;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

} // namespace

ProgramRun RunProgram(const std::wstring& name, const std::wstring& arguments,
                      const std::wstring& folder) {
    const std::wstring outputPath = folder + L"\\output.txt";
    orv::FileHandle output = CreateOutput(outputPath);
    std::wstring command = L"\"" + orv::test::ProgramFolder() + L"\\" + name + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.get();
    startup.hStdError = output.get();
    PROCESS_INFORMATION started = {};
    if (CreateProcessW(nullptr, &command[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &started) == FALSE)
        throw std::runtime_error("the program cannot be started");
    const orv::ProcessHandle process(started.hProcess);
    const orv::ThreadHandle thread(started.hThread);

    ProgramRun run;
    run.ended = WaitForSingleObject(process.get(), kDeadline) == WAIT_OBJECT_0;
    if (!run.ended)
        TerminateProcess(process.get(), 1);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.get(), &exitCode);
    run.exitCode = static_cast<int>(exitCode);
    output.reset();
    run.lines = Lines(orv::test::ReadFileBytes(outputPath));
    return run;
}
