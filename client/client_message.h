#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// A message of the exchange with the client, over `ownerWindow` (may be null), with its button OK.
// The progress window of the submission stays away while it is open. Shows nothing once the end of
// the submission is requested.
void ShowClientMessage(HWND ownerWindow, const std::wstring& text, const std::wstring& caption,
                       const std::wstring& languageMarker);

} // namespace orv
