// What the user decided in the dialog, and taking it over into the camera records.
#pragma once

#include "config/scene_analysis.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

// Only the fields whose flag is set are taken over: those whose controls were enabled.
struct CameraEdits {
    bool setsSize = false;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool setsFormat = false;
    std::wstring format;
    bool setsName = false;
    std::wstring name;
    bool setsFrame = false;
    std::int32_t frame = 0;
    bool setsView = false;
    bool isSpherical = false;
};

// Writes `edits` into the record of each of these keys; a key without a record gets one. A record
// keeps its key when its name changes.
void WriteCameraEdits(CameraMap& cameras, const std::vector<std::wstring>& keys,
                      const CameraEdits& edits);

} // namespace orv
