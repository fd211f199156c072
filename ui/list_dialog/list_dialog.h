// A small dialog that shows lines of text, for example the files of a scene to look at.
#pragma once

#include "base/windows.h"

#include <string>
#include <vector>

namespace orv {

// Runs the dialog modally over `owner`, which may be null, in the middle of the screen's work area.
// Returns the id of what ended it: IDC_LIST_CLOSE for its button, IDCANCEL for Escape and the title
// bar's close button; -1 when it could not be shown. For the dialogs' own thread.
INT_PTR RunListDialog(HWND owner, const std::vector<std::wstring>& lines);

} // namespace orv
