#include "ui/camera_table/camera_table.h"

#include "config/dialog_choices.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/render_options/render_options.h"
#include "windows/controls.h"
#include "windows/measures.h"

namespace orv {
namespace {

constexpr DWORD kTableStyle = LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT;

struct Column {
    unsigned heading; // text number
    int width;        // pixels at 96 dots per inch
};

const Column kColumns[] = {
    {IDS_COLUMN_CAMERA, 200},      {IDS_COLUMN_WIDTH, 70}, {IDS_COLUMN_HEIGHT, 70},
    {IDS_COLUMN_FRAME, 60},        {IDS_COLUMN_TYPE, 60},  {IDS_COLUMN_FORMAT, 60},
    {IDS_COLUMN_OUTPUT_NAME, 200},
};

int WidthOf(const Column& column, int dotsPerInch) {
    return ::MulDiv(column.width, dotsPerInch, USER_DEFAULT_SCREEN_DPI);
}

// The names of the selected rows, from the top.
std::vector<std::wstring> NamesOfSelectedRows(HWND table) {
    std::vector<std::wstring> names;
    for (LRESULT row = -1;;) {
        row = ::SendMessageW(table, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
        if (row < 0)
            return names;
        names.push_back(CheckList(table).name(static_cast<int>(row)));
    }
}

void EditRows(HWND dialog, CameraTable& cameras, PluginData& data,
              const std::vector<std::wstring>& names, CameraEditing editing) {
    cameras.readTicks(data.analysis.cameras);
    // The new rows are not selected, so the button for several is disabled by now: with the
    // keyboard it would swallow the keys.
    if (RunRenderOptions(dialog, data, names, editing) > 0)
        ::SetFocus(::GetDlgItem(dialog, IDC_CAMERAS));
}

} // namespace

int CameraTable::widthOfColumns(HWND window) {
    const int dotsPerInch = DotsPerInch(window);
    int width = ::GetSystemMetrics(SM_CXVSCROLL);
    for (const Column& column : kColumns)
        width += WidthOf(column, dotsPerInch);
    return width;
}

void CameraTable::attach(HWND list) {
    list_ = list;
    ::SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, kTableStyle, kTableStyle);
    spherical_ = ResourceText(IDS_CAMERA_SPHERICAL);
    normal_ = ResourceText(IDS_CAMERA_NORMAL);
    emptyText_ = ResourceText(IDS_NO_CAMERAS);
}

bool CameraTable::createHead() {
    if (list_ == nullptr) {
        WriteLog(LogModule::Ui, kError, "No handle result in creating camera table head failed.");
        return false;
    }
    const int dotsPerInch = DotsPerInch(list_);
    int index = 0;
    for (const Column& column : kColumns) {
        std::wstring heading = ResourceText(column.heading);
        LVCOLUMNW head = {};
        head.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        head.cx = WidthOf(column, dotsPerInch);
        head.pszText = &heading[0];
        head.iSubItem = index;
        ::SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                       reinterpret_cast<LPARAM>(&head));
        ++index;
    }
    return true;
}

void CameraTable::create(const CameraMap& cameras) {
    if (fill(cameras) > 0)
        WriteLog(LogModule::Ui, kInfo, "Create camera table successfully.");
    else
        WriteLog(LogModule::Ui, kWarn, "No cameras or Create camera table failed!");
}

void CameraTable::update(const CameraMap& cameras) {
    if (fill(cameras) > 0)
        WriteLog(LogModule::Ui, kInfo, "Update camera table successfully.");
    else
        WriteLog(LogModule::Ui, kWarn, "No cameras or Create camera table failed!");
}

void CameraTable::readTicks(CameraMap& cameras) const {
    std::vector<CameraRow> rows;
    if (!ReadCameraRows(list_, rows))
        return; // the records keep what they have
    for (const CameraRow& row : rows) {
        const auto camera = cameras.find(row.name);
        if (camera != cameras.end())
            camera->second.selected = row.isChecked;
    }
}

void CameraTable::invertSelection(CameraMap& cameras) {
    readTicks(cameras);
    for (auto& camera : cameras)
        camera.second.selected = !camera.second.selected;
    update(cameras);
}

void CameraTable::selectAll(CameraMap& cameras) {
    for (auto& camera : cameras)
        camera.second.selected = true;
    update(cameras);
}

LRESULT CameraTable::drawEmptyText(const NMCUSTOMDRAW& drawing) const {
    if (drawing.dwDrawStage == CDDS_PREPAINT)
        return CheckList(list_).rowCount() == 0 ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
    if (drawing.dwDrawStage == CDDS_POSTPAINT) {
        RECT area = {};
        ::GetClientRect(list_, &area);
        ::SetBkMode(drawing.hdc, TRANSPARENT);
        ::SetTextColor(drawing.hdc, ::GetSysColor(COLOR_GRAYTEXT));
        ::DrawTextW(drawing.hdc, emptyText_.c_str(), static_cast<int>(emptyText_.size()), &area,
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    return CDRF_DODEFAULT;
}

int CameraTable::fill(const CameraMap& cameras) {
    if (list_ == nullptr)
        return 0;
    const RedrawPause pause(list_);
    ::SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
    ::SendMessageW(list_, LVM_SETITEMCOUNT, cameras.size(), 0);
    int row = 0;
    for (const auto& camera : cameras)
        insertRow(row++, camera.first, camera.second);
    // The keyboard starts at the first camera: the space bar ticks it.
    CheckList(list_).setState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    return CheckList(list_).rowCount();
}

void CameraTable::insertRow(int row, const std::wstring& key, const CameraInfo& camera) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<wchar_t*>(key.c_str()); // read only
    ::SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    setText(row, 1, std::to_wstring(camera.width));
    setText(row, 2, std::to_wstring(camera.height));
    setText(row, 3, std::to_wstring(camera.startFrame));
    setText(row, 4, camera.isSpherical ? spherical_ : normal_);
    setText(row, 5, camera.imageFormat);
    setText(row, 6, camera.name);
    CheckList(list_).setTick(row, camera.selected);
}

void CameraTable::setText(int row, int column, const std::wstring& text) {
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text.c_str()); // read only
    ::SendMessageW(list_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
}

void EditCamera(HWND dialog, CameraTable& cameras, PluginData& data, int row) {
    const CheckList table(dialog, IDC_CAMERAS);
    EditRows(dialog, cameras, data, {table.name(row)}, CameraEditing::Single);
}

void EditSelectedCameras(HWND dialog, CameraTable& cameras, PluginData& data) {
    EditRows(dialog, cameras, data, NamesOfSelectedRows(::GetDlgItem(dialog, IDC_CAMERAS)),
             CameraEditing::Several);
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
