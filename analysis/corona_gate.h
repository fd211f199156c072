#pragma once

#include "base/windows.h"
#include "config/scene_analysis.h"

namespace orv {

constexpr int kCoronaGoOn = 1;
constexpr int kCoronaStop = 0;

// Whether the scene may be rendered, by the Corona limits of `analysis`. A scene that would render
// for ever is stopped with a message box over `ownerWindow`.
int CheckCoronaLimits(const SceneAnalysis& analysis, HWND ownerWindow);

// The same for PluginData's analysis.
int CheckCoronaLimits(HWND ownerWindow);

} // namespace orv
