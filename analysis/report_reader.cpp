#include "analysis/report_reader.h"

#include "analysis/report_json.h"
#include "analysis/report_steps.h"
#include "analysis/text/text_convert.h"
#include "config/plugin_data.h"

#include <exception>
#include <json/writer.h>
#include <utility>

namespace orv {
namespace {

void Log(const std::string& level, const std::string& message) {
    PluginData::instance().writeLog(level, message);
}

void BeginRead(SceneAnalysis& analysis) {
    analysis.problemFiles.clear();
    analysis.tips.clear();
    analysis.duplicateCameraNames.clear();
    analysis.hasIllegalReference = false;
}

// The order of the steps is the order of the messages that the user sees.
int ReadInOrder(Json::Value& report, SceneAnalysis& analysis) {
    CheckRenderer(report, analysis);
    ReadCoronaLimits(report, analysis);
    ReadRegion(report, analysis);
    CheckCyrillicReferences(report, analysis);
    if (RemoveIllegalReferences(report, analysis))
        analysis.reportText = Utf8ToWide(Json::StyledWriter().write(report));
    ListMissingFiles(report, analysis);
    ListSameNameFiles(report, analysis);
    if (!HasCameras(report)) {
        AddMessage(analysis, kError, "No cameras!");
        return kReportNoCameras;
    }
    SceneImage image = ReadSceneImage(report, analysis);
    ReadVRay(report, analysis, image);
    ReadCameras(report, image, analysis);
    ReadGamma(report, analysis);
    ReadErrors(report, analysis);
    if (ReadDuplicateCameras(report, analysis))
        return kReportDuplicateCameras;
    AddClosingMessage(report, analysis);
    return kReportRead;
}

int Refuse(SceneAnalysis& analysis, const std::string& reason) {
    const std::string text = "The analysis report cannot be used: " + reason + ".";
    AddMessage(analysis, kError, text);
    Log(kError, text);
    return kReportRefused;
}

int Read(SceneAnalysis& analysis) {
    Json::Value report;
    if (!ParseReport(analysis.reportText, report)) {
        Log(kWarn, "The analysis report is not JSON.");
        AddClosingMessage(Json::Value(), analysis);
        return kReportRead;
    }
    const std::string fault = FindReportFault(report);
    if (!fault.empty())
        return Refuse(analysis, fault);

    // Into a copy, so that a read that ends half-way leaves nothing behind.
    SceneAnalysis filled = analysis;
    const int result = ReadInOrder(report, filled);
    analysis = std::move(filled);
    Log(kInfo, "Analysis report read: " + std::to_string(analysis.cameras.size()) + " cameras, " +
                   std::to_string(analysis.messages.size()) + " messages.");
    return result;
}

} // namespace

int ReadAnalysisReport(SceneAnalysis& analysis) {
    try {
        BeginRead(analysis);
        return Read(analysis);
    } catch (const std::exception& error) { // out of memory, or a type that was not foreseen
        return Refuse(analysis, error.what());
    }
}

} // namespace orv
