// Tooltips for the controls of a dialog, shown by the system's own tooltip control.
#include "base/windows.h"
#include "winutil.h"

#include <commctrl.h>

class ToolTipExtenderImpl : public MaxHeapOperators {
public:
    ~ToolTipExtenderImpl() {
        if (IsWindow(window_))
            DestroyWindow(window_);
    }

    HWND Window() const { return window_; }

    void Set(HWND control, const wchar_t* text) {
        if (!IsWindow(control))
            return;
        Create(control);
        TTTOOLINFOW tool = Tool(control);
        SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        tool.lpszText = const_cast<wchar_t*>(text);
        SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }

    void Get(HWND control, MSTR& text) {
        wchar_t buffer[1024] = {};
        TTTOOLINFOW tool = Tool(control);
        tool.lpszText = buffer;
        if (IsWindow(window_))
            SendMessageW(window_, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&tool));
        text = buffer;
    }

    void Remove(HWND control) {
        TTTOOLINFOW tool = Tool(control);
        if (IsWindow(window_))
            SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }

private:
    void Create(HWND control) {
        if (IsWindow(window_))
            return;
        const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
        window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                  WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                  GetAncestor(control, GA_ROOT), nullptr, nullptr, nullptr);
        SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, 400); // longer texts wrap
    }

    // The oldest size of the structure works with every version of the common controls.
    static TTTOOLINFOW Tool(HWND control) {
        TTTOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = GetParent(control);
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        return tool;
    }

    HWND window_ = nullptr;
};

ToolTipExtender::ToolTipExtender() : impl(new ToolTipExtenderImpl) {}
ToolTipExtender::~ToolTipExtender() {
    delete impl;
}
void ToolTipExtender::SetToolTip(HWND hWnd, const MSTR& toolTipIn) {
    impl->Set(hWnd, toolTipIn.data());
}
void ToolTipExtender::GetToolTip(HWND hWnd, MSTR& toolTipOut) {
    impl->Get(hWnd, toolTipOut);
}
void ToolTipExtender::RemoveToolTip(HWND hWnd) {
    impl->Remove(hWnd);
}
void ToolTipExtender::RemoveToolTips() {
    delete impl;
    impl = new ToolTipExtenderImpl;
}
HWND ToolTipExtender::GetToolTipHWND() {
    return impl->Window();
}
