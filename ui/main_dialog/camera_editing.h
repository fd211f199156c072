// From the camera table to the render options of its rows.
#pragma once

#include "base/windows.h"
#include "config/plugin_data.h"
#include "ui/camera_table/camera_table.h"

namespace orv {

// `dialog` is the main dialog; its camera table is the control IDC_CAMERAS, `cameras` the code
// behind it. The ticks are taken over into the records first, because the render options rebuild
// the table from them.

// Edits the one row that has the focus and is selected; does nothing when there is none.
void EditFocusedCamera(HWND dialog, CameraTable& cameras, PluginData& data);

// Edits all selected rows together; does nothing when there are none.
void EditSelectedCameras(HWND dialog, CameraTable& cameras, PluginData& data);

// Enables the button that edits several cameras while more than one row is selected.
void UpdateEditButton(HWND dialog);

// Whether a notification of the camera table may have changed which rows are selected.
bool ChangesSelection(const NMHDR& header);

} // namespace orv
