// "SpinnerControl": two arrows beside an edit that hold a number within limits.
#include "core/custom_controls.h"
#include "custcont.h"
#include "standin/sdk/include/standin/core.h"

#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

namespace {

int interfacesInUse = 0;

const int kPixelsPerStep = 2; // of the mouse while it drags the value

class Spinner : public ISpinnerControl {
public:
    explicit Spinner(HWND window) : window_(window) {}

    HWND GetHwnd() override { return window_; }
    void Enable(BOOL onOff) override {
        EnableWindow(window_, onOff);
        if (edit_)
            EnableWindow(edit_, onOff);
    }
    void Disable() override { Enable(FALSE); }
    BOOL IsEnabled() override { return IsWindowEnabled(window_); }
    void Enable2(BOOL onOff) override { Enable(onOff); }
    void SetTooltip(bool, const MCHAR*) override {}

    float GetFVal() override { return static_cast<float>(value_); }
    int GetIVal() override { return Rounded(value_); }
    void SetAutoScale(BOOL) override {}
    void SetScale(float s) override { step_ = static_cast<double>(s); }
    void SetValue(float v, int notify) override {
        whole_ = false;
        Change(static_cast<double>(v), notify != 0);
    }
    void SetValue(int v, int notify) override {
        whole_ = true;
        Change(v, notify != 0);
    }
    void SetLimits(int min, int max, int limitCurValue) override {
        Limit(min, max, limitCurValue != 0);
    }
    void SetLimits(float min, float max, int limitCurValue) override {
        Limit(static_cast<double>(min), static_cast<double>(max), limitCurValue != 0);
    }
    void LinkToEdit(HWND hEdit, EditSpinnerType type) override {
        edit_ = hEdit;
        whole_ = type == EDITTYPE_INT || type == EDITTYPE_POS_INT || type == EDITTYPE_TIME;
        if (type >= EDITTYPE_POS_INT && type <= EDITTYPE_POS_UNIVERSE && min_ < 0)
            min_ = 0;
        SetPropW(edit_, LINKED_SPINNER_PROPERTY, window_);
        ShowValue();
    }
    void SetIndeterminate(BOOL i) override {
        indeterminate_ = i != FALSE;
        ShowValue();
    }
    BOOL IsIndeterminate() override { return indeterminate_; }
    void SetResetValue(float v) override { reset_ = static_cast<double>(v); }
    void SetResetValue(int v) override { reset_ = v; }
    void SetKeyBrackets(BOOL) override {}

    void Reset() { ChangeByUser(reset_); }
    void Step(int count) { ChangeByUser(value_ + count * (whole_ ? 1.0 : step_)); }

    // The mouse was pressed at height `y`, moved there, released.
    void BeginDrag(int y) {
        dragging_ = true;
        dragY_ = y;
    }
    void DragTo(int y) {
        const int steps = (dragY_ - y) / kPixelsPerStep;
        if (steps == 0)
            return;
        dragY_ -= steps * kPixelsPerStep;
        Step(steps);
    }
    void EndDrag() { dragging_ = false; }

    void ReadEdit() {
        wchar_t text[64] = {};
        GetWindowTextW(edit_, text, 64);
        wchar_t* end = nullptr;
        const double typed = wcstod(text, &end);
        if (end != text && typed == typed && typed != value_)
            ChangeByUser(typed);
        else
            ShowValue();
    }

    void Tell(UINT message, bool flag) {
        SendMessageW(GetParent(window_), message,
                     MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(window_)), flag ? TRUE : FALSE),
                     reinterpret_cast<LPARAM>(static_cast<ISpinnerControl*>(this)));
    }

private:
    static int Rounded(double value) {
        return static_cast<int>(value < 0 ? value - 0.5 : value + 0.5);
    }

    void Limit(double min, double max, bool limitValue) {
        min_ = min;
        max_ = max;
        if (limitValue)
            Change(value_, false);
    }

    void Change(double value, bool notify) {
        value_ = value < min_ ? min_ : value > max_ ? max_ : value;
        if (whole_)
            value_ = Rounded(value_);
        indeterminate_ = false;
        ShowValue();
        if (notify)
            Tell(CC_SPINNER_CHANGE, dragging_);
    }

    void ChangeByUser(double value) { Change(value, true); }

    void ShowValue() {
        if (!edit_)
            return;
        wchar_t text[64] = {};
        if (indeterminate_) {
            // an empty edit
        } else if (whole_) {
            _snwprintf(text, 63, L"%d", Rounded(value_));
        } else {
            _snwprintf(text, 63, L"%.3f", value_);
            for (size_t last = wcslen(text); last > 2; --last) { // one decimal stays
                if (text[last - 1] != L'0' || text[last - 2] == L'.')
                    break;
                text[last - 1] = 0;
            }
        }
        SetWindowTextW(edit_, text);
    }

    HWND window_;
    HWND edit_ = nullptr;
    double value_ = 0;
    double min_ = 0;
    double max_ = 100;
    double step_ = 0.1;
    double reset_ = 0;
    bool whole_ = true;
    bool indeterminate_ = false;
    bool dragging_ = false;
    int dragY_ = 0;
};

Spinner* SpinnerOf(HWND window) {
    return reinterpret_cast<Spinner*>(GetWindowLongPtrW(window, 0));
}

void Paint(HWND window) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    RECT upper;
    GetClientRect(window, &upper);
    RECT lower = upper;
    upper.bottom = lower.top = (upper.top + upper.bottom) / 2;
    const UINT state = IsWindowEnabled(window) ? 0 : DFCS_INACTIVE;
    DrawFrameControl(dc, &upper, DFC_SCROLL, DFCS_SCROLLUP | state);
    DrawFrameControl(dc, &lower, DFC_SCROLL, DFCS_SCROLLDOWN | state);
    EndPaint(window, &paint);
}

bool IsInUpperHalf(HWND window, LPARAM point) {
    RECT client;
    GetClientRect(window, &client);
    return static_cast<short>(HIWORD(point)) < (client.top + client.bottom) / 2;
}

LRESULT CALLBACK SpinnerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Spinner* spinner = SpinnerOf(window);
    switch (message) {
    case WM_NCCREATE:
        spinner = new Spinner(window);
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(spinner));
        break;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window, 0, 0);
        delete spinner;
        break;
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_ENABLE:
        InvalidateRect(window, nullptr, TRUE);
        return 0;
    case WM_LBUTTONDOWN:
        SetCapture(window);
        spinner->Tell(CC_SPINNER_BUTTONDOWN, false);
        spinner->BeginDrag(static_cast<short>(HIWORD(lParam)));
        spinner->Step(IsInUpperHalf(window, lParam) ? 1 : -1);
        return 0;
    case WM_MOUSEMOVE:
        if (GetCapture() == window)
            spinner->DragTo(static_cast<short>(HIWORD(lParam)));
        return 0;
    case WM_LBUTTONUP:
        if (GetCapture() == window) {
            ReleaseCapture();
            spinner->EndDrag();
            spinner->Tell(CC_SPINNER_BUTTONUP, true);
        }
        return 0;
    case WM_RBUTTONDOWN:
        spinner->Reset();
        return 0;
    case SPINNER_EDIT_CHANGED:
        spinner->ReadEdit();
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool IsSpinner(HWND window) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    return lstrcmpiW(name, SPINNERWINDOWCLASS) == 0;
}

} // namespace

void RegisterSpinnerClass(HINSTANCE module) {
    WNDCLASSEXW spinner = {};
    spinner.cbSize = sizeof(spinner);
    spinner.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW;
    spinner.lpfnWndProc = SpinnerProc;
    spinner.cbWndExtra = sizeof(Spinner*);
    spinner.hInstance = module;
    spinner.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    spinner.lpszClassName = SPINNERWINDOWCLASS;
    RegisterClassExW(&spinner); // fails without harm when it is there already
}

ISpinnerControl* GetISpinner(HWND hCtrl) {
    if (!IsSpinner(hCtrl))
        return nullptr;
    ++interfacesInUse;
    return SpinnerOf(hCtrl);
}

void ReleaseISpinner(ISpinnerControl* isc) {
    if (isc)
        --interfacesInUse;
}

ISpinnerControl* SetupIntSpinner(HWND hwnd, int idSpin, int idEdit, int min, int max, int val) {
    ISpinnerControl* spinner = GetISpinner(GetDlgItem(hwnd, idSpin));
    if (!spinner)
        return nullptr;
    spinner->SetLimits(min, max, FALSE);
    spinner->SetValue(val, FALSE);
    spinner->SetResetValue(val);
    spinner->LinkToEdit(GetDlgItem(hwnd, idEdit), EDITTYPE_INT);
    return spinner;
}

ISpinnerControl* SetupFloatSpinner(HWND hwnd, int idSpin, int idEdit, float min, float max,
                                   float val, float scale) {
    ISpinnerControl* spinner = GetISpinner(GetDlgItem(hwnd, idSpin));
    if (!spinner)
        return nullptr;
    spinner->SetLimits(min, max, FALSE);
    spinner->SetScale(scale);
    spinner->SetValue(val, FALSE);
    spinner->SetResetValue(val);
    spinner->LinkToEdit(GetDlgItem(hwnd, idEdit), EDITTYPE_FLOAT);
    return spinner;
}

int standin_spinner_interface_count(void) {
    return interfacesInUse;
}
