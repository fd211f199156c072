// The edit that holds the name under which the scene is submitted.
#pragma once

#include "base/windows.h"
#include "log/module_log.h"

#include <string>

namespace orv {

// What the edit shows for a scene of file name `fileName` (UTF-8, as the analysis found it): the
// name without ".max", which the submission adds again.
std::wstring SceneNameOf(const std::string& fileName);

// Puts SceneNameOf(fileName) into the edit `field`.
void SetSceneName(HWND field, const std::string& fileName, ModuleLog& log);

// The text of the edit `field` with ".max" added.
std::wstring GetSceneName(HWND field, ModuleLog& log);

} // namespace orv
