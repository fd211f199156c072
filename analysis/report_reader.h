// Reading the analysis report into what the dialog and the submission use.
#pragma once

#include "config/scene_analysis.h"

#include <string>

namespace orv {

constexpr int kReportRead = 0;
constexpr int kReportNoCameras = 1;
constexpr int kReportRefused = 2;
constexpr int kReportDuplicateCameras = 4;

// Reads `analysis.reportText`, filling cameras, limits, messages, tips and problem files; the lists
// of problem files, tips and duplicate names start empty, messages and cameras are added to what is
// there. Entries of "reference_file" with illegal names are taken out of `analysis.reportText`, so
// that no later reader gets them. Stores the parsed report in `analysis.report`.
//
// Returns kReportRead also for a text that is not JSON: then there are no cameras. kReportRefused:
// a required member is missing or is not a text; one "ERROR" message names it, nothing of the
// report was taken, the dialog cannot go on. Its shown text is empty when memory ran out. Lets no
// exception out.
int ReadAnalysisReport(SceneAnalysis& analysis);

// Takes the scene's path and file name from the report. Returns the file name (UTF-8), empty, with
// a message, when the report has none. A name without a folder counts as missing.
std::string InitSceneName(SceneAnalysis& analysis);

} // namespace orv
