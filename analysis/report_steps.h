// The steps of reading a report, in the order in which their messages reach the user. Each takes a
// report in which FindMissingMember has found nothing missing; all other members may be of any
// type.
#pragma once

#include "config/scene_analysis.h"

#include <json/value.h>
#include <string>
#include <vector>

namespace orv {

// Appends a message: `text` for the record, and the text of number `shownId` for the user, who sees
// nothing of it when that is 0.
void AddMessage(SceneAnalysis& analysis, const char* severity, const std::string& text,
                unsigned shownId);

// Appends advice by its number; the first one of a read is preceded by the list's heading.
void AddTip(SceneAnalysis& analysis, unsigned textId);

// What is wrong with the scene as a whole.
void CheckRenderer(const Json::Value& report, SceneAnalysis& analysis);
void ReadCoronaLimits(const Json::Value& report, SceneAnalysis& analysis);
void ReadRegion(const Json::Value& report, SceneAnalysis& analysis);
void ListMissingFiles(const std::vector<const char*>& paths, SceneAnalysis& analysis);
void ListSameNameFiles(const Json::Value& report, SceneAnalysis& analysis);

// Findings about the names of the referenced files. Each name is judged once, because there may be
// hundreds of thousands.
struct ReferenceFindings {
    bool hasCyrillic = false;
    std::vector<std::wstring> illegalPaths;
    std::vector<std::size_t> illegalEntries; // their places in the list, ascending
};

ReferenceFindings CheckReferences(const std::vector<const char*>& paths);
void WarnOfCyrillicReferences(const ReferenceFindings& findings, SceneAnalysis& analysis);
// Moves the illegal paths into the list of problem files.
void ListIllegalReferences(ReferenceFindings& findings, SceneAnalysis& analysis);
// Takes the illegal entries out of `report` and out of `text`, which it was parsed from. Everything
// else of both stays as it is. Needs no memory, so that it cannot fail.
void RemoveIllegalReferences(const ReferenceFindings& findings, Json::Value& report,
                             std::wstring& text);

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
