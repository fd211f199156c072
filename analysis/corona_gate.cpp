#include "analysis/corona_gate.h"

#include "config/plugin_data.h"
#include "config/progress_hold.h"
#include "config/submission_message.h"
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
    PluginData& data = PluginData::instance();
    if (!HasCheckedState(analysis) || HasLimit(analysis))
        return kCoronaGoOn;
    EndProgress();
    data.writeLog(kError, "Corona has no limits, the submission is stopped.");
    ShowSubmissionMessage(ownerWindow, IDS_CORONA_WITHOUT_LIMITS, IDS_CAPTION_CHECK);
    return kCoronaStop;
}

int CheckCoronaLimits(HWND ownerWindow) {
    return CheckCoronaLimits(PluginData::instance().analysis, ownerWindow);
}

} // namespace orv
