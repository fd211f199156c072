// What stands in the main dialog: reading it on the dialog's own thread, and the messages between a
// submission and the dialog that it was started from. The dialog may be closed at any time; a
// message to a window that is gone reaches nobody and changes nothing.
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <vector>

namespace orv {

// Reading controls. For the dialog's own thread: to any other thread a dialog that is being closed
// would look like one with nothing ticked and nothing typed.

// Puts the rows of the list view `cameraTable`, from the first to the last, into `rows`. False,
// with `rows` as they were, when a row's check box cannot be read.
bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows);

// Reads everything that a submission and the remembered settings need of `dialog`; the analysis in
// `choices` stays empty. False, with `choices` as they were, when something cannot be read.
bool ReadChoices(HWND dialog, SubmissionChoices& choices);

// Tells the main dialog, from any thread, that the camera records or the warnings have changed.
constexpr UINT kRebuildCameraTable = WM_USER + 1;

// Asks the main dialog for its choices. Sent by TakeChoices, answered by AnswerTakeChoices; the
// first parameter is the number of the request. WM_USER to WM_USER + 2 are the system's.
constexpr UINT kTakeChoices = WM_USER + 16;

// Tells the main dialog that its submission has ended: its controls belong to the user again.
constexpr UINT kSubmissionEnded = WM_USER + 17;

// What is logged when a submission cannot take the choices.
constexpr char kChoicesNotRead[] = "The choices of the dialog could not be read.";

// Puts what stands in `dialog` into `choices`, from any thread of the process. The dialog's own
// thread reads its controls, all of them within one message; the analysis stays empty. False, with
// `choices` as they were, when the dialog is gone or does not answer: nothing is known then, not
// even that a box is unticked.
bool TakeChoices(HWND dialog, SubmissionChoices& choices);

// The same for the rows of the list view `cameraTable`, a control of the main dialog.
bool TakeCameraRows(HWND cameraTable, std::vector<CameraRow>& rows);

// The main dialog's part of TakeChoices: for its window procedure. False for any other message. A
// request that nobody of this process has made is ignored.
bool AnswerTakeChoices(HWND dialog, UINT message, WPARAM wParam) noexcept;

} // namespace orv
