// What the submission does about the scene before it packs it: the Corona limits and the cleaning.
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

// Runs the three cleaning scripts that ship with the product on the open scene. A script that is
// missing or fails stops nothing: the host reports its error itself. Each run leaves a line in
// "rud_data".
void RunVirusScripts();

} // namespace orv
