// What the sources of the stand-in's core.dll share.
#pragma once

#include "base/windows.h"

// The module that holds an address; null for none.
HMODULE ModuleOf(const void* address);

// Each part of core.dll forgets what came from `module`; with null, everything.
void ReleaseNotifications(HMODULE module);
void ReleaseActions(HMODULE module);

class IActionManager;
IActionManager* ActionManager();

// Registers the window classes of the host's own controls; twice does nothing.
void RegisterCustomControls();
