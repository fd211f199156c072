// The stand-in's own menus and items. All live objects are listed, so that the manager can free
// what was never released.
#pragma once

#include "actiontable.h"
#include "imenus.h"
#include "standin/sdk/include/standin/menus.h"

class StandinMenu;

// The parts of IMenuElement that need a screen position are not offered: a call ends the program.
template<class Base>
class MenuElement : public Base {
public:
    void SetOrigin(const IPoint2&, IMenuElement::OriginLocation) override { __builtin_trap(); }
    const IPoint2& GetOrigin() const override { __builtin_trap(); }
    void SetVisible(bool visible) override { visible_ = visible; }
    bool GetVisible() override { return visible_; }
    void SetEnabled(bool enabled) override { enabled_ = enabled; }
    bool GetEnabled() override { return enabled_; }
    const IPoint2& GetSize() override { __builtin_trap(); }
    const Box2& GetRect() override { __builtin_trap(); }
    bool IsInRect(const IPoint2&) override { __builtin_trap(); }
    FPInterfaceDesc* GetDesc() override { return this->GetDescByID(NULLINTERFACE_ID); }

private:
    bool visible_ = true;
    bool enabled_ = true;
};

class StandinItem : public MenuElement<IMenuItem> {
public:
    StandinItem();
    ~StandinItem() override;

    void SetTitle(const MCHAR* customTitle) override { title_ = customTitle; }
    const MSTR& GetTitle() override;

    void SetIMenuLocalContext(IMenuLocalContext*) override {}
    ActionMode GetActionMode() const override { return mode_; }
    bool ExecuteAction() const override;
    void ActAsSeparator() override;
    bool IsSeparator() const override { return mode_ == AM_SEPARATOR; }
    void SetActionItem(ActionItem* actionItem) override;
    ActionItem* GetActionItem() const override;
    void SetActionFn(ActionFn function) override { function_ = function; }
    ActionFn GetActionFn() const override { return function_; }
    void SetSubMenu(IMenu* subMenu) override;
    IMenu* GetSubMenu() override;
    void SetPreDisplayCB(PreDisplayCB callback) override { preDisplay_ = callback; }
    PreDisplayCB GetPreDisplayCB() const override { return preDisplay_; }
    void Display(bool) override {}
    MCHAR GetAccelerator() override { return 0; }
    void SetIcon(MaxIcon* icon) override { icon_ = icon; }
    const MaxIcon* GetIcon() const override { return icon_; }
    void SetChecked(bool checked) override { checked_ = checked; }
    bool GetChecked() override { return checked_; }
    void SetHighlighted(bool highlighted) override { highlighted_ = highlighted; }
    bool GetHighlighted() const override { return highlighted_; }
    void SetUseCustomTitle(bool useCustomTitle) override { useCustomTitle_ = useCustomTitle; }
    bool GetUseCustomTitle() const override { return useCustomTitle_; }
    void SetDisplayFlat(bool flat) override { flat_ = flat; }
    bool GetDisplayFlat() const override { return flat_; }
    void PostMenuInteraction() override {}

    // Items of the menu file and of the host program itself.
    void SetAction(ActionTableId table, int command, const MCHAR* title);
    void SetHostCommand(int command, const MCHAR* title);
    ActionTableId Table() const { return table_; }
    int Command() const { return command_; }
    StandinMenu* SubMenu() const { return subMenu_; }

private:
    ActionMode mode_ = AM_INACTIVE;
    // An action by its numbers: the table may come later than the item, and go earlier.
    ActionTableId table_ = 0;
    int command_ = 0;
    ActionFn function_ = nullptr;
    PreDisplayCB preDisplay_ = nullptr;
    MaxIcon* icon_ = nullptr;
    StandinMenu* subMenu_ = nullptr;
    MSTR title_;
    bool useCustomTitle_ = false;
    bool checked_ = false;
    bool highlighted_ = false;
    bool flat_ = false;
};

class StandinMenu : public MenuElement<IMenu> {
public:
    StandinMenu();
    ~StandinMenu() override;

    void SetTitle(const MCHAR* customTitle) override { title_ = customTitle; }
    const MSTR& GetTitle() override { return title_; }

    void SetIMenuGlobalContext(IMenuGlobalContext*, int, Tab<IMenuItem*>*,
                               const MenuColors*) override {}
    IMenuLocalContext* GetIMenuLocalContext() override { return nullptr; }
    int NumItems() const override { return items_.Count(); }
    IMenuItem* GetItem(int position) override { return Item(position); }
    void AddItem(IMenuItem* item, int position) override;
    void RemoveItem(int position) override;
    void RemoveItem(IMenuItem* item) override;
    void SetCustomTitle(const MCHAR* customTitle) override { customTitle_ = customTitle; }
    const MSTR& GetCustomTitle() const override { return customTitle_; }
    void SetUseCustomTitle(bool useCustomTitle) override { useCustomTitle_ = useCustomTitle; }
    bool GetUseCustomTitle() const override { return useCustomTitle_; }

    StandinItem* Item(int position);
    StandinItem* Append();
    void RemoveItemsWithSubMenu(const StandinMenu* subMenu);
    // Takes an item out without freeing it.
    void Forget(const StandinItem* item);

private:
    Tab<StandinItem*> items_;
    MSTR title_;
    MSTR customTitle_;
    bool useCustomTitle_ = false;
};

int LiveMenuCount();
int LiveItemCount();
StandinMenu* LiveMenu(int index);
// Frees the oldest objects until at most these are left.
void FreeOldest(int keptMenus, int keptItems);

// The same object seen by the host program.
inline standin_menu* Outside(StandinMenu* menu) {
    return reinterpret_cast<standin_menu*>(menu);
}
inline StandinMenu* Inside(standin_menu* menu) {
    return reinterpret_cast<StandinMenu*>(menu);
}
