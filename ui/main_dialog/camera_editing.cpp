#include "ui/main_dialog/camera_editing.h"

#include "resources/controls.h"
#include "ui/render_options/render_options.h"
#include "windows/controls.h"

#include <commctrl.h>

#include <string>
#include <vector>

namespace orv {
namespace {

// The names of the rows that are in all these states (LVNI_SELECTED, LVNI_FOCUSED), from the top.
std::vector<std::wstring> NamesOfRows(HWND table, LPARAM states) {
    std::vector<std::wstring> names;
    for (LRESULT row = -1;;) {
        row = ::SendMessageW(table, LVM_GETNEXTITEM, static_cast<WPARAM>(row), states);
        if (row < 0)
            return names;
        names.push_back(CheckList(table).name(static_cast<int>(row)));
    }
}

void EditRows(HWND dialog, CameraTable& cameras, PluginData& data, LPARAM states,
              CameraEditing editing) {
    const std::vector<std::wstring> names = NamesOfRows(::GetDlgItem(dialog, IDC_CAMERAS), states);
    cameras.readTicks(data.analysis.cameras);
    RunRenderOptions(dialog, data, names, editing);
}

} // namespace

void EditFocusedCamera(HWND dialog, CameraTable& cameras, PluginData& data) {
    EditRows(dialog, cameras, data, LVNI_FOCUSED | LVNI_SELECTED, CameraEditing::Single);
}

void EditSelectedCameras(HWND dialog, CameraTable& cameras, PluginData& data) {
    EditRows(dialog, cameras, data, LVNI_SELECTED, CameraEditing::Several);
}

void UpdateEditButton(HWND dialog) {
    const Control button(dialog, IDC_EDIT_CAMERAS);
    const bool several = ::SendDlgItemMessageW(dialog, IDC_CAMERAS, LVM_GETSELECTEDCOUNT, 0, 0) > 1;
    if (several != button.isEnabled())
        button.enable(several);
}

bool ChangesSelection(const NMHDR& header) {
    if (header.code == static_cast<UINT>(NM_CLICK) ||
        header.code == static_cast<UINT>(LVN_HOTTRACK))
        return true;
    // The keyboard selects without a click.
    if (header.code != static_cast<UINT>(LVN_ITEMCHANGED))
        return false;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    return ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0;
}

} // namespace orv
