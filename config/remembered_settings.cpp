#include "config/remembered_settings.h"

#include "base/folders.h"
#include "config/dialog_messages.h"
#include "resources/controls.h"

namespace orv {
namespace {

const wchar_t kSection[] = L"general";

std::wstring CurrentValue(const SubmissionChoices& choices, const RememberedControl& control) {
    switch (control.kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        return std::to_wstring(choices.boxState(control.id));
    case RememberedKind::DropDownList:
        return std::to_wstring(RememberedSelection(choices.selection(control.id)));
    case RememberedKind::EditField:
        return choices.text(control.id);
    }
    return std::wstring();
}

} // namespace

void saveRememberedSettings(const SubmissionChoices& choices) {
    const std::wstring file = SettingsFile();
    const bool areRemembered = choices.isChecked(IDC_REMEMBER);
    for (const RememberedControl& control : RememberedControls()) {
        const std::wstring value =
            areRemembered ? CurrentValue(choices, control) : std::wstring(control.defaultValue);
        ::WritePrivateProfileStringW(kSection, control.key, value.c_str(), file.c_str());
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

int RememberedSelection(std::int32_t selection) {
    return selection >= 1 && selection <= 3 ? selection : 0;
}

} // namespace orv
