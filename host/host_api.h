// The door to the host in plain C, because the two sides are compiled for different object layouts.
// C++ code of the product uses host/host.h. All strings are UTF-16 and zero-terminated.
//
// The host's interface belongs to its main thread. Every function here may be called from any
// thread: away from the main thread the call is handed over to it and the caller waits for the
// result.
#pragma once

#include "base/windows.h"

class FPValue; // a script's result; its layout is the host's

extern "C" {

// Opens the door on the host's main thread (the plug-in's start) and closes it (its stop). Calls
// from other threads fail while it is closed. Opening twice or closing twice does nothing.
void orv_host_open(void);
void orv_host_close(void);

// The host's main window, null when there is no host.
HWND orv_host_main_window(void);

// Name (without folder) and full path of the open scene. Copies at most `capacity` characters, the
// terminating zero included, and returns the whole length in characters; 0 for a scene never saved.
int orv_host_scene_file_name(wchar_t* buffer, int capacity);
int orv_host_scene_file_path(wchar_t* buffer, int capacity);

// Saves the open scene as the host's own command does (asks for a name when there is none). Nonzero
// when saved.
int orv_host_save_scene(void);

// Saves the open scene to `path` without asking, clears its modified mark and makes `path` the open
// scene. Nonzero when saved.
int orv_host_save_scene_to(const wchar_t* path);

// Runs a MAXScript text. `result` comes from orv_host_value_create. Returns what the host returned:
// 1 when the script ran without an error.
int orv_host_run_script(const wchar_t* text, FPValue* result);
FPValue* orv_host_value_create(void);
void orv_host_value_destroy(FPValue* value);

// Whether the host runs unattended: in its quiet mode or as a network renderer. Zero
// when it cannot say.
int orv_host_is_unattended(void);

// Has `exiting` called on the host's thread when the host is about to exit, while everything in it
// still works; what it does holds the exit up. One at a time; null ends it. Once the door is closed
// only the host's own thread can end it.
void orv_host_watch_exit(void (*exiting)(void));

// The host's spinners: links control `spinner` of `dialog` to edit `edit` and sets range and value.
// Nonzero when the controls exist.
int orv_host_setup_float_spinner(HWND dialog, int spinner, int edit, float minimum, float maximum,
                                 float value, float step);
int orv_host_setup_int_spinner(HWND dialog, int spinner, int edit, int minimum, int maximum,
                               int value);
// A spinner of the host sends this message to its dialog when the user has changed its value; the
// spinner's id is the low word of the first parameter.
enum { orv_host_spinner_changed = WM_USER + 600 };
// Value of a spinner; 0 when the control is no spinner of the host. Setting it sends no
// notification.
float orv_host_spinner_float(HWND dialog, int spinner);
void orv_host_set_spinner_float(HWND dialog, int spinner, float value);
int orv_host_spinner_int(HWND dialog, int spinner);
void orv_host_set_spinner_int(HWND dialog, int spinner, int value);

// Tooltips for controls. The tips live until the object is destroyed; null is ignored.
void* orv_host_tooltips_create(void);
void orv_host_tooltips_set(void* tooltips, HWND control, const wchar_t* text);
void orv_host_tooltips_destroy(void* tooltips);
}
