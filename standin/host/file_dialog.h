// The system's dialogs for opening and saving a file.
#pragma once

#include "base/windows.h"

#include <string>

namespace standin {

// Lets the user choose a scene file. Empty when the user cancels.
std::wstring AskForSceneFile(HWND owner, bool toSave);

} // namespace standin
