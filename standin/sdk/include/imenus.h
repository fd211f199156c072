// Menus and their items. Made by GetIMenu and GetIMenuItem of the host's menu library.
#pragma once

#include "ifnpub.h"
#include "reserved_slots.h"

class ActionItem;
class Box2;
class IMenu;
class IMenuGlobalContext;
class IMenuItem;
class IMenuLocalContext;
class IPoint2;
class MaxIcon;
class MenuColors;

#ifdef MENUS_EXPORTS
#define MENUS_API
#else
#define MENUS_API __declspec(dllimport)
#endif

class IMenuElement : public MaxHeapOperators {
public:
    enum OriginLocation { UPPER_LEFT, LOWER_LEFT, LOWER_RIGHT, UPPER_RIGHT };

    virtual ~IMenuElement() {}
    virtual void SetOrigin(const IPoint2& origin, OriginLocation location) = 0;
    virtual const IPoint2& GetOrigin() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool GetVisible() = 0;
    virtual void SetTitle(const MCHAR* customTitle) = 0;
    virtual const MSTR& GetTitle() = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool GetEnabled() = 0;
    virtual const IPoint2& GetSize() = 0;
    virtual const Box2& GetRect() = 0;
    virtual bool IsInRect(const IPoint2& point) = 0;
};

class IMenuItem : public FPMixinInterface, public IMenuElement {
public:
    enum ActionMode { AM_INACTIVE = 0, AM_SEPARATOR, AM_ITEM, AM_FN, AM_SUBMENU, AM_ITEM_SUBMENU };
    typedef void (*ActionFn)();
    typedef void (*PreDisplayCB)(IMenuItem&);

    virtual void SetIMenuLocalContext(IMenuLocalContext* context) = 0;
    virtual ActionMode GetActionMode() const = 0;
    virtual bool ExecuteAction() const = 0;
    virtual void ActAsSeparator() = 0;
    virtual bool IsSeparator() const = 0;
    virtual void SetActionItem(ActionItem* actionItem) = 0;
    virtual ActionItem* GetActionItem() const = 0;
    virtual void SetActionFn(ActionFn function) = 0;
    virtual ActionFn GetActionFn() const = 0;
    virtual void SetSubMenu(IMenu* subMenu) = 0;
    virtual IMenu* GetSubMenu() = 0;
    virtual void SetPreDisplayCB(PreDisplayCB callback) = 0;
    virtual PreDisplayCB GetPreDisplayCB() const = 0;
    virtual void Display(bool display) = 0;
    virtual MCHAR GetAccelerator() = 0;
    virtual void SetIcon(MaxIcon* icon) = 0;
    virtual const MaxIcon* GetIcon() const = 0;
    virtual void SetChecked(bool checked) = 0;
    virtual bool GetChecked() = 0;
    virtual void SetHighlighted(bool highlighted) = 0;
    virtual bool GetHighlighted() const = 0;
    virtual void SetUseCustomTitle(bool useCustomTitle) = 0;
    virtual bool GetUseCustomTitle() const = 0;
    virtual void SetDisplayFlat(bool flat) = 0;
    virtual bool GetDisplayFlat() const = 0;
    virtual void PostMenuInteraction() = 0;
};

class IMenu : public FPMixinInterface, public IMenuElement {
public:
    virtual void SetIMenuGlobalContext(IMenuGlobalContext* context, int level,
                                       Tab<IMenuItem*>* executedItemPath,
                                       const MenuColors* colors) = 0;
    virtual IMenuLocalContext* GetIMenuLocalContext() = 0;
    virtual int NumItems() const = 0;
    virtual IMenuItem* GetItem(int position) = 0;
    // Position 0 is the front; a negative or invalid one the end.
    virtual void AddItem(IMenuItem* item, int position = -1) = 0;
    virtual void RemoveItem(int position) = 0;
    virtual void RemoveItem(IMenuItem* item) = 0;
    RESERVED_SLOT(33)
    RESERVED_SLOT(34)
    RESERVED_SLOTS_5_HIGH(3)
    RESERVED_SLOTS_5_LOW(4)
    RESERVED_SLOT(45)
    RESERVED_SLOT(46)
    RESERVED_SLOT(47)
    virtual void SetCustomTitle(const MCHAR* customTitle) = 0;
    virtual const MSTR& GetCustomTitle() const = 0;
    virtual void SetUseCustomTitle(bool useCustomTitle) = 0;
    virtual bool GetUseCustomTitle() const = 0;
};

MENUS_API IMenuItem* GetIMenuItem();
MENUS_API void ReleaseIMenuItem(IMenuItem* item);
MENUS_API IMenu* GetIMenu();
MENUS_API void ReleaseIMenu(IMenu* menu);
