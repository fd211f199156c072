// The list of what the analysis warns of.
#pragma once

#include "base/windows.h"
#include "config/scene_analysis.h"

#include <string>
#include <vector>

namespace orv {

// The lines for the user: the messages that have a text for the user, the advice, the problem
// files, each in the order in which the analysis found them.
std::vector<std::wstring> WarningLines(const SceneAnalysis& analysis);

// Fills the list box `list` with `lines`, one line each, and lets it scroll to the end of the
// widest. Writes its line to "rud_ui".
void FillWarnings(HWND list, const std::vector<std::wstring>& lines);

} // namespace orv
