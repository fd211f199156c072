// The state images on the controls of a dialog, and what loading and drawing images takes.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "base/windows.h"
#include "config/plugin_data.h"

#include <vector>

namespace orv {

// Starts GDI+, and shuts it down when it is destroyed. Never make a static object of it: GDI+ waits
// for its own thread, which no longer runs when statics are destroyed.
class GdiplusSession : private rud_Noncopyable {
public:
    GdiplusSession();
    ~GdiplusSession();

    // Whether GDI+ can be used.
    bool started() const { return started_; }

private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

// An image of the plug-in's resources as a bitmap that GDI can draw.
//
// Owns the bitmap; loading again or destroying the object deletes it. Needs a GdiplusSession while
// it loads, none afterwards.
class SkinImage : private rud_Noncopyable {
public:
    SkinImage() = default;

    // Loads resource `id` of that type, a file in a format that GDI+ reads. False when `module` has
    // no such resource or it cannot be decoded; the object is then empty.
    bool load(HMODULE module, int id, const wchar_t* type);

    // Draws the image over `area`, stretched to it, with its own transparency when it has any.
    // Draws nothing when the object is empty.
    void draw(HDC target, const RECT& area) const;

    explicit operator bool() const { return static_cast<bool>(bitmap_); }
    int width() const { return width_; }
    int height() const { return height_; }
    // 32 with an alpha channel, whose colours are premultiplied, or 24 without.
    int bitsPerPixel() const { return bitsPerPixel_; }
    // Bytes from a row to the one below it: negative, as the last row comes first in memory.
    int rowPitch() const { return rowPitch_; }
    // The uppermost row, null when the object is empty.
    const BYTE* firstRow() const { return firstRow_; }
    // The colour that is not drawn; -1, as images have an alpha channel instead.
    int transparentColour() const { return transparentColour_; }

private:
    void reset();
    // Makes the bitmap section, with room for an alpha channel or without.
    bool create(int width, int height, bool alpha);

    BitmapHandle bitmap_;
    int width_ = 0;
    int height_ = 0;
    int bitsPerPixel_ = 0;
    int rowPitch_ = 0;
    BYTE* firstRow_ = nullptr; // within bitmap_
    int transparentColour_ = -1;
};

// The state images: one for controls that are on, one for the others.

// The size in pixels that a control needs to show the images sharp, on a screen of that resolution:
// a whole multiple of the images' own 16 pixels.
int StateImageSize(int dotsPerInch);

// Draws the image of one state over `area`, for the painting of one control. Draws nothing when the
// image is missing or damaged. Needs a GdiplusSession.
void DrawStateImage(HDC target, const RECT& area, bool on);

// Paints the controls of `slots` that are visible, in their order. The answer to WM_PAINT of their
// dialog; needs a GdiplusSession.
void PaintImageSlots(HWND dialog, const std::vector<ImageSlot>& slots);

} // namespace orv
