// Reading controls of a dialog. For the dialog's own thread: to any other thread a dialog that is
// being closed would look like one with nothing ticked and nothing typed. Other threads ask the
// dialog for its choices (config/dialog_messages.h).
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <string>
#include <vector>

namespace orv {

// Whether a check box is checked; the third state of a three-state box is not.
bool IsChecked(HWND dialog, int control);

// The whole text of a control.
std::wstring ControlText(HWND dialog, int control);

// Puts the rows of the list view `cameraTable`, from the first to the last, into `rows`. False,
// with `rows` as they were, when a row's check box cannot be read.
bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows);

// Reads everything that a submission and the remembered settings need of `dialog`; the analysis in
// `choices` stays empty. False, with `choices` as they were, when something cannot be read.
bool ReadChoices(HWND dialog, SubmissionChoices& choices);

} // namespace orv
