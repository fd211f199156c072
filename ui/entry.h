// What the plug-in's actions call. Plain C: the actions are compiled for the host's object layout.
#pragma once

#include "base/windows.h"

extern "C" {

// Runs the submission dialog modally over `owner`; returns when it is closed. Lets no exception
// out.
void orv_open_main_dialog(HWND owner);

// For the plug-in's stop: returns when no submission runs any more, or when one that was asked to
// end has not done so in time. On the host's thread, with the door to the host still open. Lets no
// exception out.
void orv_wait_before_exit(void);

// Shows the box with the product's name and version, without an owner.
void orv_show_about(void);
}
