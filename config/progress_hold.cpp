#include "config/progress_hold.h"

#include "config/plugin_data.h"

namespace orv {
namespace {

bool IsProgressRunning(const PluginData& data) {
    return data.progressState == kWorkerRunning;
}

} // namespace

void EndProgress() {
    PluginData& data = PluginData::instance();
    if (IsProgressRunning(data))
        data.done = true;
}

ProgressHold::ProgressHold() {
    PluginData& data = PluginData::instance();
    // Only the one that set the flag clears it.
    if (IsProgressRunning(data))
        holds_ = !data.hide.exchange(true);
}

// Also when the progress worker has ended meanwhile: the flag must not outlive the message.
ProgressHold::~ProgressHold() {
    if (holds_)
        PluginData::instance().hide = false;
}

} // namespace orv
