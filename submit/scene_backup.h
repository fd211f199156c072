#pragma once

#include "config/scene_analysis.h"

#include <string>

namespace orv {

// Copies the scene's file beside it under its name with an underscore and a drawn number of at
// least six digits. On success `backupPath` is the copy's path; otherwise it stays as it was. Both
// outcomes are logged. True when copied. The caller deletes the copy.
bool BackupSceneFile(const SceneAnalysis& analysis, std::wstring& backupPath);

// The copy's path for a drawn number: shot.max and 417 give shot_000417.max.
std::wstring BackupPathOf(const std::wstring& scenePath, int number);

} // namespace orv
