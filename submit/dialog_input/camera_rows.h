#pragma once

#include "base/windows.h"

#include <string>
#include <vector>

namespace orv {

// Tells the main dialog, from any thread, that the camera records or the warnings have changed.
constexpr UINT kRebuildCameraTable = WM_USER + 1;

// One row of the camera table as the user sees it.
struct CameraRow {
    std::wstring name; // column 0
    bool isChecked = false;
};

// The rows from the first to the last; none when `cameraTable` is no list view. From any thread of
// the process.
std::vector<CameraRow> ReadCameraRows(HWND cameraTable);

} // namespace orv
