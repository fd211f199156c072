// Whether the choice in the camera table can be submitted.
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <string>
#include <vector>

namespace orv {

constexpr int kCamerasUnread = -1; // nothing is known of the rows
constexpr int kCamerasValid = 0;
constexpr int kCameraFrameNegative = 1;
constexpr int kCameraNamesBad = 2;
constexpr int kNoCameraChecked = 3;

// Carries the check marks of `rows` over to the records in `cameras` and checks every row, checked
// or not. A name without a record gets one. A negative frame ends the walk at its row. The unusable
// names (IsUsableCameraName) are put into `badNames`. Returns one of the codes above.
int ValidateCameraRows(const std::vector<CameraRow>& rows, CameraMap& cameras,
                       std::vector<std::wstring>& badNames);

// The same, with a line for the result in "rud_ui".
int ValidateCamerasForSubmit(const std::vector<CameraRow>& rows, CameraMap& cameras,
                             std::vector<std::wstring>& badNames);

// The same for the rows of the list view `cameraTable`, from any thread of the process.
// kCamerasUnread, with nothing changed, when the table or its dialog is gone.
int ValidateCamerasForSubmit(HWND cameraTable, CameraMap& cameras,
                             std::vector<std::wstring>& badNames);

} // namespace orv
