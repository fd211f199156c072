#include "tests/unit/analysis/sample_report.h"

#include "analysis/text/text_convert.h"

#include <json/reader.h>
#include <json/writer.h>
#include <stdexcept>

namespace orv {
namespace test {

Json::Value ParseJson(const std::string& text) {
    Json::Value value;
    if (!Json::Reader().parse(text, value))
        throw std::invalid_argument("no JSON: " + text);
    return value;
}

Json::Value SampleReport() {
    return ParseJson(R"({
        "name": "D:/work/room.max",
        "version": "2019",
        "app_version": "21000",
        "renderer_full_name": "V-Ray",
        "is_region": "false",
        "image_width": "1920", "image_height": "1080", "start_frame": "5", "end_frame": "5",
        "image_format": "png",
        "cameras": [{"name": "Cam"}]
    })");
}

std::wstring ReportText(const Json::Value& report) {
    return Utf8ToWide(Json::StyledWriter().write(report));
}

SceneAnalysis ReadReport(const Json::Value& report, int& result) {
    SceneAnalysis analysis;
    analysis.reportText = ReportText(report);
    result = ReadAnalysisReport(analysis);
    return analysis;
}

} // namespace test
} // namespace orv
