// The dialog under a submission, which nobody can use until the submission has ended.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {

// Keeps `dialog` disabled from its construction to its destruction; where several live, until the
// last one goes.
//
// A modal dialog and a message box each enable their owner when they go. The progress window and
// the message boxes of a submission come and go on two threads in any order: whichever goes first
// would enable the dialog under the other, and a question would enable it in the middle of the
// submission. Each worker holds the dialog instead, from before its thread starts to its end, and
// the dialog stays disabled whatever its windows do.
class HeldDialog : private rud_Noncopyable {
public:
    // To be constructed on the dialog's thread.
    explicit HeldDialog(HWND dialog);
    // The last one enables the dialog and gives it back the keyboard, to the control that had it,
    // unless the user works in another window. From any thread; a dialog that is gone is ignored.
    ~HeldDialog();

private:
    void giveKeyboardBack() const;

    const HWND dialog_;
    HWND focus_; // the control that had the keyboard, null for none
};

// What the dialog does about WM_ENABLE: one that is held and was enabled is disabled again, before
// its thread takes the next input. Returns whether that was so.
bool DisableHeldDialogAgain(HWND dialog, bool enabled);

} // namespace orv
