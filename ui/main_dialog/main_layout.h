// The layout of the main dialog on the screen that it is opened on: how large it is, and where the
// row of the renderer's limits stands.
#pragma once

#include "base/windows.h"

#include <vector>

namespace orv {

// Brings the dialog to its size: never smaller than its contents, never larger than the screen. The
// camera table gets room for its columns and a scroll bar, `tableWidth` pixels of client area, and
// what the dialog has to spare. Then sets the row of the renderer's limits. Called once.
void LayOutMainDialog(HWND dialog, int tableWidth, bool isChinese);

// The rules, which need no window.

struct ControlPosition {
    int id;
    int left; // pixels of the screen, from the dialog's left edge
};

// The controls of the limits, and the gamma in the row above them, from left to right. `scale` is
// the screen's resolution, 1 at 96 dots per inch. The shorter words of Chinese stand closer
// together.
std::vector<ControlPosition> LimitRowPositions(double scale, bool isChinese);

struct DialogSize {
    double width;
    double height;
};

// The size of the whole dialog in dialog units of 96 dots per inch, grown by `scale`: on finer
// screens it has more room.
DialogSize MainDialogSize(double scale, bool isChinese);

} // namespace orv
