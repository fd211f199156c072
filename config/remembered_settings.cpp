#include "config/remembered_settings.h"

#include "base/folders.h"
#include "config/dialog_choices.h"
#include "config/render_choices.h"
#include "resources/controls.h"

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
        {IDC_COLOR_CHANNEL, L"RENDER_CHANNEL_COLOR", RememberedKind::CheckBox, L"0"},
        {IDC_AO_CHANNEL, L"RENDER_CHANNEL_AO", RememberedKind::CheckBox, L"0"},
        {IDC_MATERIAL_CHANNEL, L"CHECK_RENDER_MTL", RememberedKind::CheckBox, L"0"},
        {IDC_PSD_CHANNEL, L"CHECK_PSD", RememberedKind::CheckBox, L"0"},
        {IDC_GI_CHANNEL, L"CHECK_GI", RememberedKind::CheckBox, L"0"},
        {IDC_SAVE_SCENE_FILE, L"IDC_SAVE_SCENE_FILE", RememberedKind::CheckBox, L"1"},
        {IDC_REMEMBER, L"REMBER_SETTING", RememberedKind::CheckBox, L"0"},
        {IDC_GI_SCALE, L"GI_SIZE", RememberedKind::DropDownList, L"0"},
        {IDC_TIME_LIMIT, L"EDIT_DURATION2", RememberedKind::EditField, kNoLimit},
        {IDC_AO_RADIUS, L"EDIT_AO_RADIUS", RememberedKind::EditField, kDefaultAoRadius},
        {IDC_AO_SUBDIVS, L"EDIT_AO_SUBDIVS", RememberedKind::EditField, kDefaultAoSubdivs},
        {IDC_GAMMA, L"EDIT_OUTPUT_GAMMA", RememberedKind::EditField, kDefaultGamma},
        {IDC_PASS_LIMIT, L"EDIT_ITERATIONS_A", RememberedKind::EditField, kNoLimit},
        {IDC_NOISE_LEVEL, L"EDIT_NOISE_LEVEL2", RememberedKind::EditField, kNoLimit},
        {IDC_NO_BLOCKS, L"NOBLOCK", RememberedKind::RadioButton, L"1"},
        {IDC_THREE_BLOCKS, L"THREEBLOCK", RememberedKind::RadioButton, L"0"},
        {IDC_SIX_BLOCKS, L"SIXBLOCK", RememberedKind::RadioButton, L"0"},
        {IDC_DISTRIBUTED_BLOCKS, L"DCSBLOCK", RememberedKind::RadioButton, L"0"},
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

namespace {

std::wstring CurrentValue(const SubmissionChoices& choices, const RememberedControl& control) {
    switch (control.kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        return std::to_wstring(choices.boxState(control.id));
    case RememberedKind::DropDownList:
        return std::to_wstring(GiScaleEntry(choices.selection(control.id)));
    case RememberedKind::EditField:
        return choices.text(control.id);
    }
    return std::wstring();
}

} // namespace

void saveRememberedSettings(const SubmissionChoices& choices) {
    const bool areRemembered = choices.isChecked(IDC_REMEMBER);
    for (const RememberedControl& control : RememberedControls()) {
        const std::wstring value =
            areRemembered ? CurrentValue(choices, control) : std::wstring(control.defaultValue);
        WriteGeneralSetting(control.key, value);
    }
}

void saveRememberedSettings(HWND dialog) {
    SubmissionChoices choices;
    if (TakeChoices(dialog, choices))
        saveRememberedSettings(choices);
}

std::vector<RememberedValue> ReadRememberedSettings() {
    std::vector<RememberedValue> values;
    for (const RememberedControl& control : RememberedControls()) {
        const std::wstring text = ReadGeneralSetting(control.key);
        if (!text.empty())
            values.push_back({control, text});
    }
    return values;
}

} // namespace orv
