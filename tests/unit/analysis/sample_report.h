// A report as the parser writes it for a plain scene, to be changed by each test.
#pragma once

#include "analysis/report_reader.h"

#include <json/value.h>
#include <string>

namespace orv {
namespace test {

// One camera "Cam", 1920 × 1080, frame 5, format "png", no renderer settings, no files, no errors.
Json::Value SampleReport();

Json::Value ParseJson(const std::string& text);

// Parses a report's text on its own. False when it is not JSON or is nested too deeply.
bool ParseReport(const std::wstring& reportText, Json::Value& report);

// `report` as the text that a run of the parser leaves.
std::wstring ReportText(const Json::Value& report);

// Reads `report` into a new analysis; the reader's code goes to `result`. The report is added to
// the file analysis-reports.jsonl beside the test program, one object a line, with the member
// "refused" that says whether the reader refused it: the schema of the report is held against it.
SceneAnalysis ReadReport(const Json::Value& report, int& result);

// Everything that reading a report fills, as a text to be compared.
std::string Described(const SceneAnalysis& analysis);

} // namespace test
} // namespace orv
