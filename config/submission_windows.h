// The windows of a running submission: the dialog that it was started from, which is disabled while
// one of the others is on the screen, the progress window, and the message boxes. They belong to
// three threads, which share flags of PluginData and nothing else.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>

namespace orv {

// Keeps `dialog` disabled for a scope; where several exist, until the last one is destroyed.
// Ignores a dialog that is gone.
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

// The main dialog's answer to WM_ENABLE: disables `dialog` again when it was enabled while held,
// before its thread processes further input. Returns whether it did so.
bool DisableHeldDialogAgain(HWND dialog, bool enabled);

// Ends the progress window. Has no effect without a running progress worker.
void EndProgress();

// Hides the progress window for a scope, so that it neither shows beside a message box nor takes
// the keyboard from it. The constructor returns when the window is hidden, within one period of its
// timer. Has no effect without a running progress worker. Nested holds have no effect. Not for the
// progress worker.
class ProgressHold : private rud_Noncopyable {
public:
    // The dialog's thread passes false: it has to process what the window sends until its next
    // timer tick hides it.
    explicit ProgressHold(bool waitsForScreen = true);
    ~ProgressHold();

private:
    bool holds_ = false;
};

// The progress worker's side. The worker asks before it shows its window: a window that opens while
// a message box opens would take the keyboard from it.

// Takes the screen for the progress window; false, with nothing taken, while a ProgressHold lives.
bool TakeScreenForProgress();

// Reports that the progress window is hidden and stays hidden until the screen is taken again.
void LeaveScreenOfProgress();

// Whether the progress window should end: its end was requested, or no submission runs. The submit
// worker's state counts, too: the submission may end before the progress worker begins.
bool IsProgressOver();

// Shows a message box of a submission over its dialog `owner` (may be null or closed meanwhile:
// then the box has no owner). Returns the id of the pressed button, 0 when the box could not be
// shown. Shows nothing and returns IDCANCEL once the end of the submission was requested. The
// progress window is hidden while the box is open. The keyboard focus returns to `owner`. `type` is
// that of MessageBoxExW; the language follows the text of the language marker. For the submit
// worker.
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
