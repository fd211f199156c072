// Where the row of the renderer's limits stands, and how large the main dialog is: plain rules.
#pragma once

#include <vector>

namespace orv {

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
