#pragma once

#include "base/noncopyable.h"
#include "config/scene_analysis.h"

#include <string>

namespace orv {

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
