// The menus as the stand-in host program sees them.
#include "menus/menu_manager.h"
#include "standin/sdk/include/standin/menus.h"

standin_menu* standin_menu_bar(void) {
    return Outside(MenuManager().MainMenuBar());
}

standin_menu* standin_find_menu(const wchar_t* title) {
    return Outside(static_cast<StandinMenu*>(MenuManager().FindMenu(title)));
}

standin_menu* standin_context_menu(int context) {
    StandinContext* found = MenuManager().Context(context);
    return found ? Outside(found->Menu()) : nullptr;
}

const wchar_t* standin_menu_title(standin_menu* menu) {
    return Inside(menu)->GetTitle().data();
}
int standin_menu_item_count(standin_menu* menu) {
    return Inside(menu)->NumItems();
}

int standin_menu_item(standin_menu* menu, int position, standin_item* item) {
    StandinItem* found = Inside(menu)->Item(position);
    if (!found)
        return 0;
    *item = standin_item();
    item->table = found->Table();
    item->command = found->Command();
    item->enabled = found->GetEnabled();
    item->sub_menu = Outside(found->SubMenu());
    lstrcpynW(item->title, found->GetTitle().data(), 256);
    switch (found->GetActionMode()) {
    case IMenuItem::AM_SEPARATOR:
        item->kind = STANDIN_ITEM_SEPARATOR;
        break;
    case IMenuItem::AM_ITEM: {
        ActionItem* action = found->GetActionItem();
        item->kind = STANDIN_ITEM_ACTION;
        item->enabled = item->enabled && action && action->IsEnabled();
        break;
    }
    case IMenuItem::AM_FN:
        item->kind = STANDIN_ITEM_HOST_COMMAND;
        break;
    case IMenuItem::AM_SUBMENU:
        item->kind = STANDIN_ITEM_SUB_MENU;
        break;
    default:
        item->kind = STANDIN_ITEM_EMPTY;
        break;
    }
    return 1;
}

standin_menu* standin_menu_create(const wchar_t* title) {
    StandinMenu* menu = static_cast<StandinMenu*>(MenuManager().FindMenu(title));
    if (!menu) {
        menu = new StandinMenu;
        menu->SetTitle(title);
        MenuManager().RegisterMenu(menu, 0);
    }
    return Outside(menu);
}

void standin_menu_append_command(standin_menu* menu, int command, const wchar_t* title) {
    Inside(menu)->Append()->SetHostCommand(command, title);
}

void standin_menu_append_separator(standin_menu* menu) {
    Inside(menu)->Append()->ActAsSeparator();
}

void standin_menu_append_sub_menu(standin_menu* menu, standin_menu* sub_menu) {
    Inside(menu)->Append()->SetSubMenu(Inside(sub_menu));
}

int standin_menus_load(const wchar_t* path) {
    return MenuManager().LoadMenuFile(path);
}
int standin_menus_save(const wchar_t* path) {
    return MenuManager().SaveMenuFile(path);
}
void standin_menus_reset(void) {
    MenuManager().Reset();
}

int standin_registered_menu_count(void) {
    return MenuManager().RegisteredMenuCount();
}

standin_menu* standin_registered_menu(int index) {
    const bool exists = index >= 0 && index < MenuManager().RegisteredMenuCount();
    return exists ? Outside(MenuManager().RegisteredMenu(index)) : nullptr;
}

int standin_menu_context_count(void) {
    return MenuManager().NumContexts();
}
int standin_live_menu_count(void) {
    return LiveMenuCount();
}
int standin_live_item_count(void) {
    return LiveItemCount();
}
