#include "ui/list_dialog/list_dialog.h"

#include "base/dc.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/dialog.h"

#include <algorithm>

namespace orv {
namespace {

// List boxes draw a text a little in from the edge; without this the last character would be cut.
constexpr int kTextInset = 8;

int WidestLine(HWND list, const std::vector<std::wstring>& lines) {
    const WindowDc dc(list);
    if (!dc)
        return 0;
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(list, WM_GETFONT, 0, 0));
    const DcSelection selection(dc.get(), font);
    int widest = 0;
    for (const std::wstring& line : lines) {
        SIZE size = {};
        ::GetTextExtentPoint32W(dc.get(), line.c_str(), static_cast<int>(line.size()), &size);
        widest = std::max(widest, static_cast<int>(size.cx) + kTextInset);
    }
    return widest;
}

class ListDialog : public Dialog {
public:
    explicit ListDialog(const std::vector<std::wstring>& lines) : lines_(lines) {}

protected:
    bool onInit(LPARAM /*parameter*/) override {
        ::SetWindowTextW(window(), ResourceText(IDS_LIST_TITLE).c_str());
        ::SetDlgItemTextW(window(), IDC_LIST_LABEL, ResourceText(IDS_LIST_LABEL).c_str());
        ::SetDlgItemTextW(window(), IDC_LIST_CLOSE, ResourceText(IDS_LIST_CLOSE).c_str());
        HWND list = control(IDC_LIST_LINES);
        for (const std::wstring& line : lines_)
            ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        // Paths are long: the scroll bar reaches their ends.
        ::SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(WidestLine(list, lines_)),
                       0);
        centreInWorkArea();
        return true;
    }

    bool onCommand(int id, int /*code*/) override {
        if (id != IDC_LIST_CLOSE && id != IDCANCEL)
            return false;
        end(id);
        return true;
    }

private:
    void centreInWorkArea() {
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof monitor;
        RECT area = {};
        if (!::GetMonitorInfoW(::MonitorFromWindow(window(), MONITOR_DEFAULTTONEAREST), &monitor) ||
            !::GetWindowRect(window(), &area))
            return; // it stays where the system put it
        const RECT& work = monitor.rcWork;
        ::SetWindowPos(window(), nullptr, (work.left + work.right - (area.right - area.left)) / 2,
                       (work.top + work.bottom - (area.bottom - area.top)) / 2, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    const std::vector<std::wstring>& lines_;
};

} // namespace

INT_PTR RunListDialog(HWND owner, const std::vector<std::wstring>& lines) {
    ListDialog dialog(lines);
    return dialog.run(IDD_LIST, owner);
}

} // namespace orv
