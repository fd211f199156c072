#include "ui/entry.h"

#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/exit/exit_guard.h"
#include "ui/main_dialog/main_dialog.h"
#include "ui/workers.h"
#include "windows/guard.h"

#include <string>

namespace {

// The callers are the host's: nothing may be thrown into it.
void LogError(const std::string& line) {
    orv::PluginData::instance().writeLog(orv::kError, line);
}

void OpenMainDialog(HWND owner) {
    // A submission goes on when its dialog is closed, and works on the records that an opening
    // dialog would fill anew.
    if (orv::IsSubmissionRunning()) {
        orv::ShowMessage(owner, IDS_SUBMISSION_RUNS, IDS_CAPTION);
        return;
    }
    orv::MainDialog dialog(orv::PluginData::instance());
    dialog.run(IDD_MAIN, owner, reinterpret_cast<LPARAM>(&orv::OrvRenderingConfigMgr::instance()));
}

} // namespace

void orv_open_main_dialog(HWND owner) {
    orv::RunGuarded("Opening the dialog failed", LogError, [owner] { OpenMainDialog(owner); });
}

void orv_wait_before_exit(void) {
    orv::RunGuarded("Waiting for the submission failed", LogError, orv::WaitBeforeExit);
}

void orv_show_about(void) {
    orv::RunGuarded("Showing the version failed", LogError,
                    [] { orv::ShowMessage(nullptr, IDS_ABOUT_TEXT, IDS_ABOUT_CAPTION); });
}
