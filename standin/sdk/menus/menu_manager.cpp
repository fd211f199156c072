#include "menus/menu_manager.h"
#include "menus/menu_file.h"
#include "standin/sdk/include/standin/host_services.h"

#include <wchar.h>

namespace {

const MCHAR kMainMenuBarTitle[] = L"Main Menu Bar";

StandinMenuManager theManager;

} // namespace

StandinMenuManager& MenuManager() {
    return theManager;
}

bool StandinMenuManager::RegisterMenu(IMenu* pMenu, DWORD) {
    StandinMenu* menu = static_cast<StandinMenu*>(pMenu);
    if (!menu || IsRegistered(menu))
        return false;
    menus_.Append(1, &menu);
    return true;
}

// A menu that is no longer registered is shown nowhere: items that opened it and contexts let it
// go.
bool StandinMenuManager::UnRegisterMenu(IMenu* pMenu) {
    const StandinMenu* menu = static_cast<StandinMenu*>(pMenu);
    bool found = false;
    for (int i = menus_.Count() - 1; i >= 0; --i)
        if (menus_[i] == menu) {
            menus_.Delete(i, 1);
            found = true;
        }
    for (int i = 0; i < LiveMenuCount(); ++i)
        LiveMenu(i)->RemoveItemsWithSubMenu(menu);
    for (int i = 0; i < contexts_.Count(); ++i)
        if (contexts_[i]->Menu() == menu)
            contexts_[i]->SetMenu(nullptr);
    return found;
}

IMenu* StandinMenuManager::FindMenu(const MCHAR* pTitle) {
    const MCHAR* wanted = pTitle ? pTitle : L"";
    for (int i = 0; i < menus_.Count(); ++i)
        if (wcscmp(menus_[i]->GetTitle().data(), wanted) == 0)
            return menus_[i];
    return nullptr;
}

bool StandinMenuManager::RegisterMenuBarContext(MenuContextId contextId, const MCHAR* pName) {
    if (Context(contextId))
        return false;
    StandinContext* context = new StandinContext(contextId, pName);
    contexts_.Append(1, &context);
    return true;
}

IMenuContext* StandinMenuManager::GetContextByIndex(int index) {
    return index >= 0 && index < contexts_.Count() ? contexts_[index] : nullptr;
}

void StandinMenuManager::UpdateMenuBar() {
    standin_menu_bar_changed();
}

BOOL StandinMenuManager::LoadMenuFile(const MCHAR* pFileName) {
    if (!pFileName || !LoadMenus(pFileName))
        return FALSE;
    file_ = pFileName;
    UpdateMenuBar();
    return TRUE;
}

BOOL StandinMenuManager::SaveMenuFile(const MCHAR* pFileName) {
    if (!pFileName || !SaveMenus(pFileName))
        return FALSE;
    file_ = pFileName;
    return TRUE;
}

BOOL StandinMenuManager::SetMainMenuBar(IMenu* pMenu) {
    MainMenuBar();
    Context(kMainMenuBar)->SetMenu(pMenu);
    return TRUE;
}

StandinMenu* StandinMenuManager::MainMenuBar() {
    RegisterMenuBarContext(kMainMenuBar, kMainMenuBarTitle);
    StandinContext* context = Context(kMainMenuBar);
    if (!context->Menu()) {
        StandinMenu* bar = new StandinMenu;
        bar->SetTitle(kMainMenuBarTitle);
        RegisterMenu(bar, 0);
        context->SetMenu(bar);
    }
    return context->Menu();
}

StandinContext* StandinMenuManager::Context(MenuContextId contextId) {
    for (int i = 0; i < contexts_.Count(); ++i)
        if (contexts_[i]->GetId() == contextId)
            return contexts_[i];
    return nullptr;
}

bool StandinMenuManager::IsRegistered(const StandinMenu* menu) {
    for (int i = 0; i < menus_.Count(); ++i)
        if (menus_[i] == menu)
            return true;
    return false;
}

void StandinMenuManager::Reset() {
    Clear(0, 0);
    MainMenuBar();
}

void StandinMenuManager::Clear(int keptMenus, int keptItems) {
    for (int i = 0; i < contexts_.Count(); ++i)
        delete contexts_[i];
    contexts_.ZeroCount();
    menus_.ZeroCount();
    FreeOldest(keptMenus, keptItems);
}

// The host's interface answers with this manager from the moment the library is there.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        standin_set_menu_manager(static_cast<IMenuManager*>(&theManager));
    return TRUE;
}
