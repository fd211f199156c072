// The dialog that edits what is rendered of one camera, or of several at once.
#pragma once

#include "base/windows.h"
#include "config/plugin_data.h"

#include <string>
#include <vector>

namespace orv {

enum class CameraEditing {
    Single,  // one camera, with the name of its output
    Several, // all cameras alike; every field starts locked
};

// Runs the dialog modally over `owner`, the main dialog, for the cameras of these keys in
// `data.analysis.cameras`. It shows the values of the first; a key without a record gets one. No
// key, no dialog: 0. Returns 1 when the edits were written to the records, after the owner has been
// sent kRebuildCameraTable, which shows the records' ticks too: they have to be up to date before
// the dialog opens. Returns 0 when it was cancelled. For the dialogs' own thread.
INT_PTR RunRenderOptions(HWND owner, PluginData& data, const std::vector<std::wstring>& cameras,
                         CameraEditing editing);

} // namespace orv
