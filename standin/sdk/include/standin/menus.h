// The seam between the stand-in's menus.dll and the stand-in host program, in plain C. Link the
// CMake target standin_menus. Call from the host's main thread only.
//
// The host's menu manager knows menus (registered under a title), contexts (places that show one
// menu; number 1 is the main menu bar) and items (a command, a separator or a sub menu). The
// manager owns every menu and item; they go at standin_menus_reset or when another menu file is
// loaded.
#pragma once

#include "base/windows.h"

extern "C" {

struct standin_menu; // a menu of the host, seen from outside

enum standin_item_kind {
    STANDIN_ITEM_EMPTY,
    STANDIN_ITEM_SEPARATOR,
    STANDIN_ITEM_ACTION,       // run with standin_run_action(table, command)
    STANDIN_ITEM_HOST_COMMAND, // the host program's own command; core.dll knows nothing of it
    STANDIN_ITEM_SUB_MENU
};
struct standin_item {
    int kind;
    unsigned long table; // action table, for STANDIN_ITEM_ACTION
    int command;
    int enabled; // 0 for an action whose table is not (or no longer) registered
    standin_menu* sub_menu;
    wchar_t title[256]; // as the menu shows it; of a sub menu its title
};

// ---- Walking ----

standin_menu* standin_menu_bar(void); // the menu of context 1; made by standin_menus_reset
standin_menu* standin_find_menu(const wchar_t* title); // registered menus only; null for none
standin_menu* standin_context_menu(int context);       // null for none
const wchar_t* standin_menu_title(standin_menu* menu); // valid until the title changes
int standin_menu_item_count(standin_menu* menu);
// Nonzero when there is an item at `position` (0 is the first).
int standin_menu_item(standin_menu* menu, int position, standin_item* item);

// ---- The host's own menus ----

// A registered menu with that title; an existing one is returned as it is.
standin_menu* standin_menu_create(const wchar_t* title);
void standin_menu_append_command(standin_menu* menu, int command, const wchar_t* title);
void standin_menu_append_separator(standin_menu* menu);
void standin_menu_append_sub_menu(standin_menu* menu, standin_menu* sub_menu);

// ---- The menu file ----

// UTF-8 text (docs: standin/sdk/README.md); holds registered menus, the menus below them and
// contexts. Load replaces everything; when the file is missing or damaged nothing changes and 0 is
// returned.
int standin_menus_load(const wchar_t* path);
int standin_menus_save(const wchar_t* path);

// Back to a host without menus: an empty main menu bar in context 1. Frees every menu and item.
void standin_menus_reset(void);

// ---- Counts, for tests that look for left-overs ----

int standin_registered_menu_count(void); // the main menu bar included
standin_menu* standin_registered_menu(int index);
int standin_menu_context_count(void); // context 1 included
int standin_live_menu_count(void);    // menu objects not freed
int standin_live_item_count(void);    // item objects not freed
}
