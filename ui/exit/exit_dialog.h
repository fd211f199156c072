// The small window that stands between the user and the host's exit while a submission runs.
#pragma once

#include "config/plugin_data.h"
#include "windows/dialog.h"

#include <cstdint>
#include <string>

namespace orv {

// Says what the submission is at and for how long it has run, and ends by itself when the
// submission has ended. "Wait" is what it does anyway: the button only takes itself out of the way
// and says what comes next. "End without it" requests the end of the submission; the window stays
// until it has ended, 30 seconds at most. While a message of the submission is open, this window
// hides: two windows would ask for an answer.
class ExitDialog : public Dialog {
public:
    // What run() returns. Any other value: Windows took the window away, which may be run again.
    enum Result { kSubmissionEnded = 1, kGivenUp };

    explicit ExitDialog(PluginData& data) : data_(data) {}

protected:
    bool onInit(LPARAM parameter) override;
    bool onCommand(int id, int code) override;
    bool onTimer(UINT_PTR id) override;
    bool onClose() override { return true; } // the title bar has no button for it

private:
    void wait();
    void endSubmission();
    void showLines();

    PluginData& data_;
    std::uint64_t endAsked_ = 0; // GetTickCount64 of "End without it", 0 before
    bool waits_ = false;
};

} // namespace orv
