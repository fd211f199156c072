#include "submit/camera_validation.h"

#include "analysis/text/names.h"
#include "config/dialog_choices.h"
#include "log/log.h"

#include <algorithm>

namespace orv {
namespace {

struct Outcome {
    int code;
    const char* level;
    const char* logLine;
};

constexpr Outcome kOutcomes[] = {
    {kCamerasUnread, kError, "The camera table could not be read!"},
    {kCamerasValid, kInfo, "The information of cameras to be submit is valid."},
    {kCameraFrameNegative, kError, "The parameter frame to render is less than 0!"},
    {kCameraNamesBad, kError, "The camera names to render contain invalid characters or empty!"},
    {kNoCameraChecked, kError, "No camera checked!"},
};

int Logged(int code) {
    for (const Outcome& outcome : kOutcomes) {
        if (outcome.code == code)
            WriteLog(LogModule::Ui, outcome.level, outcome.logLine);
    }
    return code;
}

} // namespace

int ValidateCameraRows(const std::vector<CameraRow>& rows, CameraMap& cameras,
                       std::vector<std::wstring>& badNames) {
    badNames.clear();
    for (const CameraRow& row : rows) {
        CameraInfo& camera = cameras[row.name];
        camera.selected = row.isChecked;
        if (camera.startFrame < 0)
            return kCameraFrameNegative;
        if (!IsUsableCameraName(row.name))
            badNames.push_back(row.name);
    }
    if (!badNames.empty())
        return kCameraNamesBad;
    const bool anyChecked =
        std::any_of(rows.begin(), rows.end(), [](const CameraRow& row) { return row.isChecked; });
    return anyChecked ? kCamerasValid : kNoCameraChecked;
}

int ValidateCamerasForSubmit(const std::vector<CameraRow>& rows, CameraMap& cameras,
                             std::vector<std::wstring>& badNames) {
    return Logged(ValidateCameraRows(rows, cameras, badNames));
}

int ValidateCamerasForSubmit(HWND cameraTable, CameraMap& cameras,
                             std::vector<std::wstring>& badNames) {
    std::vector<CameraRow> rows;
    return TakeCameraRows(cameraTable, rows) ? ValidateCamerasForSubmit(rows, cameras, badNames)
                                             : Logged(kCamerasUnread);
}

} // namespace orv
