// Uses a dialog as a person does: by clicks and keys on its controls. For dialogs of this process
// that run on another thread.
#pragma once

#include "base/windows.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

// The visible dialog of this process that has control `control`, null when it is missing.
HWND FindDialogWith(int control);

// Each of the actions below returns when the dialog has dealt with it, or shows another window for
// it.

// Presses a push button.
void Press(HWND dialog, int button);

// Presses a key in a control, which gets the focus first.
void PressKey(HWND dialog, int control, WPARAM key);

// Replaces the text of an edit by typing `text` over it.
void Type(HWND dialog, int edit, const std::wstring& text);

std::wstring Text(HWND dialog, int control);
bool IsShown(HWND dialog, int control);

// The lines of a list box.
std::vector<std::wstring> Lines(HWND dialog, int listBox);

// A row of a list view with check boxes, its cells in the order of the columns.
struct TableRow {
    std::vector<std::wstring> cells;
    bool ticked = false;
};
std::vector<TableRow> Rows(HWND dialog, int table);
// The check boxes alone: "1" for each ticked row, "0" for every other.
std::string Ticks(HWND dialog, int table);

// The tooltip of a control, empty when it has none.
std::wstring ToolTip(HWND dialog, int control);

// Clicks on the check box of a row.
void ClickCheckBox(HWND dialog, int table, int row);

// Double-clicks the check box of a row, which does not select the row.
void DoubleClickCheckBox(HWND dialog, int table, int row);

// Clicks on the text of a row, with `keys` (MK_CONTROL) held down.
void ClickRow(HWND dialog, int table, int row, WPARAM keys = 0);

// Double-clicks the text of a row.
void DoubleClickRow(HWND dialog, int table, int row);

} // namespace test
} // namespace orv
