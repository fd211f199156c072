// The menu file: what the host's user has in the menus from one run to the next.
#pragma once

// Replaces all menus and contexts by those of the file. False, and nothing changed, when the file
// cannot be read or is damaged.
bool LoadMenus(const wchar_t* path);

// Writes all registered menus, the menus below them and the contexts. False when it cannot be
// written.
bool SaveMenus(const wchar_t* path);
