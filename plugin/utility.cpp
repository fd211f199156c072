#include "plugin/utility.h"

#include "host/host_api.h"
#include "notify.h"
#include "plugin/actions.h"
#include "plugin/ids.h"
#include "plugin/menu.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "ui/entry.h"

namespace {

// The host loads its menu file after the plug-ins have started, which replaces the menus.
void onSystemStartup(void*, NotifyInfo*) {
    const MenuPlace place = FindMenuPlace();
    ActionTable* table = FindActionTable();
    if (place.mainMenu && table)
        InstallMenu(place, table);
}

// Titles of the menu in earlier releases; the first is today's, the last comes from the resources.
void RemoveLeftOverMenus() {
    removeMenuByTitle(loadResourceString(IDS_MENU_TITLE));
    removeMenuByTitle(L"Vantrel");
    removeMenuByTitle(L"OrvCloud");
    removeMenuByTitle(loadResourceString(IDS_OLD_MENU_TITLE));
}

} // namespace

Orv_Rendering::~Orv_Rendering() {
    removeMenuByTitle(loadResourceString(IDS_MENU_TITLE));
}

DWORD Orv_Rendering::Start() {
    orv_host_open();
    RegisterNotification(onSystemStartup, this, kNotifySystemStartup);
    RemoveLeftOverMenus();
    const MenuPlace place = FindMenuPlace();
    RegisterActions(hInstance);
    ActionTable* table = FindActionTable();
    // The table is active already. A second activation, whose callback is in force from here on, is
    // part of the start-up sequence as the host knows it from this plug-in; it is kept.
    if (table)
        ActivateActions();
    InstallMenu(place, table);
    return GUPRESULT_KEEP;
}

void Orv_Rendering::Stop() {
    // Before anything is taken back: a submission still needs the host. One that ran when the host
    // said that it would exit has ended by now.
    orv_wait_before_exit();
    UnRegisterNotification(onSystemStartup, this, kNotifySystemStartup);
    removeMenuByTitle(loadResourceString(IDS_MENU_TITLE));
    orv_host_close();
}

DWORD_PTR Orv_Rendering::Control(DWORD) {
    return 0;
}

IOResult Orv_Rendering::Save(ISave*) {
    return IO_OK;
}

IOResult Orv_Rendering::Load(ILoad*) {
    return IO_OK;
}

void Orv_Rendering::DeleteThis() {
    delete this;
}
