// What the stand-in's own DLLs ask of core.dll, in plain C. The host program has no use for it.
#pragma once

#include "standin/sdk/include/standin/core.h"

extern "C" {

// The host's script runner. 0 without a host, and on any thread but its main thread.
int standin_run_script(const wchar_t* text, int quiet_errors, int log_quiet_errors,
                       standin_value* result);

// menus.dll gives its IMenuManager to the host's interface.
void standin_set_menu_manager(void* manager);

// The menu manager asks the host program to rebuild the menu bar.
void standin_menu_bar_changed(void);

// Forgets what a library that is about to be unloaded has left behind: deletes its action tables
// and drops its notifications.
void standin_release_module(HMODULE module);

// The host's action table of that id (an ActionTable), null for none.
void* standin_find_action_table(unsigned long table);
}
