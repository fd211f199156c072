#include "ui/entry.h"

#include "config/plugin_data.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/exit/exit_guard.h"
#include "ui/main_dialog/main_dialog.h"
#include "ui/workers.h"
#include "windows/guard.h"

#include <string>

// The host calls these functions: no exception may reach it.

namespace {

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
    orv::RunGuarded("Opening the dialog failed", orv::LogError, [owner] { OpenMainDialog(owner); });
}

void orv_wait_before_exit(void) {
    orv::RunGuarded("Waiting for the submission failed", orv::LogError, orv::WaitBeforeExit);
}

void orv_show_about(void) {
    orv::RunGuarded("Showing the version failed", orv::LogError,
                    [] { orv::ShowMessage(nullptr, IDS_ABOUT_TEXT, IDS_ABOUT_CAPTION); });
}
