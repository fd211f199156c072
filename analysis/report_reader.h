// Reading the analysis report into what the dialog and the submission use.
#pragma once

#include "config/scene_analysis.h"

#include <string>

namespace orv {

constexpr int kReportRead = 0;
constexpr int kReportNoCameras = 1;
constexpr int kReportDuplicateCameras = 4;

// Reads `analysis.reportText`, filling cameras, limits, messages, tips and problem files. Returns one of
// the codes above; kReportRead also for a text that is not JSON.
int ReadAnalysisReport(SceneAnalysis& analysis);

// Takes the scene's path and file name from the report. Returns the file name (UTF-8), empty, with a
// message, when there is none.
std::string InitSceneName(SceneAnalysis& analysis);

} // namespace orv
