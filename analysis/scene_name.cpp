#include "analysis/report_json.h"
#include "analysis/report_reader.h"
#include "analysis/report_steps.h"
#include "log/module_log.h"

namespace orv {
namespace {

// A slash anywhere wins over every backslash: the parser writes slashes, and a backslash is then
// part of a name.
std::size_t LastSeparator(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash != std::string::npos ? slash : path.rfind('\\');
}

} // namespace

std::string InitSceneName(SceneAnalysis& analysis) {
    Json::Value report;
    if (!ParseReport(analysis.reportText, report)) {
        AddMessage(analysis, kWarn, "Parse failed in initing scene name!");
        return {};
    }
    const std::string path = TextOf(MemberOf(report, "name"));
    const std::size_t separator = LastSeparator(path);
    if (separator == std::string::npos) {
        AddMessage(analysis, kWarn, "The scene name is empty!");
        return {};
    }
    analysis.sceneFileName = path.substr(separator + 1);
    analysis.sceneFilePath = path;
    return analysis.sceneFileName;
}

} // namespace orv
