// The windows of a host, in this process or in another one: looked at and used as a person does.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {
namespace test {

// The visible dialog of process `process` that has control `control`, null when it is missing.
HWND FindDialogOf(DWORD process, int control);

// Presses and releases a key in a window that need not have the focus.
void PostKey(HWND window, WPARAM key);

// Presses and releases a real key, which goes to the window that has the keyboard; `alt` holds the
// Alt key meanwhile.
void PressRealKey(WORD key, bool alt = false);

// Clicks the middle of a control of the dialog with the left button.
void ClickControl(HWND dialog, int control);

bool IsTicked(HWND dialog, int checkBox);
void SetTicked(HWND dialog, int checkBox, bool ticked); // by clicking where it is not so yet

std::wstring TextOfControl(HWND dialog, int control);

// Ticks exactly the rows of the table at the "1"s of `ticks`, by keys.
void TickRows(HWND dialog, int table, const std::string& ticks);
std::string TickedRows(HWND dialog, int table);

} // namespace test
} // namespace orv
