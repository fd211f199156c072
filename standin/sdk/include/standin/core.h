// The seam between the stand-in's core.dll and the stand-in host program, in plain C, so that
// sources of either object layout can include it. Everything runs on the host's main thread unless
// said; texts are UTF-16 and zero-terminated. Link the CMake target standin_core.
#pragma once

#include "base/windows.h"

extern "C" {

// ---- What the plug-in asks of the host application ----

// A script's result. `kind` says which member counts; `text` belongs to the one that filled it and
// has to stay valid until the next script runs.
enum standin_value_kind {
    STANDIN_VALUE_NONE,    // no value: undefined, ok
    STANDIN_VALUE_BOOLEAN, // integer 0 or 1
    STANDIN_VALUE_INTEGER,
    STANDIN_VALUE_FLOAT, // number
    STANDIN_VALUE_STRING,
    STANDIN_VALUE_NAME
};
struct standin_value {
    int kind;
    int integer;
    double number;
    const wchar_t* text;
};

// Implemented by the host program. Every function gets `context`; a null entry does nothing and
// answers 0 or an empty text. Returned texts stay valid until the next call of the same function.
struct standin_host_callbacks {
    void* context;
    HWND (*main_window)(void* context);
    const wchar_t* (*scene_file_name)(
        void* context); // without folder; empty for a scene never saved
    const wchar_t* (*scene_file_path)(void* context);   // folder and name
    const wchar_t* (*folder)(void* context, int which); // a number of MaxDirectories.h
    int (*save_scene)(void* context);                   // nonzero when saved
    int (*save_scene_to)(void* context, const wchar_t* path, int clear_modified, int use_new_file);
    // Nonzero when the text ran without an error; `result` arrives as STANDIN_VALUE_NONE.
    int (*run_script)(void* context, const wchar_t* text, int quiet_errors, int log_quiet_errors,
                      standin_value* result);
    void (*register_dialog)(void* context, HWND dialog); // modeless dialogs for the message loop
    void (*unregister_dialog)(void* context, HWND dialog);
    void (*menu_bar_changed)(void* context); // the plug-in asked for a new menu bar: rebuild it
};

// Makes core.dll and menus.dll serve this host; the structure is copied. With null there is no
// host: GetCOREInterface answers null. Registers the window classes "SpinnerControl" and
// "CustEdit".
void standin_set_host(const standin_host_callbacks* callbacks);

// Calls of the host's interface (scene, saving, scripts) that came from another thread than that of
// standin_set_host. They are refused: in the real host they crash sooner or later.
int standin_wrong_thread_count(void);

// Interfaces of spinners that were taken (GetISpinner, SetupFloatSpinner, ...) and not released.
int standin_spinner_interface_count(void);

// ---- Notifications ----

// Tells every registered procedure of event `code` (0x50: the host has started, 0x49: it ends).
void standin_broadcast(int code);
int standin_notification_count(void); // procedures registered now

// ---- Actions ----

// Runs command `command` of table `table` through the callback in force. Nonzero when a callback
// was called and said it handled the command.
int standin_run_action(unsigned long table, int command);
int standin_action_table_count(void);
int standin_action_context_count(void);
// Calls of ActivateActionTable that found their table, the repeated ones included.
int standin_action_activation_count(void);
// The name under which an action context was registered, null when it is unknown.
const wchar_t* standin_action_context_name(unsigned long context);

// The host's end: deletes the action tables (the host owns them) and forgets contexts, callbacks
// and notifications. Call it after the plug-ins are unloaded or, at least, stopped.
void standin_core_reset(void);
}
