#include "config/progress_hold.h"

#include "base/windows.h"
#include "config/plugin_data.h"

namespace orv {
namespace {

constexpr DWORD kLookMilliseconds = 5;

bool IsProgressRunning(const PluginData& data) {
    return data.progressState == kWorkerRunning;
}

} // namespace

void EndProgress() {
    PluginData& data = PluginData::instance();
    if (IsProgressRunning(data))
        data.done = true;
}

ProgressHold::ProgressHold(bool waitsForScreen) {
    PluginData& data = PluginData::instance();
    if (!IsProgressRunning(data))
        return;
    // Only the one that set the flag clears it.
    holds_ = !data.hide.exchange(true);
    // The flag is set before the screen is looked at, and the progress worker takes the screen
    // before it looks at the flag: one of the two sees the other.
    while (waitsForScreen && data.progressOnScreen && IsProgressRunning(data))
        ::Sleep(kLookMilliseconds);
}

// Also when the progress worker has ended meanwhile: the flag must not outlive the message.
ProgressHold::~ProgressHold() {
    if (holds_)
        PluginData::instance().hide = false;
}

bool TakeScreenForProgress() {
    PluginData& data = PluginData::instance();
    data.progressOnScreen = true;
    if (!data.hide)
        return true;
    data.progressOnScreen = false;
    return false;
}

void LeaveScreenOfProgress() {
    PluginData::instance().progressOnScreen = false;
}

bool IsProgressOver() {
    const PluginData& data = PluginData::instance();
    return data.done || data.submitState != kWorkerRunning;
}

} // namespace orv
