// "CustEdit": the system's edit control, which notifies its spinner when the user has finished
// typing.
#include "core/core_state.h"
#include "core/custom_controls.h"
#include "custcont.h"

namespace {

WNDPROC systemEdit = nullptr;

void TellSpinner(HWND edit) {
    HWND spinner = static_cast<HWND>(GetPropW(edit, LINKED_SPINNER_PROPERTY));
    if (spinner)
        SendMessageW(spinner, SPINNER_EDIT_CHANGED, 0, 0);
}

LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCCREATE: {
        CREATESTRUCTW* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        create->style |= WS_BORDER | ES_AUTOHSCROLL;
        SetWindowLongPtrW(window, GWL_STYLE, create->style);
        break;
    }
    case WM_KILLFOCUS: {
        const LRESULT result = CallWindowProcW(systemEdit, window, message, wParam, lParam);
        TellSpinner(window);
        return result;
    }
    case WM_KEYDOWN:
        if (wParam == VK_RETURN) {
            TellSpinner(window);
            SendMessageW(GetParent(window), WM_CUSTEDIT_ENTER,
                         static_cast<WPARAM>(GetDlgCtrlID(window)),
                         reinterpret_cast<LPARAM>(window));
        }
        break;
    case WM_NCDESTROY:
        RemovePropW(window, LINKED_SPINNER_PROPERTY);
        break;
    default:
        break;
    }
    return CallWindowProcW(systemEdit, window, message, wParam, lParam);
}

} // namespace

void RegisterEditClass(HINSTANCE module) {
    WNDCLASSEXW edit = {};
    edit.cbSize = sizeof(edit);
    if (systemEdit || !GetClassInfoExW(nullptr, L"EDIT", &edit))
        return;
    systemEdit = edit.lpfnWndProc;
    edit.lpfnWndProc = EditProc;
    edit.hInstance = module;
    edit.lpszClassName = CUSTEDITWINDOWCLASS;
    edit.style |= CS_GLOBALCLASS;
    RegisterClassExW(&edit);
}

void RegisterCustomControls() {
    HINSTANCE module = ModuleOf(reinterpret_cast<const void*>(&RegisterCustomControls));
    RegisterSpinnerClass(module);
    RegisterEditClass(module);
}
