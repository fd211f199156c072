#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// Tells the user that the submission of `dialog` has ended by an error that nobody expected, and
// ends the progress window. The log line is the caller's. Never throws: without the memory for a
// message there is none.
void TellUnexpectedEnd(HWND dialog, const std::wstring& caption,
                       const std::wstring& languageMarker) noexcept;

} // namespace orv
