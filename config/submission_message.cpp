#include "config/submission_message.h"

#include "config/held_dialog.h"
#include "config/plugin_data.h"
#include "config/progress_hold.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {

int ShowSubmissionMessage(HWND owner, const std::wstring& text, const std::wstring& caption,
                          UINT type, const std::wstring& languageMarker) {
    if (PluginData::instance().endSubmission.isMade())
        return IDCANCEL; // nobody waits for an answer any more
    const HeldDialog held(owner);
    const ProgressHold hold;
    const int button = ShowMessage(owner, text, caption, type, languageMarker);
    // The dialog is still disabled. Windows looks for an enabled window when a box goes, and would
    // find another program's.
    ::SetForegroundWindow(owner);
    return button;
}

int ShowSubmissionMessage(HWND owner, unsigned textId, unsigned captionId) {
    return ShowSubmissionMessage(owner, ResourceText(textId), ResourceText(captionId), MB_OK,
                                 ResourceText(IDS_LANGUAGE_MARKER));
}

} // namespace orv
