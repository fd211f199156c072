#include "ui/main_dialog/control_lock.h"

namespace orv {

void ControlLock::lock(HWND dialog) {
    if (isLocked_)
        return;
    std::vector<HWND> enabled;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) != IDCANCEL && ::IsWindowEnabled(child))
            enabled.push_back(child);
    }
    disabled_.swap(enabled);
    isLocked_ = true;
    cancel_ = ::GetDlgItem(dialog, IDCANCEL);
    focus_ = ::GetFocus();
    if (focus_ != nullptr && ::IsChild(dialog, focus_))
        ::SetFocus(cancel_); // a disabled control would swallow the keys, Escape among them
    else
        focus_ = nullptr;
    for (HWND control : disabled_)
        ::EnableWindow(control, FALSE);
}

void ControlLock::unlock() {
    isLocked_ = false;
    for (HWND control : disabled_)
        ::EnableWindow(control, TRUE);
    disabled_.clear();
    HWND now = ::GetFocus();
    if (focus_ != nullptr && (now == nullptr || now == cancel_))
        ::SetFocus(focus_);
    focus_ = nullptr;
}

} // namespace orv
