// The options of the main dialog that the settings file remembers.
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <string>
#include <vector>

namespace orv {

enum class RememberedKind { CheckBox, DropDownList, EditField, RadioButton };

struct RememberedControl {
    int id;             // the control's number in the main dialog
    const wchar_t* key; // its key in section "general" of the settings file
    RememberedKind kind;
    const wchar_t* defaultValue; // what is written when settings are not to be remembered
};

// All remembered controls: check boxes, drop-down lists, edit fields, radio buttons, which is also
// the order in which they are saved.
const std::vector<RememberedControl>& RememberedControls();

// Control numbers of each kind, in the order of RememberedControls().
struct RememberedControlLists {
    std::vector<int> checkBoxes;
    std::vector<int> dropDownLists;
    std::vector<int> editFields;
    std::vector<int> radioButtons;
};
RememberedControlLists MakeRememberedControlLists();

// The settings key of a control; empty for a control that is not remembered.
std::wstring settingKeyName(int id);

// Writes the state of the remembered controls to the settings file: as they are when "remember" is
// ticked, else the default of each. A file that cannot be written loses the settings; nothing
// depends on them.
void saveRememberedSettings(const SubmissionChoices& choices);

// The same for the current state of the main dialog `dialog`, from any thread of the process. Has
// no effect when the dialog is gone.
void saveRememberedSettings(HWND dialog);

struct RememberedValue {
    RememberedControl control;
    std::wstring text;
};

// The remembered values of the settings file, in the order of RememberedControls(). Missing keys
// are left out.
std::vector<RememberedValue> ReadRememberedSettings();

} // namespace orv
