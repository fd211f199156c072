// The small dialog that stays on screen while a submission runs.
#pragma once

#include "config/plugin_data.h"
#include "ui/dialog.h"

#include <cstdint>
#include <string>

namespace orv {

// Shown by the progress worker over the main dialog. It looks at the shared flags every 30 ms: it
// hides while `hide` is set and ends when `done` is set or no submission runs any more. It never
// opens or comes back while a message box of the submission is open or opens. It says
// what the submission is at, for how long it has run, and how large the archive has become. Its
// title bar cannot close it.
class ProgressDialog : public Dialog {
public:
    explicit ProgressDialog(const PluginData& data) : data_(data) {}

    // To be called before run(): waits until no message box is open. False when there is nothing to
    // show any more.
    static bool waitForScreen();

protected:
    bool onInit(LPARAM parameter) override;
    bool onTimer(UINT_PTR id) override;
    bool onClose() override;
    bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void handKeyboardToOwner() const;
    void leave();
    void showLines();

    const PluginData& data_;
    std::uint64_t opened_ = 0; // GetTickCount64
    std::uint64_t shown_ = 0;  // when the lines were last written
    SubmissionStage shownStage_ = SubmissionStage::Checking;
};

} // namespace orv
