// The windows of a running submission: the dialog that it was started from, which is disabled while
// one of the others is on the screen, the progress window, and the message boxes. They belong to
// three threads, which share flags of PluginData and nothing else.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>

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

// Ends the progress window. Without a running progress worker nothing happens.
void EndProgress();

// Keeps the progress window off the screen while it lives, so that a message box has no window
// beside it that says something else, and none that takes the keyboard. The constructor returns
// when the window is off the screen, which takes one period of its timer at most. Does nothing
// without a running progress worker. One within another changes nothing. Not for the progress
// worker.
class ProgressHold : private rud_Noncopyable {
public:
    // A thread that owns the dialog passes false: the window leaves the screen at its next tick,
    // and what it sends meanwhile has to be served.
    explicit ProgressHold(bool waitsForScreen = true);
    ~ProgressHold();

private:
    bool holds_ = false;
};

// The progress worker's side. Each change of the screen asks first: a window that opens or comes
// back while a message box opens would take the keyboard from it.

// Takes the screen for the progress window; false, with nothing taken, while a ProgressHold lives.
bool TakeScreenForProgress();

// Says that the progress window is off the screen and does not come back by itself.
void LeaveScreenOfProgress();

// Whether the progress window has no reason to be there any more: its end was asked for, or no
// submission runs. A submission that ended before the progress worker had begun shows in the submit
// worker's state alone.
bool IsProgressOver();

// Shows a message box of a submission over its dialog `owner` (may be null or closed meanwhile:
// then the box stands alone) and returns the id of the button that was pressed, 0 when the box
// could not be shown. Once the end of the submission was requested it shows nothing and returns
// IDCANCEL. The progress window is off the screen before the box opens and until it is
// closed. The keyboard goes back to `owner`. `type` is that of MessageBoxExW, the language follows
// the text of the language marker. For the submit worker.
int ShowSubmissionMessage(HWND owner, const std::wstring& text, const std::wstring& caption,
                          UINT type, const std::wstring& languageMarker);

// The same with both texts by number, and the button OK.
int ShowSubmissionMessage(HWND owner, unsigned textId, unsigned captionId);

// Reports to the user that an unexpected error has ended the submission of `dialog`, and ends the
// progress window. The caller writes the log line. Shows nothing where the memory for a message is
// missing.
void ShowUnexpectedEnd(HWND dialog, const std::wstring& caption,
                       const std::wstring& languageMarker) noexcept;

} // namespace orv
