// The edit that holds the name under which the scene is submitted.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// Puts the scene's name into the edit `field`: `fileName` (UTF-8, as the analysis found it) without
// ".max", which is added again when it is read. Writes its line to "rud_ui".
void SetSceneName(HWND field, const std::string& fileName);

// The file name that the text of the edit `field` stands for, ".max" at its end. Writes it to
// "rud_ui".
std::wstring GetSceneName(HWND field);

} // namespace orv
