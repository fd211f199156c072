#include "tests/dialogs/dialog_user.h"

#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <commctrl.h>

#include <atomic>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

HWND ControlOf(HWND dialog, int control) {
    const HWND window = ::GetDlgItem(dialog, control);
    if (window == nullptr)
        throw std::runtime_error("the dialog has no control " + std::to_string(control));
    return window;
}

constexpr UINT kSettled = WM_APP + 0x3E71; // the product has no messages of this kind
std::atomic<int> settledCount{0};

LRESULT CALLBACK CountSettled(int code, WPARAM removed, LPARAM message) {
    if (code == HC_ACTION && removed == PM_REMOVE &&
        reinterpret_cast<const MSG*>(message)->message == kSettled)
        ++settledCount;
    return ::CallNextHookEx(nullptr, code, removed, message);
}

// Until the dialog's thread has dealt with everything posted to it so far. A message that is sent
// would overtake what is posted, so one is posted and its removal from the queue awaited. Does
// nothing for a dialog of another process, which no hook of this one reaches.
void Settle(HWND dialog) {
    DWORD process = 0;
    const DWORD thread = ::GetWindowThreadProcessId(dialog, &process);
    if (process != ::GetCurrentProcessId())
        return;
    const HHOOK hook = ::SetWindowsHookExW(WH_GETMESSAGE, &CountSettled, nullptr, thread);
    if (hook == nullptr)
        throw std::runtime_error("SetWindowsHookExW error no:" + std::to_string(::GetLastError()));
    const int before = settledCount;
    ::PostMessageW(dialog, kSettled, 0, 0);
    WaitUntil([dialog, before] { return settledCount != before || !::IsWindow(dialog); });
    ::UnhookWindowsHookEx(hook);
}

void PostClick(HWND window, int x, int y) {
    const LPARAM position = MAKELPARAM(x, y);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, position);
    ::PostMessageW(window, WM_LBUTTONUP, 0, position);
}

} // namespace

HWND FindDialogWith(int control) {
    for (HWND dialog = nullptr;;) {
        dialog = ::FindWindowExW(nullptr, dialog, L"#32770", nullptr);
        DWORD process = 0;
        if (dialog == nullptr)
            return nullptr;
        ::GetWindowThreadProcessId(dialog, &process);
        if (process == ::GetCurrentProcessId() && ::IsWindowVisible(dialog) &&
            ::GetDlgItem(dialog, control) != nullptr)
            return dialog;
    }
}

void Press(HWND dialog, int button) {
    const HWND window = ControlOf(dialog, button);
    RECT area = {};
    ::GetClientRect(window, &area);
    PostClick(window, area.right / 2, area.bottom / 2);
    Settle(dialog);
}

void PressKey(HWND dialog, int control, WPARAM key) {
    const HWND window = ControlOf(dialog, control);
    ::SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
    ::PostMessageW(window, WM_KEYDOWN, key, 1);
    ::PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001U));
    Settle(dialog);
}

void Type(HWND dialog, int edit, const std::wstring& text) {
    const HWND window = ControlOf(dialog, edit);
    // A dialog that is just being enabled or activated selects the text of its field, once more.
    Settle(dialog);
    ::SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
    ::SendMessageW(window, EM_SETSEL, 0, -1);
    ::SendMessageW(window, WM_CHAR, L'\b', 1);
    for (const wchar_t character : text)
        ::SendMessageW(window, WM_CHAR, character, 1);
}

std::wstring Text(HWND dialog, int control) {
    return ReadWindowText(ControlOf(dialog, control));
}

bool IsShown(HWND dialog, int control) {
    return ::IsWindowVisible(ControlOf(dialog, control)) != FALSE;
}

std::vector<std::wstring> Lines(HWND dialog, int listBox) {
    const HWND window = ControlOf(dialog, listBox);
    std::vector<std::wstring> lines;
    const LRESULT count = ::SendMessageW(window, LB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
        const auto at = static_cast<WPARAM>(index);
        std::vector<wchar_t> text(
            static_cast<std::size_t>(::SendMessageW(window, LB_GETTEXTLEN, at, 0)) + 1);
        ::SendMessageW(window, LB_GETTEXT, at, reinterpret_cast<LPARAM>(text.data()));
        lines.emplace_back(text.data());
    }
    return lines;
}

std::vector<TableRow> Rows(HWND dialog, int table) {
    const HWND window = ControlOf(dialog, table);
    const auto head = reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<int>(::SendMessageW(head, HDM_GETITEMCOUNT, 0, 0));
    const auto count = static_cast<int>(::SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
    std::vector<TableRow> rows;
    for (int index = 0; index < count; ++index) {
        const auto at = static_cast<WPARAM>(index);
        TableRow row;
        for (int column = 0; column < columns; ++column) {
            wchar_t buffer[512] = {};
            LVITEMW item = {};
            item.iSubItem = column;
            item.pszText = buffer;
            item.cchTextMax = 512;
            ::SendMessageW(window, LVM_GETITEMTEXTW, at, reinterpret_cast<LPARAM>(&item));
            row.cells.emplace_back(buffer);
        }
        row.ticked = ::SendMessageW(window, LVM_GETITEMSTATE, at, LVIS_STATEIMAGEMASK) ==
                     INDEXTOSTATEIMAGEMASK(2);
        rows.push_back(row);
    }
    return rows;
}

std::string Ticks(HWND dialog, int table) {
    std::string ticks;
    for (const TableRow& row : Rows(dialog, table))
        ticks += row.ticked ? '1' : '0';
    return ticks;
}

std::wstring ToolTip(HWND dialog, int control) {
    const HWND tool = ControlOf(dialog, control);
    for (HWND tips = nullptr;;) {
        tips = ::FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr);
        if (tips == nullptr)
            return {};
        if (::GetWindowThreadProcessId(tips, nullptr) !=
            ::GetWindowThreadProcessId(dialog, nullptr))
            continue;
        wchar_t text[1024] = {};
        TTTOOLINFOW info = {};
        info.cbSize = TTTOOLINFOW_V1_SIZE;
        info.hwnd = dialog;
        info.uId = reinterpret_cast<UINT_PTR>(tool);
        info.uFlags = TTF_IDISHWND;
        info.lpszText = text;
        ::SendMessageW(tips, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&info));
        if (text[0] != L'\0')
            return text;
    }
}

namespace {

RECT LabelOf(HWND table, int row) {
    RECT label = {};
    label.left = LVIR_LABEL;
    ::SendMessageW(table, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&label));
    return label;
}

// A point in the check box of a row.
POINT PointInCheckBox(HWND table, int row) {
    const RECT label = LabelOf(table, row);
    const int y = (label.top + label.bottom) / 2;
    for (int x = 0; x < label.left; ++x) {
        LVHITTESTINFO hit = {};
        hit.pt = {x, y};
        ::SendMessageW(table, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        if ((hit.flags & LVHT_ONITEMSTATEICON) != 0 && (hit.flags & LVHT_ONITEMLABEL) == 0)
            return {x + 2, y};
    }
    throw std::runtime_error("row " + std::to_string(row) + " has no check box in sight");
}

} // namespace

void ClickCheckBox(HWND dialog, int table, int row) {
    const HWND window = ControlOf(dialog, table);
    const POINT point = PointInCheckBox(window, row);
    PostClick(window, point.x, point.y);
    Settle(dialog);
}

void DoubleClickCheckBox(HWND dialog, int table, int row) {
    const HWND window = ControlOf(dialog, table);
    const POINT point = PointInCheckBox(window, row);
    PostClick(window, point.x, point.y);
    ::PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    ::PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    Settle(dialog);
}

namespace {

// A point in the text of a row.
LPARAM PointInRow(HWND table, int row) {
    const RECT label = LabelOf(table, row);
    return MAKELPARAM(label.left + 10, (label.top + label.bottom) / 2);
}

} // namespace

void ClickRow(HWND dialog, int table, int row, WPARAM keys) {
    const HWND window = ControlOf(dialog, table);
    const LPARAM point = PointInRow(window, row);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, point);
    ::PostMessageW(window, WM_LBUTTONUP, keys, point);
    Settle(dialog);
}

void DoubleClickRow(HWND dialog, int table, int row) {
    const HWND window = ControlOf(dialog, table);
    const LPARAM point = PointInRow(window, row);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
    ::PostMessageW(window, WM_LBUTTONUP, 0, point);
    ::PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    ::PostMessageW(window, WM_LBUTTONUP, 0, point);
    Settle(dialog);
}

} // namespace test
} // namespace orv
