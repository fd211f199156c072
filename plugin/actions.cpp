#include "plugin/actions.h"

#include "plugin/ids.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "ui/entry.h"

namespace {

// Command, then the texts of its description, short name and category. The host takes the array as
// writable.
ActionDescription kActions[] = {
    {kActionAbout, IDS_ACTION_ABOUT, IDS_ACTION_ABOUT, IDS_ACTION_ABOUT},
    {kActionOpenDialog, IDS_ACTION_OPEN, IDS_ACTION_OPEN, IDS_ACTION_OPEN},
};
const int kActionCount = sizeof(kActions) / sizeof(kActions[0]);

const wchar_t* ResourceTextOrEmpty(unsigned id) {
    const wchar_t* text = loadResourceString(id);
    return text ? text : L"";
}

IActionManager* HostActionManager() {
    Interface* host = GetCOREInterface();
    return host ? host->GetActionManager() : nullptr;
}

HWND HostMainWindow() {
    Interface* host = GetCOREInterface();
    return host ? host->GetMAXHWnd() : nullptr;
}

} // namespace

Orv_ActionTable::Orv_ActionTable(MSTR& name, HINSTANCE module)
    : ActionTable(kOrvActionTableID, kOrvActionContextID, name, nullptr, kActionCount, kActions,
                  module) {}

BOOL Orv_ActionTable::GetMenuText(int id, MSTR& text) {
    for (const ActionDescription& action : kActions) {
        if (action.mCmdID != id)
            continue;
        text = ResourceTextOrEmpty(static_cast<unsigned>(action.mShortNameResourceID));
        return TRUE;
    }
    return ActionTable::GetMenuText(id, text);
}

BOOL Orv_ActionCallback::ExecuteAction(int id) {
    if (id == kActionOpenDialog)
        orv_open_main_dialog(HostMainWindow());
    else if (id == kActionAbout)
        orv_show_about();
    return TRUE;
}

void RegisterActions(HINSTANCE module) {
    IActionManager* manager = HostActionManager();
    if (!manager)
        return;
    MSTR name(ResourceTextOrEmpty(IDS_ACTION_OPEN));
    ActionTable* table = new Orv_ActionTable(name, module); // the host deletes it at its end
    manager->RegisterActionContext(kOrvActionContextID, kOrvActionContextName);
    manager->RegisterActionTable(table);
    ActivateActions();
}

void ActivateActions() {
    IActionManager* manager = HostActionManager();
    if (manager)
        manager->ActivateActionTable(new Orv_ActionCallback, kOrvActionTableID);
}

ActionTable* FindActionTable() {
    IActionManager* manager = HostActionManager();
    return manager ? manager->FindTable(kOrvActionTableID) : nullptr;
}
