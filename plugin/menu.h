// The product's menu in the host's main menu bar: open, a separator, about.
#pragma once

#include "max.h"

// Brings the menu up to date: registers its context, refills the menu that an earlier run left in
// the host's menu file, or installs a new one at the end of the main menu bar.
void InstallMenu();

// The same once the host has loaded its own menu file; nothing when the host's menu bar or our
// action table is missing.
void ReinstallMenu();

// Empties the menu of that title and takes it out of the host; the product's context lets it go.
// Null is taken for the empty title. Without the context the emptied menu stays registered.
void RemoveMenuByTitle(const MCHAR* title);
