#include "submit/unexpected_end.h"

#include "config/progress_hold.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {

void TellUnexpectedEnd(HWND dialog, const std::wstring& caption,
                       const std::wstring& languageMarker) noexcept {
    EndProgress();
    try {
        const ProgressHold hold;
        ShowMessage(dialog, ResourceText(IDS_SUBMISSION_BROKEN_OFF), caption, MB_OK,
                    languageMarker);
    } catch (...) {
        // Out of memory, most likely. The log has the line.
    }
}

} // namespace orv
