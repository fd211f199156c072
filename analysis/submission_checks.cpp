#include "analysis/submission_checks.h"

#include "config/plugin_data.h"
#include "config/submission_windows.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/texts.h"

#include <cmath>

namespace orv {
namespace {

bool HasCheckedState(const SceneAnalysis& analysis) {
    return analysis.coronaState == CoronaLimitState::NothingLimited ||
           analysis.coronaState == CoronaLimitState::OnlyTimeLimited;
}

// The values count, not the state: the user may have typed a limit since the analysis.
bool HasLimit(const SceneAnalysis& analysis) {
    return std::fpclassify(analysis.coronaNoiseLimit) != FP_ZERO || analysis.coronaPassLimit != 0 ||
           analysis.coronaTimeLimitSeconds != 0;
}

} // namespace

int CheckCoronaLimits(const SceneAnalysis& analysis, HWND ownerWindow) {
    if (!HasCheckedState(analysis) || HasLimit(analysis))
        return kCoronaGoOn;
    EndProgress();
    WriteLog(LogModule::Data, kError, "Corona has no limits, the submission is stopped.");
    ShowSubmissionMessage(ownerWindow, IDS_CORONA_WITHOUT_LIMITS, IDS_CAPTION_CHECK);
    return kCoronaStop;
}

int CheckCoronaLimits(HWND ownerWindow) {
    return CheckCoronaLimits(PluginData::instance().analysis, ownerWindow);
}

namespace {

struct CleaningScript {
    std::wstring ClientInfo::*path;
    const char* logLine;
};

const CleaningScript kScripts[] = {
    {&ClientInfo::virusCheckAdsl, "Check ADSL virus for scene"},
    {&ClientInfo::virusCheckAlc, "Check ALC virus for scene"},
    {&ClientInfo::virusCheckCrp, "Check CRP virus for scene"},
};

} // namespace

void RunVirusScripts() {
    ClientInfo info;
    PluginData::instance().loadClientInfo(info);
    host::ScriptValue value;
    for (const CleaningScript& script : kScripts) {
        if (PluginData::instance().endSubmission.isMade())
            return;
        host::RunScript(L"fileIn \"" + info.*script.path + L"\"", value.get());
        WriteLog(LogModule::Data, kWarn, script.logLine);
    }
}

} // namespace orv
