#include "config/dialog_controls.h"

#include "config/remembered_controls.h"
#include "resources/controls.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace orv {
namespace {

// The table is filled with names of at most 259 characters.
constexpr int kNameCapacity = 512;

// A list view with check boxes keeps a box's state as the number of the image beside the row. A row
// that cannot be read has none.
constexpr UINT kNoImage = 0;
constexpr UINT kUncheckedImage = 1;

std::wstring NameOfRow(HWND cameraTable, int row) {
    wchar_t buffer[kNameCapacity] = {};
    LVITEMW item{};
    item.pszText = buffer;
    item.cchTextMax = kNameCapacity;
    ::SendMessageW(cameraTable, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return item.pszText; // the list view may answer with a text of its own instead of a copy
}

UINT ImageOfRow(HWND cameraTable, int row) {
    const LRESULT state = ::SendMessageW(cameraTable, LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                         LVIS_STATEIMAGEMASK);
    return static_cast<UINT>(state) >> 12;
}

void ReadControl(HWND dialog, int id, RememberedKind kind, SubmissionChoices& choices) {
    HWND control = ::GetDlgItem(dialog, id);
    if (control == nullptr)
        return;
    switch (kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        choices.boxes[id] = ::IsDlgButtonChecked(dialog, id);
        break;
    case RememberedKind::DropDownList:
        choices.selections[id] =
            static_cast<std::int32_t>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
        break;
    case RememberedKind::EditField:
        choices.texts[id] = ControlText(dialog, id);
        break;
    }
}

} // namespace

bool IsChecked(HWND dialog, int control) {
    return ::IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

std::wstring ControlText(HWND dialog, int control) {
    HWND window = ::GetDlgItem(dialog, control);
    std::wstring text(static_cast<std::size_t>(std::max(0, ::GetWindowTextLengthW(window))) + 1,
                      L'\0');
    const int length = ::GetWindowTextW(window, &text[0], static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows) {
    std::vector<CameraRow> read;
    const int count = static_cast<int>(::SendMessageW(cameraTable, LVM_GETITEMCOUNT, 0, 0));
    read.reserve(static_cast<std::size_t>(std::max(0, count)));
    for (int row = 0; row < count; ++row) {
        const UINT image = ImageOfRow(cameraTable, row);
        if (image == kNoImage)
            return false;
        read.push_back({NameOfRow(cameraTable, row), image != kUncheckedImage});
    }
    rows.swap(read);
    return true;
}

bool ReadChoices(HWND dialog, SubmissionChoices& choices) {
    SubmissionChoices read;
    for (const RememberedControl& control : RememberedControls())
        ReadControl(dialog, control.id, control.kind, read);
    ReadControl(dialog, IDC_BACK_UP_SCENE, RememberedKind::CheckBox, read);
    ReadControl(dialog, IDC_SCENE_NAME, RememberedKind::EditField, read);
    HWND cameraTable = ::GetDlgItem(dialog, IDC_CAMERAS);
    read.hasCameraTable = cameraTable != nullptr;
    if (read.hasCameraTable && !ReadCameraRows(cameraTable, read.cameras))
        return false;
    choices = std::move(read);
    return true;
}

} // namespace orv
