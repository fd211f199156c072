// The steps of reading a report, in the order in which their messages reach the user. Each takes a
// report that FindReportFault has passed.
#pragma once

#include "config/scene_analysis.h"

#include <json/value.h>
#include <string>

namespace orv {

void AddMessage(SceneAnalysis& analysis, const char* severity, const std::string& text);

// Appends advice by its number; the first one of a read is preceded by the list's heading.
void AddTip(SceneAnalysis& analysis, unsigned textId);

// What is wrong with the scene as a whole.
void CheckRenderer(const Json::Value& report, SceneAnalysis& analysis);
void ReadCoronaLimits(const Json::Value& report, SceneAnalysis& analysis);
void ReadRegion(const Json::Value& report, SceneAnalysis& analysis);
void CheckCyrillicReferences(const Json::Value& report, SceneAnalysis& analysis);
// Takes illegal entries out of `report`'s "reference_file"; true when there was one.
bool RemoveIllegalReferences(Json::Value& report, SceneAnalysis& analysis);
void ListMissingFiles(const Json::Value& report, SceneAnalysis& analysis);
void ListSameNameFiles(const Json::Value& report, SceneAnalysis& analysis);

// What every camera has in common, read once before the cameras.
struct SceneImage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t startFrame = 0;
    std::wstring format;
    bool isSpherical = false;
};

// The cameras and what follows them.
bool HasCameras(const Json::Value& report);
SceneImage ReadSceneImage(const Json::Value& report, SceneAnalysis& analysis);
void ReadVRay(const Json::Value& report, SceneAnalysis& analysis, SceneImage& image);
void ReadCameras(const Json::Value& report, const SceneImage& image, SceneAnalysis& analysis);
void ReadGamma(const Json::Value& report, SceneAnalysis& analysis);
void ReadErrors(const Json::Value& report, SceneAnalysis& analysis);
// True when cameras share names.
bool ReadDuplicateCameras(const Json::Value& report, SceneAnalysis& analysis);
void AddClosingMessage(const Json::Value& report, SceneAnalysis& analysis);

} // namespace orv
