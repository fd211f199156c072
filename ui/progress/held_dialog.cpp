#include "ui/progress/held_dialog.h"

#include <atomic>

namespace orv {
namespace {

// There is one main dialog at a time. Two threads may count while a third is in EnableWindow, which
// sends messages: no lock would do.
std::atomic<int> holds{0};

} // namespace

HeldDialog::HeldDialog(HWND dialog) : dialog_(dialog), focus_(::GetFocus()) {
    if (!::IsChild(dialog_, focus_))
        focus_ = nullptr;
    ++holds;
    ::EnableWindow(dialog_, FALSE);
}

HeldDialog::~HeldDialog() {
    if (--holds != 0)
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
    if (focus_ != nullptr && ::IsWindowEnabled(focus_))
        ::SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus_), TRUE);
    else
        ::SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
}

bool DisableHeldDialogAgain(HWND dialog, bool enabled) {
    if (!enabled || holds == 0)
        return false;
    ::EnableWindow(dialog, FALSE);
    return true;
}

} // namespace orv
