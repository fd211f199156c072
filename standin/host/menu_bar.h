// The window's menu bar, made from the menus that the host's menu manager keeps.
#pragma once

#include "base/windows.h"

#include <json/json.h>

#include <vector>

namespace standin {

// The host's own commands in the menu "File".
enum HostCommand { kCommandOpen = 1, kCommandSave, kCommandSaveAs, kCommandExit };

// What one entry of the menu bar does: an action of a plug-in, or a command of the host's own.
struct MenuCommand {
    bool isAction = false;
    unsigned long table = 0; // of an action
    int command = 0;         // the action's command number, or a HostCommand
};

// Adds the host's own menu "File" to the menu manager's bar when it is not there.
void EnsureFileMenu();

// Builds the menu bar. Entry i of `commands` belongs to the menu entry with id kFirstMenuId + i.
constexpr int kFirstMenuId = 1000;
HMENU BuildMenuBar(std::vector<MenuCommand>& commands);

// The bar's menus as a JSON array of {"title", "rect"}; the rectangle is where the title stands on
// the screen: [left, top, right, bottom].
Json::Value DescribeMenuBar(HWND window);

} // namespace standin
