#include "menus/menu_objects.h"
#include "menus/menu_manager.h"
#include "standin/sdk/include/standin/host_services.h"

namespace {

Tab<StandinMenu*> liveMenus;
Tab<StandinItem*> liveItems;

template<class T>
void Remove(Tab<T*>& list, const T* element) {
    for (int i = list.Count() - 1; i >= 0; --i)
        if (list[i] == element)
            list.Delete(i, 1);
}

} // namespace

// ---- items ----

StandinItem::StandinItem() {
    StandinItem* self = this;
    liveItems.Append(1, &self);
}

StandinItem::~StandinItem() {
    Remove(liveItems, static_cast<const StandinItem*>(this));
    for (int i = 0; i < liveMenus.Count(); ++i)
        liveMenus[i]->Forget(this);
}

// What the menu shows: the own caption where it is asked for, else that of the command or sub menu.
// The last known text of a command stays for the time its table is not there.
const MSTR& StandinItem::GetTitle() {
    if (useCustomTitle_)
        return title_;
    if (mode_ == AM_SUBMENU && subMenu_)
        return subMenu_->GetTitle();
    if (ActionItem* action = GetActionItem())
        action->GetMenuText(title_);
    return title_;
}

bool StandinItem::ExecuteAction() const {
    ActionItem* action = GetActionItem();
    return action && action->Execute();
}

void StandinItem::ActAsSeparator() {
    mode_ = AM_SEPARATOR;
}

void StandinItem::SetActionItem(ActionItem* actionItem) {
    if (!actionItem || !actionItem->GetTable()) {
        mode_ = AM_INACTIVE;
        return;
    }
    mode_ = AM_ITEM;
    table_ = actionItem->GetTable()->GetId();
    command_ = actionItem->GetId();
}

ActionItem* StandinItem::GetActionItem() const {
    if (mode_ != AM_ITEM)
        return nullptr;
    ActionTable* table = static_cast<ActionTable*>(standin_find_action_table(table_));
    return table ? table->GetAction(command_) : nullptr;
}

void StandinItem::SetSubMenu(IMenu* subMenu) {
    subMenu_ = static_cast<StandinMenu*>(subMenu);
    mode_ = subMenu ? AM_SUBMENU : AM_INACTIVE;
}

IMenu* StandinItem::GetSubMenu() {
    return subMenu_;
}

void StandinItem::SetAction(ActionTableId table, int command, const MCHAR* title) {
    mode_ = AM_ITEM;
    table_ = table;
    command_ = command;
    title_ = title;
}

void StandinItem::SetHostCommand(int command, const MCHAR* title) {
    mode_ = AM_FN;
    command_ = command;
    title_ = title;
}

// ---- menus ----

StandinMenu::StandinMenu() {
    StandinMenu* self = this;
    liveMenus.Append(1, &self);
}

StandinMenu::~StandinMenu() {
    while (items_.Count() > 0)
        RemoveItem(0); // an item leaves the live menus, of which this still is one
    Remove(liveMenus, static_cast<const StandinMenu*>(this));
}

// A menu owns its items; an item is in one place only.
void StandinMenu::AddItem(IMenuItem* item, int position) {
    StandinItem* added = static_cast<StandinItem*>(item);
    if (!added)
        return;
    for (int i = 0; i < liveMenus.Count(); ++i)
        liveMenus[i]->Forget(added);
    items_.Insert(position < 0 ? items_.Count() : position, 1, &added);
}

void StandinMenu::RemoveItem(int position) {
    // Taken out first: a menu that is being destroyed is no longer among those that items let go.
    StandinItem* item = Item(position);
    if (!item)
        return;
    items_.Delete(position, 1);
    delete item;
}

void StandinMenu::RemoveItem(IMenuItem* item) {
    for (int i = 0; i < items_.Count(); ++i)
        if (items_[i] == item) {
            RemoveItem(i);
            return;
        }
}

StandinItem* StandinMenu::Item(int position) {
    return position >= 0 && position < items_.Count() ? items_[position] : nullptr;
}

StandinItem* StandinMenu::Append() {
    StandinItem* item = new StandinItem;
    items_.Append(1, &item);
    return item;
}

void StandinMenu::RemoveItemsWithSubMenu(const StandinMenu* subMenu) {
    for (int i = items_.Count() - 1; i >= 0; --i)
        if (items_[i]->SubMenu() == subMenu)
            RemoveItem(i);
}

void StandinMenu::Forget(const StandinItem* item) {
    Remove(items_, item);
}

// ---- factories and books ----

IMenuItem* GetIMenuItem() {
    return new StandinItem;
}
void ReleaseIMenuItem(IMenuItem* item) {
    delete static_cast<StandinItem*>(item);
}
IMenu* GetIMenu() {
    return new StandinMenu;
}

void ReleaseIMenu(IMenu* menu) {
    if (!menu)
        return;
    MenuManager().UnRegisterMenu(menu);
    delete static_cast<StandinMenu*>(menu);
}

int LiveMenuCount() {
    return liveMenus.Count();
}
int LiveItemCount() {
    return liveItems.Count();
}
StandinMenu* LiveMenu(int index) {
    return liveMenus[index];
}

void FreeOldest(int keptMenus, int keptItems) {
    while (liveMenus.Count() > keptMenus)
        delete liveMenus[0];
    while (liveItems.Count() > keptItems)
        delete liveItems[0];
}
