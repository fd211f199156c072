// The small dialog that stays on screen while a submission runs.
#pragma once

#include "config/plugin_data.h"
#include "windows/dialog.h"

#include <cstdint>
#include <string>

namespace orv {

// The progress worker shows it over the main dialog. It shows the stage of the submission, the time
// since it opened, and the size of the archive. Every 30 ms it looks at the shared flags: it hides
// while `hide` is set, and ends when `done` is set or no submission runs. It never opens or comes
// back while a message box of the submission is open. Its title bar cannot close it.
class ProgressDialog : public Dialog {
public:
    explicit ProgressDialog(const PluginData& data) : data_(data) {}

    // Waits until no message box is open; call it before run(). False when the submission has ended
    // meanwhile.
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

// The texts of its lines.

// The number of the text for a stage.
unsigned StageText(SubmissionStage stage);

// A length of time as people read it: "0:07", "12:30", "1:02:03".
std::wstring ElapsedText(std::uint64_t milliseconds);

// The line for the time that a submission has run.
std::wstring TimeLine(std::uint64_t milliseconds);

// A file's size in megabytes, with one digit behind the "." ("0.0", "12.3").
std::wstring MegabyteText(std::uint64_t bytes);

// The size of the file at `path` in bytes, 0 for one that is not there.
std::uint64_t FileSize(const std::wstring& path);

} // namespace orv
