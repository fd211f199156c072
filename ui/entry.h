// What the plug-in's actions call. Plain C: the actions are compiled for the host's object layout.
#pragma once

#include "base/windows.h"

extern "C" {

// Runs the submission dialog modally over `owner`; returns when it is closed. Never throws.
void orv_open_main_dialog(HWND owner);

// For the plug-in's stop: returns when no submission runs, or when a submission has not ended in
// time after the request. For the host's thread, while the door to the host is still open. Never
// throws.
void orv_wait_before_exit(void);

// Shows the box with the product's name and version, without an owner.
void orv_show_about(void);
}
