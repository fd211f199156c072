// The host's own dialog controls.
#pragma once

#include "CoreExport.h"
#include "baseinterface.h"
#include "strclass.h"

#define SPINNERWINDOWCLASS _M("SpinnerControl")
#define CUSTEDITWINDOWCLASS _M("CustEdit")

// Sent to the parent: LOWORD(wParam) is the control's id, lParam the ISpinnerControl.
#define CC_SPINNER_CHANGE (WM_USER + 600)
#define CC_SPINNER_BUTTONDOWN (WM_USER + 601)
#define CC_SPINNER_BUTTONUP (WM_USER + 602)
#define WM_CUSTEDIT_ENTER (WM_USER + 685)

enum EditSpinnerType {
    EDITTYPE_INT,
    EDITTYPE_FLOAT,
    EDITTYPE_UNIVERSE,
    EDITTYPE_POS_INT,
    EDITTYPE_POS_FLOAT,
    EDITTYPE_POS_UNIVERSE,
    EDITTYPE_TIME
};

class ICustomControl : public InterfaceServer {
public:
    virtual HWND GetHwnd() = 0;
    virtual void Enable(BOOL onOff = TRUE) = 0;
    virtual void Disable() = 0;
    virtual BOOL IsEnabled() = 0;
    virtual void Enable2(BOOL onOff = TRUE) = 0;
    virtual INT_PTR Execute(int, ULONG_PTR arg1 = 0, ULONG_PTR arg2 = 0, ULONG_PTR arg3 = 0) {
        (void)arg1, (void)arg2, (void)arg3;
        return 0;
    }
    virtual void SetTooltip(bool bEnable, const MCHAR* text) = 0;
};

class ISpinnerControl : public ICustomControl {
public:
    virtual float GetFVal() = 0;
    virtual int GetIVal() = 0;
    virtual void SetAutoScale(BOOL on = TRUE) = 0;
    virtual void SetScale(float s) = 0;
    virtual void SetValue(float v, int notify) = 0;
    virtual void SetValue(int v, int notify) = 0;
    virtual void SetLimits(int min, int max, int limitCurValue = TRUE) = 0;
    virtual void SetLimits(float min, float max, int limitCurValue = TRUE) = 0;
    virtual void LinkToEdit(HWND hEdit, EditSpinnerType type) = 0;
    virtual void SetIndeterminate(BOOL i = TRUE) = 0;
    virtual BOOL IsIndeterminate() = 0;
    virtual void SetResetValue(float v) = 0;
    virtual void SetResetValue(int v) = 0;
    virtual void SetKeyBrackets(BOOL onOff) = 0;
};

// The caller of GetISpinner releases the interface.
CoreExport ISpinnerControl* GetISpinner(HWND hCtrl);
CoreExport void ReleaseISpinner(ISpinnerControl* isc);
CoreExport ISpinnerControl* SetupIntSpinner(HWND hwnd, int idSpin, int idEdit, int min, int max,
                                            int val);
CoreExport ISpinnerControl* SetupFloatSpinner(HWND hwnd, int idSpin, int idEdit, float min,
                                              float max, float val, float scale = 0.1f);
