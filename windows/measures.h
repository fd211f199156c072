// Device contexts, and where windows are and how large: all lengths are pixels.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>
#include <vector>

namespace orv {

// The device context of a window's client area (of the whole screen for a null window), given back
// at the end of the scope. False when the window has none.
class WindowDc : private rud_Noncopyable {
public:
    explicit WindowDc(HWND window) noexcept : window_(window), dc_(::GetDC(window)) {}
    ~WindowDc() {
        if (dc_ != nullptr)
            ::ReleaseDC(window_, dc_);
    }

    HDC get() const noexcept { return dc_; }
    explicit operator bool() const noexcept { return dc_ != nullptr; }

private:
    HWND window_;
    HDC dc_;
};

// Selects a font, brush, pen or bitmap into a device context, and puts the former one back at the
// end of the scope. Owns neither: the object has to live longer than the selection, because an
// object cannot be deleted while it is selected. False when the object could not be selected.
class DcSelection : private rud_Noncopyable {
public:
    DcSelection(HDC dc, HGDIOBJ object) noexcept : dc_(dc), former_(::SelectObject(dc, object)) {}
    ~DcSelection() {
        if (*this)
            ::SelectObject(dc_, former_);
    }

    explicit operator bool() const noexcept { return former_ != nullptr && former_ != HGDI_ERROR; }

private:
    HDC dc_;
    HGDIOBJ former_;
};

// The resolution of the screen that `window` is drawn on; USER_DEFAULT_SCREEN_DPI (96) for a window
// without a device context.
int DotsPerInch(HWND window);

// The width of the widest of `lines` in the font of `window`; 0 when there are none.
int WidestLine(HWND window, const std::vector<std::wstring>& lines);

// The window's rectangle in the client area of its parent.
RECT PlaceOf(HWND child);

// The work area of the monitor that shows most of `window`; empty when the system names none.
RECT WorkAreaOf(HWND window);

// Move or size a window without activating it; its place in the Z order stays. Coordinates are
// those of the parent's client area, of the screen for a top-level window.
void PlaceWindow(HWND window, const RECT& place);
void MoveWindowTo(HWND window, LONG left, LONG top);
void ResizeWindow(HWND window, LONG width, LONG height);

// Moves a top-level window to the middle of its owner, as far as the work area has room for it. It
// stays where it is when it has no owner or the owner is minimised.
void CentreOverOwner(HWND window);

// Moves a top-level window to the middle of the work area.
void CentreInWorkArea(HWND window);

} // namespace orv
