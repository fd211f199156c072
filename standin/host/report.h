// The analysis report: what the scene parser that ships with the product writes about a scene.
#pragma once

#include "standin/host/scene.h"

#include <json/json.h>

namespace standin {

// Builds the report of the open scene. Numbers stand as texts, as the parser writes them.
Json::Value MakeReport(const Scene& scene);

// The report as the file's UTF-8 text, without a byte-order mark.
std::string ReportText(const Json::Value& report);

} // namespace standin
