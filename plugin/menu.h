// The product's menu in the host's main menu bar: open, a separator, about.
#pragma once

#include "max.h"

class IMenu;
class IMenuManager;

// Where the menu goes. Null for what the host does not have.
struct MenuPlace {
    IMenuManager* manager;
    IMenu* mainMenu; // of the main menu bar
};
MenuPlace FindMenuPlace();

// Brings the menu up to date: registers its context, refills the menu that an earlier run left in
// the host's menu file, or installs a new one at the end of the main menu bar. What is missing
// makes the steps that need it do nothing.
void InstallMenu(const MenuPlace& place, ActionTable* table);

// Empties the menu of that title and takes it out of the host; the product's context lets it go.
// Null is taken for the empty title. Without the context the emptied menu stays registered.
void removeMenuByTitle(const MCHAR* title);
