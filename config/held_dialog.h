// The dialog under the windows of a submission, which nobody can use while one of them is there.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {

// Keeps `dialog` disabled from its construction to its destruction; where several live, until the
// last one goes. A dialog that is gone is ignored.
//
// A modal dialog and a message box each enable their owner when they go. The progress window and
// the message boxes of a submission come and go on two threads in any order: whichever goes first
// would enable the dialog under the other. Each of them holds the dialog for as long as it may be
// on the screen, and the dialog stays disabled whatever the other does.
class HeldDialog : private rud_Noncopyable {
public:
    // From any thread.
    explicit HeldDialog(HWND dialog);
    // The last one enables the dialog and gives it back the keyboard, unless the user works in
    // another window. From any thread.
    ~HeldDialog();

private:
    void giveKeyboardBack() const;

    const HWND dialog_;
    const bool holds_;
};

// What the dialog does about WM_ENABLE: one that is held and was enabled is disabled again, before
// its thread takes the next input. Returns whether that was so.
bool DisableHeldDialogAgain(HWND dialog, bool enabled);

} // namespace orv
