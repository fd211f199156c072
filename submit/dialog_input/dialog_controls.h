// Reading the controls of the main dialog by its window handle, from any thread of the process. A
// control that the dialog does not have reads as unchecked, empty and 0.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>

namespace orv {

// Whether the dialog has the control at all.
inline bool HasControl(HWND dialog, int control) {
    return ::GetDlgItem(dialog, control) != nullptr;
}

// Whether a check box is checked; the third state of a three-state box is not.
bool IsChecked(HWND dialog, int control);

// The whole text of a control.
std::wstring ControlText(HWND dialog, int control);

// The decimal number in an edit, with "." before the fraction; 0 when there is none.
double ControlNumber(HWND dialog, int control);

// The same without its fraction, kept within 32 bits.
std::int32_t ControlWholeNumber(HWND dialog, int control);

// `value` without its fraction, kept within 32 bits.
std::int32_t Truncated(double value);

} // namespace orv
