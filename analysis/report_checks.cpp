// Steps of reading a report that concern the scene as a whole.
#include "analysis/report_json.h"
#include "analysis/report_steps.h"
#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "log/module_log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {
namespace {

constexpr char kUnlimited[] = "0"; // compared as text: "0.0" counts as a limit

} // namespace

void AddMessage(SceneAnalysis& analysis, const char* severity, const std::string& text) {
    analysis.messages.push_back({severity, text});
}

void AddTip(SceneAnalysis& analysis, unsigned textId) {
    if (analysis.tips.empty())
        analysis.tips.push_back(ResourceText(IDS_TIPS_HEADING));
    analysis.tips.push_back(ResourceText(textId));
}

void CheckRenderer(const Json::Value& report, SceneAnalysis& analysis) {
    if (RawText(MemberOf(report, "renderer_full_name")) == std::string("Missing_Renderer"))
        AddTip(analysis, IDS_TIP_RENDERER_MISSING);
}

void ReadCoronaLimits(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& setting = MemberOf(report, "corona_setting");
    const Json::Value& passValue = MemberOf(setting, "pass_limit");
    const Json::Value& timeValue = MemberOf(setting, "time_limit");
    const Json::Value& noiseValue = MemberOf(setting, "noise_level_limit");
    if (passValue.isNull() || timeValue.isNull() || noiseValue.isNull()) {
        analysis.coronaState = CoronaLimitState::NoLimits;
        return;
    }
    const std::string pass = RawText(passValue);
    const std::string milliseconds = RawText(timeValue);
    const std::string noise = RawText(noiseValue);
    analysis.coronaPassLimit = WholeNumber(pass);
    analysis.coronaTimeLimitSeconds = WholeNumber(milliseconds) / 1000;
    analysis.coronaTimeLimitHours = analysis.coronaTimeLimitSeconds * (1.0 / 3600.0);
    analysis.coronaNoiseLimit = DecimalNumber(noise);

    if (pass != kUnlimited || noise != kUnlimited) {
        analysis.coronaState = CoronaLimitState::Limited;
    } else if (milliseconds == kUnlimited) {
        analysis.coronaState = CoronaLimitState::NothingLimited;
        AddMessage(analysis, kError,
                   "The progressive pass, time and noise level are not limited in Corona! Please "
                   "revise and submit again!");
    } else {
        analysis.coronaState = CoronaLimitState::OnlyTimeLimited;
        AddTip(analysis, IDS_TIP_CORONA_BLOCKS);
        AddMessage(
            analysis, kWarn,
            "Block rendering is not recommended in Corona. Please limit progressive pass and "
            "noise level if you still want to use block rendering.");
    }
}

void ReadRegion(const Json::Value& report, SceneAnalysis& analysis) {
    analysis.isRegion = RawText(MemberOf(report, "is_region"));
    if (analysis.isRegion != "true")
        return;
    AddTip(analysis, IDS_TIP_REGION);
    AddMessage(analysis, kWarn,
               "Region rendering is used in your scene file. Please ignore this message if you "
               "confirm to use block rendering.");
}

void ListMissingFiles(const std::vector<const char*>& paths, SceneAnalysis& analysis) {
    if (paths.empty())
        return;
    const std::string prefix = WideToUtf8(ResourceText(IDS_MISSING_FILE_PREFIX));
    analysis.problemFiles.reserve(analysis.problemFiles.size() + 1 + paths.size());
    analysis.problemFiles.push_back(ResourceText(IDS_MISSING_FILES_HEADING));
    for (const char* path : paths)
        analysis.problemFiles.push_back(Utf8ToWide(prefix + path));
}

void ListSameNameFiles(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& files = MemberOf(report, "same_file");
    if (files.empty())
        return;
    analysis.problemFiles.push_back(ResourceText(IDS_SAME_FILES_HEADING));
    const std::wstring prefix = ResourceText(IDS_SAME_FILE_PREFIX);
    for (const Json::Value& entry : files) {
        const Json::Value& path = MemberOf(entry, "path");
        if (path.isString())
            analysis.problemFiles.push_back(prefix + Utf8ToWide(RawText(path)));
    }
}

} // namespace orv
