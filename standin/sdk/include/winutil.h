// Helpers for dialogs.
#pragma once

#include "CoreExport.h"
#include "strclass.h"

class ToolTipExtenderImpl;

// Tooltips of one dialog's controls; they live as long as the object.
class ToolTipExtender : public MaxHeapOperators {
public:
    CoreExport ToolTipExtender();
    CoreExport virtual ~ToolTipExtender();
    CoreExport virtual void SetToolTip(HWND hWnd, const MSTR& toolTipIn);
    CoreExport virtual void GetToolTip(HWND hWnd, MSTR& toolTipOut);
    CoreExport virtual void RemoveToolTip(HWND hWnd);
    CoreExport virtual void RemoveToolTips();
    CoreExport virtual HWND GetToolTipHWND();

protected:
    ToolTipExtenderImpl* impl;
};
