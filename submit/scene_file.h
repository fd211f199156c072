// The open scene's file: saving it under its name, and a safety copy of it.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "config/scene_analysis.h"

#include <string>

namespace orv {

// Saves the open scene beside its file under `fileName` (UTF-8, with its extension), which it then
// is open as. Returns the saved scene's full path (UTF-8), empty when the scene could not be saved;
// the reason is in "rud_data". Fails for a scene that was never saved, which has no folder, and for
// a name that IsPlainFileName refuses. Saves nothing and returns the scene's path when `fileName`
// is the recorded name: that of the analysis or of the last save. An empty name keeps the scene's,
// which is put into `sceneNameEdit` without its extension. Replaces an existing scene of that name;
// SceneToReplace finds it beforehand.
std::string SaveSceneAs(SceneAnalysis& analysis, HWND sceneNameEdit, const std::string& fileName);

// The existing file that SaveSceneAs would replace under `fileName`, other than the open scene's.
// Empty when it would replace none.
std::wstring SceneToReplace(const SceneAnalysis& analysis, const std::string& fileName);

// Copies the scene's file beside it under its name with an underscore and a drawn number of at
// least six digits. A file that is there already is left alone: the next free number is taken. On
// success `backupPath` is the copy's path; otherwise it stays as it was. Both outcomes are logged.
// True when copied; a copy that was begun and failed is deleted.
bool BackupSceneFile(const SceneAnalysis& analysis, std::wstring& backupPath);

// The copy's path for a drawn number: shot.max and 417 give shot_000417.max.
std::wstring BackupPathOf(const std::wstring& scenePath, int number);

// Owns a backup. The destructor deletes it, also one of a write-protected scene.
struct SceneBackup : private rud_Noncopyable {
    ~SceneBackup();
    // Deletes the backup now. A copy that cannot be deleted leaves a line in "rud_data".
    void remove();
    std::wstring path; // of the copy, empty when there is none
};

} // namespace orv
