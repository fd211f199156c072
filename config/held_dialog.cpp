#include "config/held_dialog.h"

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
    ::EnableWindow(dialog_, TRUE); // to no avail where a submission has begun meanwhile
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
        return; // the dialog has seen to it
    ::SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
}

bool DisableHeldDialogAgain(HWND dialog, bool enabled) {
    if (!enabled || holds == 0)
        return false;
    ::EnableWindow(dialog, FALSE);
    return true;
}

} // namespace orv
