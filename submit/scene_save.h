#pragma once

#include "base/windows.h"
#include "config/scene_analysis.h"

#include <string>

namespace orv {

// Saves the open scene beside its file under `fileName` (UTF-8, with its extension), which it then
// is open as. Returns the saved scene's full path (UTF-8), empty when the scene could not be saved;
// the reason is in "rud_data". A scene that was never saved has no folder to go to, and is not
// saved either; no more is one under a name that is no plain file's (IsPlainFileName). Nothing is
// saved when `fileName` is the recorded name, that of the analysis or of the last save; the scene's
// path is returned. An
// empty name keeps the scene's: it is put into `sceneNameEdit` without its extension.
// Replaces a scene of that name that lies there already; SceneToReplace finds it beforehand.
std::string SaveSceneAs(SceneAnalysis& analysis, HWND sceneNameEdit, const std::string& fileName);

// The file that SaveSceneAs would replace under `fileName`: one that lies there and is not the open
// scene's own. Empty when it would replace none.
std::wstring SceneToReplace(const SceneAnalysis& analysis, const std::string& fileName);

} // namespace orv
