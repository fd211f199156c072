// Scopes of drawing: a window's device context, and an object selected into a device context.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

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

} // namespace orv
