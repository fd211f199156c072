#include "tests/system/races/screen.h"

#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <commctrl.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

HWND Control(HWND dialog, int control) {
    return ::GetDlgItem(dialog, control);
}

} // namespace

HWND FindDialogOf(DWORD process, int control) {
    for (HWND dialog = nullptr;;) {
        dialog = ::FindWindowExW(nullptr, dialog, L"#32770", nullptr);
        if (dialog == nullptr)
            return nullptr;
        DWORD owner = 0;
        ::GetWindowThreadProcessId(dialog, &owner);
        if (owner == process && ::IsWindowVisible(dialog) && Control(dialog, control) != nullptr)
            return dialog;
    }
}

void PostKey(HWND window, WPARAM key) {
    ::PostMessageW(window, WM_KEYDOWN, key, 1);
    ::PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001U));
}

void PressRealKey(WORD key, bool alt) {
    const auto code = static_cast<BYTE>(key);
    if (alt)
        ::keybd_event(VK_MENU, 0, 0, 0);
    ::keybd_event(code, 0, 0, 0);
    ::keybd_event(code, 0, KEYEVENTF_KEYUP, 0);
    if (alt)
        ::keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
}

void ClickControl(HWND dialog, int control) {
    const HWND window = Control(dialog, control);
    RECT area = {};
    ::GetClientRect(window, &area);
    const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    ::PostMessageW(window, WM_LBUTTONUP, 0, middle);
}

bool IsTicked(HWND dialog, int checkBox) {
    return ::SendMessageW(Control(dialog, checkBox), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetTicked(HWND dialog, int checkBox, bool ticked) {
    if (IsTicked(dialog, checkBox) == ticked)
        return;
    ::SendMessageW(Control(dialog, checkBox), BM_CLICK, 0, 0);
    if (!WaitUntil([&] { return IsTicked(dialog, checkBox) == ticked; }))
        throw std::runtime_error("a check box does not answer to a click");
}

std::wstring TextOfControl(HWND dialog, int control) {
    return ReadWindowText(Control(dialog, control));
}

std::string TickedRows(HWND dialog, int table) {
    const HWND window = Control(dialog, table);
    const LRESULT count = ::SendMessageW(window, LVM_GETITEMCOUNT, 0, 0);
    std::string ticks;
    for (LRESULT row = 0; row < count; ++row) {
        const LRESULT state =
            ::SendMessageW(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
        ticks += state == INDEXTOSTATEIMAGEMASK(2) ? '1' : '0';
    }
    return ticks;
}

void TickRows(HWND dialog, int table, const std::string& ticks) {
    const HWND window = Control(dialog, table);
    const std::string before = TickedRows(dialog, table);
    PostKey(window, VK_HOME);
    for (std::size_t row = 0; row < ticks.size() && row < before.size(); ++row) {
        if (before[row] != ticks[row])
            PostKey(window, VK_SPACE);
        PostKey(window, VK_DOWN);
    }
    if (!WaitUntil([&] { return TickedRows(dialog, table) == ticks; }))
        throw std::runtime_error("the camera table does not take the ticks: " +
                                 TickedRows(dialog, table) + " for " + ticks);
}

} // namespace test
} // namespace orv
