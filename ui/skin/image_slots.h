// The state images on the controls of a dialog: one for controls that are on, one for the others.
#pragma once

#include "base/windows.h"
#include "config/plugin_data.h"

#include <vector>

namespace orv {

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
