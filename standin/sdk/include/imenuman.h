// The host's menus, and the contexts (places such as the main menu bar) that show them.
#pragma once

#include "ifnpub.h"

class IMenu;
class IQuadMenu;

typedef int MenuContextId;

const MenuContextId kMainMenuBar = 1;
const MenuContextId kViewportQuad = 2;

enum MenuContextType { kMenuContextMenuBar = 0, kMenuContextQuadMenu, kMenuContextPopupMenu };

const DWORD kMenuMenuBar = 1;
const DWORD kMenuQuadMenu = 2;

class IMenuContext : public InterfaceServer {
public:
    virtual MenuContextId GetId() = 0;
    virtual MenuContextType GetType() = 0;
    virtual MSTR& GetName() = 0;
};

class IMenuBarContext : public IMenuContext {
public:
    virtual void SetMenu(IMenu* pMenu) = 0;
    virtual IMenu* GetMenu() = 0;
    virtual HMENU CreateWindowsMenu() = 0;
    virtual void UpdateWindowsMenu() = 0;
    virtual HMENU GetCurWindowsMenu() = 0;
    virtual void ExecuteAction(int cmdId) = 0;
    virtual bool CommandIDInRange(int cmdId) = 0;
};

class IMenuManager : public FPStaticInterface {
public:
    virtual bool RegisterMenu(IMenu* pMenu, DWORD flags = 0) = 0;
    virtual bool UnRegisterMenu(IMenu* pMenu) = 0;
    virtual IMenu* FindMenu(const MCHAR* pTitle) = 0;
    virtual IQuadMenu* FindQuadMenu(const MCHAR* pTitle) = 0;
    // True the first time, false when the context is registered already.
    virtual bool RegisterMenuBarContext(MenuContextId contextId, const MCHAR* pName) = 0;
    virtual bool RegisterQuadMenuContext(MenuContextId contextId, const MCHAR* pName) = 0;
    virtual int NumContexts() = 0;
    virtual IMenuContext* GetContextByIndex(int index) = 0;
    virtual IMenuContext* GetContext(MenuContextId contextId) = 0;
    virtual void UpdateMenuBar() = 0;
    virtual BOOL LoadMenuFile(const MCHAR* pFileName) = 0;
    virtual BOOL SaveMenuFile(const MCHAR* pFileName) = 0;
    virtual const MCHAR* GetMenuFile() = 0;
    virtual BOOL SetMainMenuBar(IMenu* pMenu) = 0;
};
