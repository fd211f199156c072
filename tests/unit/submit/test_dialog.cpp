#include "tests/unit/submit/test_dialog.h"

#include "config/dialog_choices.h"
#include "resources/controls.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

struct ControlKind {
    int id;
    const wchar_t* windowClass;
    DWORD style;
};

const ControlKind kControls[] = {
    {IDC_BACK_UP_SCENE, L"Button", BS_AUTOCHECKBOX},
    {IDC_SAVE_SCENE_FILE, L"Button", BS_AUTOCHECKBOX},
    {IDC_COLOR_CHANNEL, L"Button", BS_AUTOCHECKBOX},
    {IDC_AO_CHANNEL, L"Button", BS_AUTOCHECKBOX},
    {IDC_MATERIAL_CHANNEL, L"Button", BS_AUTOCHECKBOX},
    {IDC_PSD_CHANNEL, L"Button", BS_AUTO3STATE},
    {IDC_GI_CHANNEL, L"Button", BS_AUTOCHECKBOX},
    {IDC_SCENE_NAME, L"Edit", ES_AUTOHSCROLL},
    {IDC_AO_SUBDIVS, L"Edit", ES_AUTOHSCROLL},
    {IDC_GAMMA, L"Edit", ES_AUTOHSCROLL},
    {IDC_AO_RADIUS, L"Edit", ES_AUTOHSCROLL},
    {IDC_NOISE_LEVEL, L"Edit", ES_AUTOHSCROLL},
    {IDC_TIME_LIMIT, L"Edit", ES_AUTOHSCROLL},
    {IDC_PASS_LIMIT, L"Edit", ES_AUTOHSCROLL},
    {IDC_GI_SCALE, L"ComboBox", CBS_DROPDOWNLIST},
    {IDC_CAMERAS, WC_LISTVIEWW, LVS_REPORT},
};

// What the dialog gets when it opens.
struct Opening {
    std::promise<HWND> opened;
    std::atomic<int>* rebuilds;
};

void MakeControls(HWND dialog) {
    for (const ControlKind& kind : kControls) {
        ::CreateWindowExW(0, kind.windowClass, L"", WS_CHILD | WS_VISIBLE | kind.style, 0, 0, 100,
                          20, dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kind.id)),
                          nullptr, nullptr);
    }
    HWND cameras = ::GetDlgItem(dialog, IDC_CAMERAS);
    ::SendMessageW(cameras, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = 100;
    ::SendMessageW(cameras, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    for (const wchar_t* scale : {L"100%", L"50%", L"33%", L"25%"})
        ::SendDlgItemMessageW(dialog, IDC_GI_SCALE, CB_ADDSTRING, 0,
                              reinterpret_cast<LPARAM>(scale));
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM parameter) {
    switch (message) {
    case WM_INITDIALOG:
        MakeControls(dialog);
        ::SetWindowLongPtrW(
            dialog, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<const Opening*>(parameter)->rebuilds));
        reinterpret_cast<Opening*>(parameter)->opened.set_value(dialog);
        return TRUE;
    case kRebuildCameraTable:
        ++*reinterpret_cast<std::atomic<int>*>(::GetWindowLongPtrW(dialog, GWLP_USERDATA));
        return TRUE;
    case WM_CLOSE:
        ::EndDialog(dialog, IDCANCEL);
        return TRUE;
    default:
        return AnswerTakeChoices(dialog, message, wParam);
    }
}

// The template alone, followed by no menu, no class and no title.
struct EmptyDialog {
    DLGTEMPLATE head;
    WORD menu;
    WORD windowClass;
    WORD title;
};

} // namespace

TestDialog::TestDialog() {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&controls);
    std::promise<HWND> opened;
    std::future<HWND> handle = opened.get_future();
    std::promise<void> ended;
    ended_ = ended.get_future();
    thread_ = std::thread(
        [this](std::promise<HWND> onOpen, std::promise<void> onEnd) {
            run(std::move(onOpen));
            onEnd.set_value();
        },
        std::move(opened), std::move(ended));
    handle_ = handle.get();
}

TestDialog::~TestDialog() {
    ::PostMessageW(handle_, WM_CLOSE, 0, 0);
    thread_.join();
}

void TestDialog::run(std::promise<HWND> opened) {
    Opening opening = {std::move(opened), &rebuilds_};
    EmptyDialog dialog{};
    dialog.head.style = WS_POPUP | WS_VISIBLE;
    dialog.head.x = -2000;
    dialog.head.y = -2000;
    dialog.head.cx = 200;
    dialog.head.cy = 200;
    result_ = ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &dialog.head, nullptr,
                                        Procedure, reinterpret_cast<LPARAM>(&opening));
}

void TestDialog::setText(int id, const std::wstring& text) const {
    ::SetDlgItemTextW(handle_, id, text.c_str());
}

std::wstring TestDialog::text(int id) const {
    return ReadWindowText(control(id));
}

void TestDialog::check(int id, UINT state) const {
    ::CheckDlgButton(handle_, id, state);
}

void TestDialog::select(int id, int index) const {
    ::SendDlgItemMessageW(handle_, id, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void TestDialog::takeAway(int id) const {
    ::SetWindowLongPtrW(control(id), GWLP_ID, 0); // only its own thread could destroy it
}

void TestDialog::setCameras(const std::vector<TestCamera>& cameras) const {
    HWND table = control(IDC_CAMERAS);
    ::SendMessageW(table, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t row = 0; row < cameras.size(); ++row) {
        std::wstring name = cameras[row].name;
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(row);
        item.pszText = &name[0];
        ::SendMessageW(table, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        item.stateMask = LVIS_STATEIMAGEMASK;
        item.state = INDEXTOSTATEIMAGEMASK(cameras[row].isChecked ? 2 : 1);
        ::SendMessageW(table, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    }
}

bool TestDialog::waitForEnd() {
    return ended_.wait_for(kDeadline) == std::future_status::ready;
}

bool TestDialog::isOpen() const {
    return ::IsWindow(handle_) && ::IsWindowVisible(handle_);
}

} // namespace test
} // namespace orv
