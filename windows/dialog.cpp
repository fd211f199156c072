#include "windows/dialog.h"

#include "log/log.h"
#include "resources/activation_context.h"
#include "resources/text.h"
#include "windows/guard.h"

#include <commctrl.h>

namespace orv {
namespace {

// The dialog that this thread is about to create. The first messages of a dialog come before
// WM_INITDIALOG, whose parameter belongs to the dialog itself, so the object takes this way in.
thread_local Dialog* starting = nullptr;

void RegisterControlClasses() {
    INITCOMMONCONTROLSEX classes = {};
    classes.dwSize = sizeof(classes);
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
    const bool isShown = starting != this;
    starting = outer;
    window_ = nullptr;
    if (!isShown) {
        // No message ever came: there was no window. For a dead owner 0 is returned.
        writeError(
            SystemErrorText("DialogBoxParamW", error, L"dialog " + std::to_wstring(templateId)));
        result = -1;
    }
    return result;
}

void Dialog::removeCloseCommand() {
    ::RemoveMenu(::GetSystemMenu(window_, FALSE), SC_CLOSE, MF_BYCOMMAND);
}

void Dialog::startTimer(UINT_PTR id, UINT milliseconds) {
    if (::SetTimer(window_, id, milliseconds, nullptr) != 0)
        return;
    const DWORD error = ::GetLastError();
    writeError(SystemErrorText("SetTimer", error));
    end(0);
}

void Dialog::writeError(const std::string& line) noexcept {
    LogError(line);
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
    INT_PTR result = FALSE;
    const auto report = [dialog](const std::string& line) { dialog->writeError(line); };
    if (!RunGuarded("The dialog ended by an unexpected error", report,
                    [&] { result = dialog->handle(message, wParam, lParam); }))
        ::EndDialog(window, 0);
    return result;
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
