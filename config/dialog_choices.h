// The user's choices in the main dialog: reading them on the dialog's thread, and the messages
// between a submission and its dialog. The dialog may be closed at any time; a message to a
// destroyed window has no effect.
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <vector>

namespace orv {

// Reading controls, for the dialog's thread only: to any other thread a dialog that is being closed
// looks like one with nothing ticked and nothing typed.

// Puts the rows of the list view `cameraTable`, from the first to the last, into `rows`. False,
// with `rows` as they were, when a row's check box cannot be read.
bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows);

// Reads everything that a submission and the remembered settings need of `dialog`; the analysis in
// `choices` stays empty. False, with `choices` as they were, when something cannot be read.
bool ReadChoices(HWND dialog, SubmissionChoices& choices);

// Sent to the main dialog, from any thread, when the camera records or the warnings have changed.
constexpr UINT kRebuildCameraTable = WM_USER + 1;

// Asks the main dialog for its choices. Sent by TakeChoices, answered by AnswerTakeChoices; the
// first parameter is the number of the request. WM_USER to WM_USER + 2 are the system's.
constexpr UINT kTakeChoices = WM_USER + 16;

// Sent to the main dialog when its submission has ended: it enables its controls again.
constexpr UINT kSubmissionEnded = WM_USER + 17;

// Log line of a submission that cannot read the choices.
constexpr char kChoicesNotRead[] = "The choices of the dialog could not be read.";

// Reads the state of `dialog` into `choices`. Can be called from any thread of the process: the
// dialog's thread reads all controls within one message. The analysis stays empty. Returns false
// and leaves `choices` unchanged when the dialog is gone or does not answer.
bool TakeChoices(HWND dialog, SubmissionChoices& choices);

// The same for the rows of the list view `cameraTable`, a control of the main dialog.
bool TakeCameraRows(HWND cameraTable, std::vector<CameraRow>& rows);

// The main dialog's part of TakeChoices, for its window procedure. Returns false for any other
// message. Ignores requests that this process has not made.
bool AnswerTakeChoices(HWND dialog, UINT message, WPARAM wParam) noexcept;

} // namespace orv
