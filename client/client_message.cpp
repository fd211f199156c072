#include "client/client_message.h"

#include "config/plugin_data.h"
#include "config/progress_hold.h"
#include "resources/message_box.h"

namespace orv {

void ShowClientMessage(HWND ownerWindow, const std::wstring& text, const std::wstring& caption,
                       const std::wstring& languageMarker) {
    if (PluginData::instance().endSubmission.isMade())
        return; // nobody waits for an answer any more
    const ProgressHold hold;
    ShowMessage(ownerWindow, text, caption, MB_OK, languageMarker);
}

} // namespace orv
