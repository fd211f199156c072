// The controls of the main dialog whose state is remembered in the settings file.
#pragma once

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

} // namespace orv
