// The scene's name as it is typed in the dialog, and the file name that it stands for.
#pragma once

#include <string>

namespace orv {

// The typed name without ".max" at its end (in any case), so that "shot" and "shot.max" mean the
// same.
std::wstring SceneNameOf(const std::wstring& typed);

// The file's name: SceneNameOf(typed) + ".max".
std::wstring SceneFileNameOf(const std::wstring& typed);

// Whether folders and archives can have this name: no blank or full stop at its end, no back quote.
bool IsUsableSceneName(const std::wstring& name);

} // namespace orv
