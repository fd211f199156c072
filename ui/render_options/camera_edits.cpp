#include "ui/render_options/camera_edits.h"

namespace orv {

void WriteCameraEdits(CameraMap& cameras, const std::vector<std::wstring>& keys,
                      const CameraEdits& edits) {
    for (const std::wstring& key : keys) {
        CameraInfo& camera = cameras[key];
        if (edits.setsSize) {
            camera.width = edits.width;
            camera.height = edits.height;
        }
        if (edits.setsFormat)
            camera.imageFormat = edits.format;
        if (edits.setsName)
            camera.name = edits.name;
        if (edits.setsFrame)
            camera.startFrame = edits.frame;
        if (edits.setsView)
            camera.isSpherical = edits.isSpherical;
    }
}

} // namespace orv
