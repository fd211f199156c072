// The host's registered menus and contexts.
#pragma once

#include "imenuman.h"
#include "menus/menu_objects.h"

class StandinContext : public IMenuBarContext {
public:
    StandinContext(MenuContextId id, const MCHAR* name) : id_(id), name_(name) {}

    MenuContextId GetId() override { return id_; }
    MenuContextType GetType() override { return kMenuContextMenuBar; }
    MSTR& GetName() override { return name_; }
    void SetMenu(IMenu* pMenu) override { menu_ = static_cast<StandinMenu*>(pMenu); }
    IMenu* GetMenu() override { return menu_; }
    // The host program draws the menu bar itself; it walks the menus (standin/menus.h).
    HMENU CreateWindowsMenu() override { return nullptr; }
    void UpdateWindowsMenu() override {}
    HMENU GetCurWindowsMenu() override { return nullptr; }
    void ExecuteAction(int) override {}
    bool CommandIDInRange(int) override { return false; }

    StandinMenu* Menu() const { return menu_; }

private:
    MenuContextId id_;
    MSTR name_;
    StandinMenu* menu_ = nullptr;
};

class StandinMenuManager : public IMenuManager {
public:
    bool RegisterMenu(IMenu* pMenu, DWORD flags) override;
    bool UnRegisterMenu(IMenu* pMenu) override;
    IMenu* FindMenu(const MCHAR* pTitle) override;
    IQuadMenu* FindQuadMenu(const MCHAR*) override { return nullptr; }
    bool RegisterMenuBarContext(MenuContextId contextId, const MCHAR* pName) override;
    bool RegisterQuadMenuContext(MenuContextId, const MCHAR*) override { return false; }
    int NumContexts() override { return contexts_.Count(); }
    IMenuContext* GetContextByIndex(int index) override;
    IMenuContext* GetContext(MenuContextId contextId) override { return Context(contextId); }
    void UpdateMenuBar() override;
    BOOL LoadMenuFile(const MCHAR* pFileName) override;
    BOOL SaveMenuFile(const MCHAR* pFileName) override;
    const MCHAR* GetMenuFile() override { return file_.data(); }
    BOOL SetMainMenuBar(IMenu* pMenu) override;

    StandinMenu* MainMenuBar();
    StandinContext* Context(MenuContextId contextId);
    StandinMenu* RegisteredMenu(int index) { return menus_[index]; }
    int RegisteredMenuCount() { return menus_.Count(); }
    bool IsRegistered(const StandinMenu* menu);

    // Frees everything; what is left is an empty main menu bar.
    void Reset();
    // Forgets all menus and contexts and frees all but the youngest objects.
    void Clear(int keptMenus, int keptItems);

private:
    Tab<StandinMenu*> menus_;
    Tab<StandinContext*> contexts_;
    MSTR file_;
};

// The one menu manager of the process.
StandinMenuManager& MenuManager();
