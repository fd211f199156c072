#include "tests/unit/submit/archiver.h"

#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"

#include <stdexcept>

namespace orv {
namespace test {
namespace {

std::wstring SevenZipBesideTheTest() {
    return ProgramFolder() + L"\\7-Zip\\7z.exe";
}

} // namespace

std::wstring InstallArchiver() {
    const std::wstring folder = ProductFolder() + L"/7-Zip";
    MakeFolders(folder);
    if (!::CopyFileW(SevenZipBesideTheTest().c_str(), (folder + L"/7z.exe").c_str(), FALSE))
        throw std::runtime_error("7z.exe cannot be copied");
    return folder + L"/7z.exe";
}

unsigned long RunSevenZip(const std::wstring& arguments) {
    std::wstring commandLine = L"\"" + SevenZipBesideTheTest() + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                          nullptr, nullptr, &startup, &process))
        throw std::runtime_error("7z.exe cannot be started");
    const ThreadHandle thread(process.hThread);
    const ProcessHandle owner(process.hProcess);
    ::WaitForSingleObject(owner.get(), 600000); // a large scene takes minutes
    DWORD exitCode = 0;
    ::GetExitCodeProcess(owner.get(), &exitCode);
    return exitCode;
}

bool Unpack(const std::wstring& archive, const std::string& password, const std::wstring& folder) {
    return RunSevenZip(L"x -y -p" + Utf8ToWide(password) + L" -o\"" + folder + L"\" \"" + archive +
                       L"\"") == 0;
}

} // namespace test
} // namespace orv
