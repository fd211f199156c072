// Loading of global utility plug-ins the way the host does it. Part of gup.dll; link the CMake
// target standin_gup. Main thread only.
#pragma once

#include "base/windows.h"

extern "C" {

struct standin_plugin;

// Loads the library and starts its utilities: the six exports must be there, LibVersion must be the
// host's, the descriptors need run-time type information; then LibInitialize, LibClassDesc, Create
// and Start, and DeleteThis for an object that does not want to be kept. Null on failure, with one
// line about the reason in `reason` (may be null); the library is unloaded again.
standin_plugin* standin_plugin_load(const wchar_t* path, wchar_t* reason, int capacity);

// Stop and DeleteThis for each object; deletes the action tables and drops the notifications that
// the library has left with the host; LibShutdown, FreeLibrary. Null does nothing.
void standin_plugin_unload(standin_plugin* plugin);

// The first part of unloading alone: Stop and DeleteThis, the library stays loaded. Twice does
// nothing.
void standin_plugin_stop(standin_plugin* plugin);

HMODULE standin_plugin_module(const standin_plugin* plugin);
int standin_plugin_object_count(const standin_plugin* plugin);
// What the class descriptor says: "class", "category", "internal", "description". Null for others.
const wchar_t* standin_plugin_text(const standin_plugin* plugin, const wchar_t* which);
}
