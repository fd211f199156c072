// Keeping the dialog's options in the settings file until the dialog is opened again.
#pragma once

#include "base/windows.h"
#include "config/remembered_controls.h"
#include "config/submission_choices.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

// Writes the state of the remembered controls to the settings file: as they are when "remember" is
// ticked, else the default of each. A file that cannot be written loses the settings; nothing
// depends on them.
void saveRememberedSettings(const SubmissionChoices& choices);

// The same for what stands in `dialog`, the main dialog, from any thread of the process. A dialog
// that is gone changes nothing.
void saveRememberedSettings(HWND dialog);

struct RememberedValue {
    RememberedControl control;
    std::wstring text;
};

// What the settings file holds, in the order of RememberedControls(). Keys that it has not are left
// out.
std::vector<RememberedValue> ReadRememberedSettings();

// The selection that is written for a drop-down list: 1, 2 and 3 are kept, anything else, no
// selection among it, is the first entry.
int RememberedSelection(std::int32_t selection);

} // namespace orv
