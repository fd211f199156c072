#include "config/remembered_controls.h"

#include <algorithm>

namespace orv {
namespace {

std::vector<int> IdsOf(RememberedKind kind) {
    std::vector<int> ids;
    for (const RememberedControl& control : RememberedControls()) {
        if (control.kind == kind)
            ids.push_back(control.id);
    }
    return ids;
}

} // namespace

const std::vector<RememberedControl>& RememberedControls() {
    // The keys are what earlier releases wrote, "REMBER_SETTING" included: corrected ones would
    // forget what artists have chosen.
    static const std::vector<RememberedControl> controls = {
        {1043, L"RENDER_CHANNEL_COLOR", RememberedKind::CheckBox, L"0"},
        {1044, L"RENDER_CHANNEL_AO", RememberedKind::CheckBox, L"0"},
        {1051, L"CHECK_RENDER_MTL", RememberedKind::CheckBox, L"0"},
        {1053, L"CHECK_PSD", RememberedKind::CheckBox, L"0"},
        {1056, L"CHECK_GI", RememberedKind::CheckBox, L"0"},
        {1002, L"IDC_SAVE_SCENE_FILE", RememberedKind::CheckBox, L"1"},
        {1001, L"REMBER_SETTING", RememberedKind::CheckBox, L"0"},
        {1057, L"GI_SIZE", RememberedKind::DropDownList, L"0"},
        {1047, L"EDIT_DURATION2", RememberedKind::EditField, L"0"},
        {1040, L"EDIT_AO_RADIUS", RememberedKind::EditField, L"1000.0"},
        {1037, L"EDIT_AO_SUBDIVS", RememberedKind::EditField, L"16"},
        {1039, L"EDIT_OUTPUT_GAMMA", RememberedKind::EditField, L"2.2"},
        {1054, L"EDIT_ITERATIONS_A", RememberedKind::EditField, L"0"},
        {1045, L"EDIT_NOISE_LEVEL2", RememberedKind::EditField, L"0"},
        {1030, L"NOBLOCK", RememberedKind::RadioButton, L"1"},
        {1031, L"THREEBLOCK", RememberedKind::RadioButton, L"0"},
        {1032, L"SIXBLOCK", RememberedKind::RadioButton, L"0"},
        {1033, L"DCSBLOCK", RememberedKind::RadioButton, L"0"},
    };
    return controls;
}

RememberedControlLists MakeRememberedControlLists() {
    RememberedControlLists lists;
    lists.checkBoxes = IdsOf(RememberedKind::CheckBox);
    lists.dropDownLists = IdsOf(RememberedKind::DropDownList);
    lists.editFields = IdsOf(RememberedKind::EditField);
    lists.radioButtons = IdsOf(RememberedKind::RadioButton);
    return lists;
}

std::wstring settingKeyName(int id) {
    const std::vector<RememberedControl>& controls = RememberedControls();
    const auto control = std::find_if(controls.begin(), controls.end(),
                                      [id](const RememberedControl& c) { return c.id == id; });
    return control == controls.end() ? std::wstring() : std::wstring(control->key);
}

} // namespace orv
