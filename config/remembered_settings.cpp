#include "config/remembered_settings.h"

#include "base/folders.h"
#include "resources/controls.h"

namespace orv {
namespace {

const wchar_t kSection[] = L"general";

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = ::GetWindowTextW(window, &text[0], static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring CurrentValue(HWND dialog, const RememberedControl& control) {
    switch (control.kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        return std::to_wstring(::IsDlgButtonChecked(dialog, control.id));
    case RememberedKind::DropDownList:
        return std::to_wstring(
            RememberedSelection(::SendDlgItemMessageW(dialog, control.id, CB_GETCURSEL, 0, 0)));
    case RememberedKind::EditField:
        return WindowText(::GetDlgItem(dialog, control.id));
    }
    return std::wstring();
}

} // namespace

void saveRememberedSettings(HWND dialog) {
    if (!::IsWindow(dialog)) // closed meanwhile: its boxes would all read as not ticked
        return;
    const std::wstring file = SettingsFile();
    const bool areRemembered = ::IsDlgButtonChecked(dialog, IDC_REMEMBER) == BST_CHECKED;
    for (const RememberedControl& control : RememberedControls()) {
        const std::wstring value =
            areRemembered ? CurrentValue(dialog, control) : std::wstring(control.defaultValue);
        ::WritePrivateProfileStringW(kSection, control.key, value.c_str(), file.c_str());
    }
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

int RememberedSelection(LRESULT selection) {
    return selection >= 1 && selection <= 3 ? static_cast<int>(selection) : 0;
}

} // namespace orv
