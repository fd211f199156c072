// The layout of the main dialog on the screen that it is opened on.
#pragma once

#include "base/windows.h"

namespace orv {

// Brings the dialog to its size: never smaller than its contents, never larger than the screen. The
// camera table gets room for its columns and a scroll bar, `tableWidth` pixels of client area, and
// what the dialog has to spare. Then sets the row of the renderer's limits. Called once.
void LayOutMainDialog(HWND dialog, int tableWidth, bool isChinese);

} // namespace orv
