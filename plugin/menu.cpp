#include "max.h"
// the host's own header comes first
#include "imenuman.h"
#include "imenus.h"

#include "plugin/actions.h"
#include "plugin/ids.h"
#include "plugin/menu.h"
#include "resources/text.h"
#include "resources/texts.h"

namespace {

const int kAtTheEnd = -1;

IMenuManager* HostMenuManager() {
    Interface* host = GetCOREInterface();
    return host ? host->GetMenuManager() : nullptr;
}

IMenuBarContext* MenuBarContext(IMenuManager& manager, int id) {
    return static_cast<IMenuBarContext*>(manager.GetContext(id));
}

const wchar_t* MenuTitle() {
    const wchar_t* title = loadResourceString(IDS_MENU_TITLE);
    return title ? title : L"";
}

void AppendAction(IMenu& menu, ActionTable& table, int command) {
    IMenuItem* item = GetIMenuItem();
    item->SetActionItem(table.GetAction(command));
    menu.AddItem(item, kAtTheEnd);
}

void AppendSeparator(IMenu& menu) {
    IMenuItem* item = GetIMenuItem();
    item->ActAsSeparator();
    menu.AddItem(item, kAtTheEnd);
}

void Fill(IMenu& menu, ActionTable& table) {
    AppendAction(menu, table, kActionOpenDialog);
    AppendSeparator(menu);
    AppendAction(menu, table, kActionAbout);
}

void Empty(IMenu& menu) {
    while (menu.NumItems() > 0)
        menu.RemoveItem(0);
}

void InstallNewMenu(IMenuManager& manager, IMenu& mainMenu, ActionTable& table) {
    IMenu* menu = GetIMenu();
    if (!menu)
        return;
    menu->SetTitle(MenuTitle());
    manager.RegisterMenu(menu, 0);
    IMenuBarContext* context = MenuBarContext(manager, kOrvMenuContextID);
    if (!context)
        return;
    context->SetMenu(menu);
    Fill(*menu, table);
    IMenuItem* item = GetIMenuItem();
    item->SetSubMenu(menu);
    mainMenu.AddItem(item, kAtTheEnd);
    manager.UpdateMenuBar();
}

} // namespace

MenuPlace FindMenuPlace() {
    IMenuManager* manager = HostMenuManager();
    IMenuBarContext* mainMenuBar =
        manager ? MenuBarContext(*manager, kMainMenuBarContext) : nullptr;
    const MenuPlace place = {manager, mainMenuBar ? mainMenuBar->GetMenu() : nullptr};
    return place;
}

void InstallMenu(const MenuPlace& place, ActionTable* table) {
    if (!place.manager)
        return;
    place.manager->RegisterMenuBarContext(kOrvMenuContextID, MenuTitle());
    if (IMenu* present = place.manager->FindMenu(MenuTitle())) {
        Empty(*present);
        if (table)
            Fill(*present, *table);
        place.manager->UpdateMenuBar();
    } else if (place.mainMenu && table) {
        InstallNewMenu(*place.manager, *place.mainMenu, *table);
    }
}

void removeMenuByTitle(const MCHAR* title) {
    IMenuManager* manager = HostMenuManager();
    IMenu* menu = manager ? manager->FindMenu(title ? title : L"") : nullptr;
    if (!menu)
        return;
    Empty(*menu);
    if (IMenuBarContext* context = MenuBarContext(*manager, kOrvMenuContextID)) {
        context->SetMenu(nullptr);
        manager->UnRegisterMenu(menu);
        manager->UpdateMenuBar();
    }
}
