#include "config/submission_windows.h"

#include "base/windows.h"
#include "config/plugin_data.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <atomic>

namespace orv {
namespace {

// There is one main dialog at a time. Two threads may count while a third is in EnableWindow, which
// sends messages: no lock would do.
std::atomic<int> holds{0};

} // namespace

HeldDialog::HeldDialog(HWND dialog) : dialog_(dialog), holds_(::IsWindow(dialog) != FALSE) {
    if (!holds_)
        return;
    ++holds;
    ::EnableWindow(dialog_, FALSE);
}

HeldDialog::~HeldDialog() {
    if (!holds_ || --holds != 0)
        return;
    ::EnableWindow(dialog_, TRUE); // has no effect when a submission has begun meanwhile
    if (::IsWindowEnabled(dialog_))
        giveKeyboardBack();
}

void HeldDialog::giveKeyboardBack() const {
    if (!::IsWindowVisible(dialog_)) // it has ended
        return;
    const HWND front = ::GetForegroundWindow();
    if (front == nullptr)
        ::SetForegroundWindow(dialog_);
    else if (front != dialog_)
        return;
    // The window that went last has made the dialog the active one, but a control of a disabled
    // dialog cannot take the keyboard.
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    if (::GetGUIThreadInfo(::GetWindowThreadProcessId(dialog_, nullptr), &thread) &&
        ::IsChild(dialog_, thread.hwndFocus))
        return; // the dialog has set it already
    ::SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
}

bool DisableHeldDialogAgain(HWND dialog, bool enabled) {
    if (!enabled || holds == 0)
        return false;
    ::EnableWindow(dialog, FALSE);
    return true;
}

namespace {

constexpr DWORD kLookMilliseconds = 5;

bool IsProgressRunning(const PluginData& data) {
    return data.progressState == kWorkerRunning;
}

} // namespace

void EndProgress() {
    PluginData& data = PluginData::instance();
    if (IsProgressRunning(data))
        data.done = true;
}

ProgressHold::ProgressHold(bool waitsForScreen) {
    PluginData& data = PluginData::instance();
    if (!IsProgressRunning(data))
        return;
    // Only the one that set the flag clears it.
    holds_ = !data.hide.exchange(true);
    // The flag is set before the screen is looked at, and the progress worker takes the screen
    // before it looks at the flag: one of the two sees the other.
    while (waitsForScreen && data.progressOnScreen && IsProgressRunning(data))
        ::Sleep(kLookMilliseconds);
}

// Also when the progress worker has ended meanwhile: the flag must not outlive the message.
ProgressHold::~ProgressHold() {
    if (holds_)
        PluginData::instance().hide = false;
}

bool TakeScreenForProgress() {
    PluginData& data = PluginData::instance();
    data.progressOnScreen = true;
    if (!data.hide)
        return true;
    data.progressOnScreen = false;
    return false;
}

void LeaveScreenOfProgress() {
    PluginData::instance().progressOnScreen = false;
}

bool IsProgressOver() {
    const PluginData& data = PluginData::instance();
    return data.done || data.submitState != kWorkerRunning;
}

int ShowSubmissionMessage(HWND owner, const std::wstring& text, const std::wstring& caption,
                          UINT type, const std::wstring& languageMarker) {
    if (PluginData::instance().endSubmission.isMade())
        return IDCANCEL; // the submission is about to end
    const HeldDialog held(owner);
    const ProgressHold hold;
    const int button = ShowMessage(owner, text, caption, type, languageMarker);
    // The dialog is still disabled. Windows looks for an enabled window when a box goes, and would
    // find another program's.
    ::SetForegroundWindow(owner);
    return button;
}

int ShowSubmissionMessage(HWND owner, unsigned textId, unsigned captionId) {
    return ShowSubmissionMessage(owner, ResourceText(textId), ResourceText(captionId), MB_OK,
                                 ResourceText(IDS_LANGUAGE_MARKER));
}

void ShowUnexpectedEnd(HWND dialog, const std::wstring& caption,
                       const std::wstring& languageMarker) noexcept {
    EndProgress();
    try {
        const ProgressHold hold;
        ShowMessage(dialog, ResourceText(IDS_SUBMISSION_BROKEN_OFF), caption, MB_OK,
                    languageMarker);
    } catch (...) {
        // Out of memory, most likely. The log has the line.
    }
}

} // namespace orv
