#include "ui/exit/exit_guard.h"

#include "config/plugin_data.h"
#include "config/submission_windows.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "ui/exit/exit_dialog.h"
#include "ui/workers.h"
#include "windows/guard.h"

#include <atomic>
#include <string>

namespace orv {
namespace {

constexpr wchar_t kWindowClass[] = L"OrvSubmissionGuard";
constexpr UINT kReleaseGuard = WM_APP;
constexpr UINT kPollMilliseconds = 50;

// Windows ends a process five seconds after WM_ENDSESSION.
constexpr DWORD kSessionEndMilliseconds = 4000;

std::atomic<HWND> guardWindow{nullptr};
// Of the host's thread alone.
bool hasGuarded = false; // there was a submission in this process
bool isWaiting = false;
bool isGivenUp = false;

// Waits for the workers, at most that long, and serves what they send to this thread. False when
// they still run.
bool WaitForWorkers(DWORD milliseconds) {
    const std::uint64_t begun = ::GetTickCount64();
    while (!HaveWorkersEnded()) {
        if (::GetTickCount64() - begun >= milliseconds)
            return false;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_SENDMESSAGE);
        MSG message;
        ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    return true;
}

bool EndSubmission(DWORD milliseconds) {
    PluginData::instance().endSubmission.make();
    return WaitForWorkers(milliseconds);
}

void RemoveGuard() {
    host::WatchExit(nullptr);
    HWND window = guardWindow.exchange(nullptr);
    if (window == nullptr)
        return;
    ::ShutdownBlockReasonDestroy(window);
    ::DestroyWindow(window);
    ::UnregisterClassW(kWindowClass, orv_resource_module()); // the library may be unloaded next
}

LRESULT CALLBACK GuardProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case kReleaseGuard:
        // The next submission may have begun: then the watch is its own.
        if (!IsSubmissionRunning())
            RemoveGuard();
        return 0;
    case WM_QUERYENDSESSION:
        return IsSubmissionRunning() ? FALSE : TRUE;
    case WM_ENDSESSION:
        if (wParam != FALSE && IsSubmissionRunning() && !EndSubmission(kSessionEndMilliseconds))
            WriteLog(LogModule::Data, kError,
                     "Windows shuts down before the submission has ended.");
        return 0;
    case WM_CLOSE:
        return 0;
    default:
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
}

// A hidden top-level window: Windows asks no other kind before it shuts down.
HWND CreateGuardWindow() {
    WNDCLASSEXW guard = {};
    guard.cbSize = sizeof(guard);
    guard.lpfnWndProc = GuardProcedure;
    guard.hInstance = orv_resource_module();
    guard.lpszClassName = kWindowClass;
    ::RegisterClassExW(&guard);
    return ::CreateWindowExW(WS_EX_TOOLWINDOW, kWindowClass, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr,
                             nullptr, guard.hInstance, nullptr);
}

void BlockShutdown(HWND window) {
    if (!::ShutdownBlockReasonCreate(window, ResourceText(IDS_SHUTDOWN_REASON).c_str())) {
        const DWORD error = ::GetLastError();
        LogSystemError(LogModule::Data, kWarn, "ShutdownBlockReasonCreate", error);
    }
}

// Keeps WM_QUIT out of the way of a modal window, which it would end, for one scope.
class QuitMessageHold : private rud_Noncopyable {
public:
    ~QuitMessageHold() {
        take();
        if (isTaken_)
            ::PostQuitMessage(static_cast<int>(code_));
    }
    // Whether there was one since the last time.
    bool take() {
        MSG message = {};
        if (!::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            return false;
        code_ = message.wParam;
        isTaken_ = true;
        return true;
    }

private:
    bool isTaken_ = false;
    WPARAM code_ = 0;
};

// What may own the window. A minimised window would take it off the screen.
HWND ExitOwner() {
    HWND host = host::MainWindow();
    return host != nullptr && ::IsWindowVisible(host) && !::IsIconic(host) ? host : nullptr;
}

bool AskTheUser(PluginData& data) {
    const ProgressHold progress(false); // says the same
    QuitMessageHold quit;
    ExitDialog dialog(data);
    for (;;) {
        quit.take();
        const INT_PTR result = dialog.run(IDD_EXIT, ExitOwner());
        if (result == ExitDialog::kSubmissionEnded)
            return true;
        if (result == ExitDialog::kGivenUp)
            return false;
        if (!quit.take()) // no window can be had
            return WaitForWorkers(kUnattendedMilliseconds) || EndSubmission(kEndingMilliseconds);
    }
}

void HoldExit() {
    PluginData& data = PluginData::instance();
    WriteLog(LogModule::Data, kInfo, "The host's exit waits for the submission.");
    const bool ended = host::IsUnattended() ? WaitForWorkers(kUnattendedMilliseconds) ||
                                                  EndSubmission(kEndingMilliseconds)
                                            : AskTheUser(data);
    isGivenUp = !ended;
    if (isGivenUp)
        WriteLog(LogModule::Data, kError,
                 "The host's exit goes on: the submission has not ended in time.");
}

void OnHostExit() {
    if (isWaiting || isGivenUp || HaveWorkersEnded())
        return;
    isWaiting = true;
    RunGuarded("Waiting for the submission failed", LogError, HoldExit);
    isWaiting = false;
}

} // namespace

void GuardExit() noexcept {
    hasGuarded = true;
    isGivenUp = false;
    RunGuarded("Watching the host's exit failed", LogError, [] {
        host::WatchExit(&OnHostExit);
        if (guardWindow == nullptr || !::IsWindow(guardWindow)) {
            guardWindow = CreateGuardWindow();
            if (guardWindow == nullptr)
                LogSystemError(LogModule::Data, kError, "CreateWindowExW", ::GetLastError());
            else
                BlockShutdown(guardWindow);
        }
    });
    // It ended before there was anything to release.
    if (!IsSubmissionRunning())
        RemoveGuard();
}

void ReleaseExit() noexcept {
    HWND window = guardWindow;
    if (window != nullptr)
        ::PostMessageW(window, kReleaseGuard, 0, 0);
}

void WaitBeforeExit() {
    if (!hasGuarded)
        return;
    OnHostExit();
    RemoveGuard();
}

} // namespace orv
