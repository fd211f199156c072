#include "tests/hosts/host_process.h"

#include "resources/controls.h"
#include "standin/host/main_window.h"
#include "standin/host/menu_bar.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"

#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr int kMessageText = 0xFFFF; // the control of a message box that holds its text

// The commands of the host's own menu come first: Open, Save, Save As, Exit.
constexpr int kSubmitCommand = standin::kFirstMenuId + standin::kCommandExit;

struct Search {
    DWORD process;
    int control;              // 0: any
    const wchar_t* className; // null: any
    HWND found;
};

HWND Find(DWORD process, int control, const wchar_t* className) {
    Search search = {process, control, className, nullptr};
    ::EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            DWORD owner = 0;
            ::GetWindowThreadProcessId(window, &owner);
            wchar_t name[64] = {};
            ::GetClassNameW(window, name, 64);
            if (owner != wanted.process ||
                (wanted.control != 0 && ::GetDlgItem(window, wanted.control) == nullptr) ||
                (wanted.className != nullptr && std::wstring(name) != wanted.className))
                return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

HostProcess::HostProcess(const std::wstring& scenePath, const std::wstring& logFile,
                         const std::wstring& arguments) {
    const std::wstring folder = ProgramFolder();
    std::wstring commandLine = L"\"" + folder + L"\\standin-host.exe\" --plugin-dir \"" + folder +
                               L"\" --scene \"" + scenePath + L"\" --log \"" + logFile + L"\" " +
                               arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES; // none: its events are in the log
    PROCESS_INFORMATION started = {};
    const auto start = [&] { // a busy Wine refuses a new process now and then
        return ::CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr,
                                nullptr, &startup, &started) != FALSE;
    };
    if (!WaitUntil(start))
        throw std::runtime_error("the host cannot be started");
    const ThreadHandle thread(started.hThread);
    process_.reset(started.hProcess);
    id_ = started.dwProcessId;
    const auto isUp = [&] {
        return PathExists(logFile) &&
               ReadFileBytes(logFile).find("\"menu_bar\"") != std::string::npos;
    };
    if (!WaitUntil(isUp))
        throw std::runtime_error("the host did not start");
}

HostProcess::~HostProcess() {
    kill();
}

HWND HostProcess::mainWindow() const {
    return Find(id_, 0, standin::kMainWindowClass);
}

HWND HostProcess::windowWith(int control) const {
    return Find(id_, control, L"#32770");
}

HWND HostProcess::waitForWindowWith(int control, std::chrono::milliseconds deadline) const {
    HWND found = nullptr;
    if (!WaitUntil([&] { return (found = windowWith(control)) != nullptr; }, deadline))
        throw std::runtime_error("the host shows no window with control " +
                                 std::to_string(control));
    return found;
}

void HostProcess::chooseSubmit() const {
    ::PostMessageW(mainWindow(), WM_COMMAND, static_cast<WPARAM>(kSubmitCommand), 0);
}

void HostProcess::submit() const {
    chooseSubmit();
    HWND dialog = waitForWindowWith(IDC_CAMERAS);
    if (!WaitUntil([dialog] { return ::IsWindowVisible(dialog) != FALSE; }))
        throw std::runtime_error("the dialog stays away");
    ::PostMessageW(dialog, WM_COMMAND, IDC_SUBMIT, 0);
    HWND question = waitForWindowWith(kMessageText); // no camera is ticked
    ::PostMessageW(question, WM_COMMAND, IDOK, 0);
    if (!WaitUntil([question] { return !::IsWindow(question); }))
        throw std::runtime_error("the question stays");
}

void HostProcess::close() const {
    if (HWND dialog = windowWith(IDC_CAMERAS)) {
        ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        WaitUntil([dialog] { return !::IsWindow(dialog); });
    }
    ::PostMessageW(mainWindow(), WM_CLOSE, 0, 0);
}

void HostProcess::kill() const {
    ::TerminateProcess(process_.get(), 137); // no harm where it has ended already
}

bool HostProcess::ends(DWORD& code, std::chrono::milliseconds deadline) const {
    return ::WaitForSingleObject(process_.get(), static_cast<DWORD>(deadline.count())) ==
               WAIT_OBJECT_0 &&
           ::GetExitCodeProcess(process_.get(), &code);
}

bool HostProcess::runs() const {
    return ::WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

} // namespace test
} // namespace orv
