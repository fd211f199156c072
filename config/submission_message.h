// The message boxes of a running submission.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// Shows a message box of a submission over its dialog `owner` (may be null or closed meanwhile:
// then the box stands alone) and returns the id of the button that was pressed, 0 when the box
// could not be shown. Once the end of the submission was requested it shows nothing and returns
// IDCANCEL. The progress window is off the screen before the box opens and until it is
// closed. The keyboard goes back to `owner`. `type` is that of MessageBoxExW, the language follows
// the text of the language marker. For the submit worker.
int ShowSubmissionMessage(HWND owner, const std::wstring& text, const std::wstring& caption,
                          UINT type, const std::wstring& languageMarker);

// The same with both texts by number, and the button OK.
int ShowSubmissionMessage(HWND owner, unsigned textId, unsigned captionId);

} // namespace orv
