// The camera table of the main dialog: one row for each camera, with a check box.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "config/plugin_data.h"

#include <commctrl.h>

#include <string>

namespace orv {

// Fills the list view, and copies its check boxes to the camera records and back. The check boxes
// hold the user's choice; the functions below update the records' `selected` flags. For the
// dialog's own thread. Writes its lines to "rud_ui".
class CameraTable : private rud_Noncopyable {
public:
    CameraTable() = default;

    // The client width, in pixels, that a table in `window` needs to show its columns and a scroll
    // bar.
    static int widthOfColumns(HWND window);

    // Takes over the list view `list`, which may be null, and gives it grid lines, check boxes and
    // whole-row selection.
    void attach(HWND list);

    // Inserts the seven columns. False, with a line in the log, when there is no list view.
    bool createHead();

    // Inserts a row for each camera, in their order, ticked where the record is selected.
    void create(const CameraMap& cameras);

    // Rebuilds the rows from the records.
    void update(const CameraMap& cameras);

    // Sets the records' flags by the check boxes.
    void readTicks(CameraMap& cameras) const;

    // Invert all ticks, or tick all rows. Both set the records' flags and rebuild the rows.
    void invertSelection(CameraMap& cameras);
    void selectAll(CameraMap& cameras);

    // Draws the text of an empty table. Returns the answer to the list view's NM_CUSTOMDRAW.
    LRESULT drawEmptyText(const NMCUSTOMDRAW& drawing) const;

private:
    // The number of rows that the list view holds afterwards.
    int fill(const CameraMap& cameras);
    void insertRow(int row, const std::wstring& key, const CameraInfo& camera);
    void setText(int row, int column, const std::wstring& text);

    HWND list_ = nullptr;
    std::wstring spherical_; // what column 4 shows
    std::wstring normal_;
    std::wstring emptyText_;
};

// From the table to the render options of its rows. `dialog` is the main dialog, whose camera table
// is the control IDC_CAMERAS, with `cameras` behind it. The ticks go into the records first,
// because the render options rebuild the table from them.

// Edits the camera of row `row`, whichever rows are selected.
void EditCamera(HWND dialog, CameraTable& cameras, PluginData& data, int row);

// Edits all selected rows together; does nothing when there are none.
void EditSelectedCameras(HWND dialog, CameraTable& cameras, PluginData& data);

// Enables the button that edits several cameras while more than one row is selected.
void UpdateEditButton(HWND dialog);

// Whether a notification of the camera table may have changed which rows are selected.
bool ChangesSelection(const NMHDR& header);

} // namespace orv
