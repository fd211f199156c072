#include "tests/dialogs/render_options_user.h"

#include "resources/controls.h"
#include "tests/support/wait_until.h"

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

HWND Options() {
    return FindDialogWith(IDC_OPTIONS_WIDTH);
}

void SetSelected(HWND table, int row, bool selected) {
    LVITEMW item = {};
    item.stateMask = LVIS_SELECTED;
    item.state = selected ? LVIS_SELECTED : 0;
    ::SendMessageW(table, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
}

} // namespace

void RenderOptions::TearDown() {
    WaitUntil([] {
        HWND dialog = Options();
        if (dialog != nullptr)
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return dialog == nullptr;
    });
}

void RenderOptions::startHost(LANGID language) {
    host_.start(language);
    main_ = host_.openDialog();
    ASSERT_NE(main_, nullptr);
}

HWND RenderOptions::openForRow(int row) {
    DoubleClickRow(main_, IDC_CAMERAS, row);
    return waitForDialog();
}

HWND RenderOptions::openForRows(std::initializer_list<int> rows) {
    HWND table = ::GetDlgItem(main_, IDC_CAMERAS);
    SetSelected(table, -1, false);
    for (const int row : rows)
        SetSelected(table, row, true);
    ::PostMessageW(main_, WM_COMMAND, IDC_EDIT_CAMERAS, 0);
    return waitForDialog();
}

HWND RenderOptions::waitForDialog() {
    HWND found = nullptr;
    WaitUntil([&found] { return (found = Options()) != nullptr; });
    return found;
}

bool RenderOptions::waitForClose() const {
    return WaitUntil([] { return Options() == nullptr; });
}

std::vector<std::wstring> RenderOptions::cells(int row) const {
    return Rows(main_, IDC_CAMERAS).at(static_cast<std::size_t>(row)).cells;
}

bool IsEnabled(HWND dialog, int control) {
    return ::IsWindowEnabled(::GetDlgItem(dialog, control)) != FALSE;
}

int SelectedEntry(HWND dialog, int list) {
    return static_cast<int>(::SendDlgItemMessageW(dialog, list, CB_GETCURSEL, 0, 0));
}

std::vector<std::wstring> Entries(HWND dialog, int list) {
    std::vector<std::wstring> entries;
    const LRESULT count = ::SendDlgItemMessageW(dialog, list, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry) {
        wchar_t text[256] = {};
        ::SendDlgItemMessageW(dialog, list, CB_GETLBTEXT, static_cast<WPARAM>(entry),
                              reinterpret_cast<LPARAM>(text));
        entries.emplace_back(text);
    }
    return entries;
}

void SelectEntry(HWND dialog, int list, int entry) {
    ::SendDlgItemMessageW(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
}

void ClickAt(HWND dialog, int control, int x, int y) {
    HWND window = ::GetDlgItem(dialog, control);
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

} // namespace test
} // namespace orv
