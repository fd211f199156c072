#include "standin/host/menu_bar.h"

#include "standin/host/text.h"
#include "standin/sdk/include/standin/menus.h"

namespace standin {
namespace {

constexpr wchar_t kFileMenu[] = L"&File";

// Plug-ins and menu files can nest menus in each other without end; a menu bar cannot.
constexpr int kDeepestMenu = 8;
constexpr std::size_t kMostCommands = 2000;

void AppendSeparator(HMENU menu) {
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

void AppendCommand(HMENU menu, const standin_item& item, std::vector<MenuCommand>& commands) {
    MenuCommand command;
    command.isAction = item.kind == STANDIN_ITEM_ACTION;
    command.table = item.table;
    command.command = item.command;
    const UINT_PTR id = static_cast<UINT_PTR>(kFirstMenuId) + commands.size();
    commands.push_back(command);
    AppendMenuW(menu, MF_STRING | (item.enabled != 0 ? MF_ENABLED : MF_GRAYED), id, item.title);
}

void AppendItems(HMENU menu, standin_menu* model, int depth, std::vector<MenuCommand>& commands) {
    for (int position = 0; position < standin_menu_item_count(model); ++position) {
        standin_item item = {};
        if (standin_menu_item(model, position, &item) == 0 || commands.size() >= kMostCommands)
            continue;
        switch (item.kind) {
        case STANDIN_ITEM_SEPARATOR:
            AppendSeparator(menu);
            break;
        case STANDIN_ITEM_ACTION:
        case STANDIN_ITEM_HOST_COMMAND:
            AppendCommand(menu, item, commands);
            break;
        case STANDIN_ITEM_SUB_MENU:
            if (depth < kDeepestMenu && item.sub_menu != nullptr) {
                HMENU below = CreatePopupMenu();
                AppendItems(below, item.sub_menu, depth + 1, commands);
                AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below), item.title);
            }
            break;
        default: // an item that nothing was given to yet
            break;
        }
    }
}

bool BarShows(standin_menu* menu) {
    standin_menu* const bar = standin_menu_bar();
    for (int position = 0; position < standin_menu_item_count(bar); ++position) {
        standin_item item = {};
        if (standin_menu_item(bar, position, &item) != 0 && item.sub_menu == menu)
            return true;
    }
    return false;
}

} // namespace

void EnsureFileMenu() {
    standin_menu* const file = standin_menu_create(kFileMenu);
    if (standin_menu_item_count(file) == 0) {
        standin_menu_append_command(file, kCommandOpen, L"&Open...");
        standin_menu_append_separator(file);
        standin_menu_append_command(file, kCommandSave, L"&Save");
        standin_menu_append_command(file, kCommandSaveAs, L"Save &As...");
        standin_menu_append_separator(file);
        standin_menu_append_command(file, kCommandExit, L"E&xit");
    }
    if (!BarShows(file))
        standin_menu_append_sub_menu(standin_menu_bar(), file);
}

HMENU BuildMenuBar(std::vector<MenuCommand>& commands) {
    commands.clear();
    HMENU bar = CreateMenu();
    AppendItems(bar, standin_menu_bar(), 0, commands);
    return bar;
}

Json::Value DescribeMenuBar(HWND window) {
    Json::Value menus(Json::arrayValue);
    HMENU bar = GetMenu(window);
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
        const UINT position = static_cast<UINT>(i);
        wchar_t title[256] = {};
        GetMenuStringW(bar, position, title, 256, MF_BYPOSITION);
        RECT area = {};
        GetMenuItemRect(window, bar, position, &area);
        Json::Value menu(Json::objectValue);
        menu["title"] = ToUtf8(title);
        for (const LONG edge : {area.left, area.top, area.right, area.bottom})
            menu["rect"].append(static_cast<int>(edge));
        menus.append(menu);
    }
    return menus;
}

} // namespace standin
