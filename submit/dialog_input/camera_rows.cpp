#include "submit/dialog_input/camera_rows.h"

#include <algorithm>
#include <commctrl.h>

namespace orv {
namespace {

// The table is filled with names of at most 259 characters.
constexpr int kNameCapacity = 512;

// A list view with check boxes keeps a box's state as the number of the image beside the row.
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

bool IsRowChecked(HWND cameraTable, int row) {
    const LRESULT state = ::SendMessageW(cameraTable, LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                         LVIS_STATEIMAGEMASK);
    return (static_cast<UINT>(state) >> 12) != kUncheckedImage;
}

} // namespace

std::vector<CameraRow> ReadCameraRows(HWND cameraTable) {
    std::vector<CameraRow> rows;
    const int count = static_cast<int>(::SendMessageW(cameraTable, LVM_GETITEMCOUNT, 0, 0));
    rows.reserve(static_cast<std::size_t>(std::max(0, count)));
    for (int row = 0; row < count; ++row)
        rows.push_back({NameOfRow(cameraTable, row), IsRowChecked(cameraTable, row)});
    return rows;
}

} // namespace orv
