#include "tests/unit/analysis/sample_report.h"

#include "analysis/report_json.h"
#include "analysis/text/text_convert.h"
#include "tests/support/program_folder.h"

#include <fstream>
#include <json/reader.h>
#include <json/writer.h>
#include <sstream>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

std::string OneLine(const Json::Value& value) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    return Json::writeString(builder, value);
}

// Begun anew by each run of the test program, and beside it, wherever it is run from.
void Record(const Json::Value& report, bool isRefused) {
    static std::ofstream file(WideToUtf8(ProgramFolder()) + "/analysis-reports.jsonl",
                              std::ios::binary);
    Json::Value line;
    line["refused"] = isRefused;
    line["report"] = report;
    file << OneLine(line) << "\n" << std::flush;
    if (!file)
        throw std::runtime_error("analysis-reports.jsonl cannot be written");
}

} // namespace

Json::Value ParseJson(const std::string& text) {
    Json::Value value;
    if (!Json::Reader().parse(text, value))
        throw std::invalid_argument("no JSON: " + text);
    return value;
}

bool ParseReport(const std::wstring& reportText, Json::Value& report) {
    SceneAnalysis analysis;
    analysis.reportText = reportText;
    const std::shared_ptr<const ReportDocument> document = ReportOf(analysis);
    if (document != nullptr)
        report = document->root;
    return document != nullptr;
}

Json::Value SampleReport() {
    return ParseJson(R"({
        "name": "D:/scenes/room.max",
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
    Record(report, result == kReportRefused);
    return analysis;
}

std::string Described(const SceneAnalysis& analysis) {
    std::ostringstream out;
    const auto list = [&out](const char* name, const std::vector<std::wstring>& lines) {
        for (const std::wstring& line : lines)
            out << name << " " << WideToUtf8(line) << "\n";
    };
    out << "report " << WideToUtf8(analysis.reportText) << "\n";
    list("problem", analysis.problemFiles);
    list("tip", analysis.tips);
    out << "corona " << static_cast<int>(analysis.coronaState) << " " << analysis.coronaPassLimit
        << " " << analysis.coronaTimeLimitSeconds << " " << analysis.coronaTimeLimitHours << " "
        << analysis.coronaNoiseLimit << "\nregion " << analysis.isRegion << "\n";
    for (const AnalysisMessage& message : analysis.messages)
        out << "message " << message.severity << " " << message.text << "\n";
    out << "gamma " << analysis.gammaOut << "\nvray " << analysis.imageSamplerType << " "
        << analysis.irradmapPreset << " " << analysis.irradmapMinRate << " "
        << analysis.irradmapMaxRate << "\n";
    for (const auto& camera : analysis.cameras) {
        const CameraInfo& info = camera.second;
        out << "camera " << WideToUtf8(camera.first) << " | " << WideToUtf8(info.name) << " "
            << info.width << " " << info.height << " " << info.startFrame << " "
            << WideToUtf8(info.imageFormat) << " " << info.isSpherical << "\n";
    }
    out << "duplicates " << WideToUtf8(analysis.duplicateCameraNames) << "\nillegal "
        << analysis.hasIllegalReference << "\n";
    return out.str();
}

} // namespace test
} // namespace orv
