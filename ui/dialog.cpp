#include "ui/dialog.h"

#include "config/plugin_data.h"
#include "resources/activation_context.h"
#include "resources/text.h"

#include <commctrl.h>

#include <algorithm>
#include <exception>

namespace orv {
namespace {

// The dialog that this thread is about to create. The first messages of a dialog come before
// WM_INITDIALOG, whose parameter belongs to the dialog itself, so the object takes this way in.
thread_local Dialog* starting = nullptr;

void RegisterControlClasses() {
    INITCOMMONCONTROLSEX classes = {};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS;
    ::InitCommonControlsEx(&classes);
}

} // namespace

INT_PTR Dialog::run(int templateId, HWND owner, LPARAM parameter) {
    const ActivationContextScope themedControls;
    RegisterControlClasses();
    Dialog* const outer = starting; // null unless a dialog opens another before its first message
    starting = this;
    INT_PTR result = ::DialogBoxParamW(orv_resource_module(), MAKEINTRESOURCEW(templateId), owner,
                                       &Dialog::procedure, parameter);
    const DWORD error = ::GetLastError();
    if (starting ==
        this) { // no message ever came: there was no window. For a dead owner 0 is returned.
        reportError("DialogBoxParamW failed for dialog " + std::to_string(templateId) +
                    ", error no:" + std::to_string(error));
        result = -1;
    }
    starting = outer;
    window_ = nullptr;
    return result;
}

void Dialog::reportError(const std::string& what) noexcept {
    try {
        writeError(what);
    } catch (...) {
        // There is nowhere left to tell it.
    }
}

void Dialog::writeError(const std::string& line) {
    PluginData::instance().writeLog(kError, line);
}

void Dialog::centreOverOwner() {
    HWND owner = ::GetWindow(window_, GW_OWNER);
    RECT outer = {};
    RECT inner = {};
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (owner == nullptr || ::IsIconic(owner) || !::GetWindowRect(owner, &outer) ||
        !::GetWindowRect(window_, &inner) ||
        !::GetMonitorInfoW(::MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor))
        return; // it stays where the template puts it
    const RECT& screen = monitor.rcWork;
    const LONG width = inner.right - inner.left;
    const LONG height = inner.bottom - inner.top;
    // The right and bottom edges give way first: the title bar has to be in reach.
    const LONG left = std::max(
        screen.left, std::min((outer.left + outer.right - width) / 2, screen.right - width));
    const LONG top = std::max(
        screen.top, std::min((outer.top + outer.bottom - height) / 2, screen.bottom - height));
    ::SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK Dialog::procedure(HWND window, UINT message, WPARAM wParam,
                                   LPARAM lParam) noexcept {
    auto* dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        if (starting == nullptr)
            return FALSE;
        dialog = starting;
        starting = nullptr;
        dialog->window_ = window;
        ::SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(dialog));
    }
    try {
        return dialog->handle(message, wParam, lParam);
    } catch (const std::exception& error) {
        dialog->reportError(std::string("The dialog ended by an unexpected error: ") +
                            error.what());
    } catch (...) {
        dialog->reportError("The dialog ended by an unexpected error.");
    }
    ::EndDialog(window, 0);
    return FALSE;
}

INT_PTR Dialog::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return onInit(lParam);
    case WM_COMMAND:
        return onCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY: {
        LRESULT result = 0;
        if (!onNotify(*reinterpret_cast<NMHDR*>(lParam), result))
            return FALSE;
        ::SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
        return TRUE;
    }
    case WM_TIMER:
        return onTimer(wParam);
    case WM_CLOSE:
        return onClose();
    case WM_DESTROY:
        onDestroy();
        return TRUE;
    case WM_NCDESTROY:
        // The object may outlive its window: nothing may reach it through the window any more.
        ::SetWindowLongPtrW(window_, DWLP_USER, 0);
        return FALSE;
    default:
        return onMessage(message, wParam, lParam);
    }
}

} // namespace orv
