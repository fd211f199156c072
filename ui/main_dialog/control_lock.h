#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <vector>

namespace orv {

// Keeps the controls of a dialog from the user while its submission runs, except for Cancel. For
// the dialog's own thread.
class ControlLock : private rud_Noncopyable {
public:
    // Disables every control of `dialog` that is enabled, except for Cancel, which gets the
    // keyboard. Locking what is locked has no effect.
    void lock(HWND dialog);

    // Enables those controls again, no others, and gives the keyboard back to the one that had it.
    void unlock();

    bool isLocked() const { return isLocked_; }

private:
    bool isLocked_ = false;
    HWND cancel_ = nullptr;
    HWND focus_ = nullptr; // null when no control of the dialog had the keyboard
    std::vector<HWND> disabled_;
};

} // namespace orv
