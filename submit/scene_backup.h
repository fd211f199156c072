#pragma once

#include "base/noncopyable.h"
#include "config/scene_analysis.h"

#include <string>

namespace orv {

// Copies the scene's file beside it under its name with an underscore and a drawn number of at
// least six digits. On success `backupPath` is the copy's path; otherwise it stays as it was. Both
// outcomes are logged. True when copied; a copy that was begun and failed is deleted.
bool BackupSceneFile(const SceneAnalysis& analysis, std::wstring& backupPath);

// The copy's path for a drawn number: shot.max and 417 give shot_000417.max.
std::wstring BackupPathOf(const std::wstring& scenePath, int number);

// Deletes a backup at the end of its scope, also one of a write-protected scene. A copy that cannot
// be deleted leaves a line in "rud_data".
struct SceneBackup : private rud_Noncopyable {
    ~SceneBackup();
    std::wstring path; // of the copy, empty when there is none
};

} // namespace orv
