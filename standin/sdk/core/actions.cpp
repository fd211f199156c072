// Action tables, their items and callbacks.
#include "actiontable.h"
#include "core/core_state.h"

namespace {

MSTR ResourceText(HINSTANCE module, int id) {
    MCHAR text[256];
    return MSTR(LoadStringW(module, static_cast<UINT>(id), text, 256) > 0 ? text : L"");
}

// What a table makes of one row of its description.
class TableItem : public ActionItem {
public:
    TableItem(const ActionDescription& row, HINSTANCE module)
        : id_(row.mCmdID), description_(ResourceText(module, row.mDescriptionResourceID)),
          shortName_(ResourceText(module, row.mShortNameResourceID)),
          category_(ResourceText(module, row.mCategoryResourceID)) {}

    int GetId() override { return id_; }
    BOOL ExecuteAction() override {
        ActionCallback* callback = GetTable() ? GetTable()->GetCallback() : nullptr;
        return callback ? callback->ExecuteAction(id_) : FALSE;
    }
    void GetButtonText(MSTR& text) override { text = shortName_; }
    // The table has the last word on what a menu shows.
    void GetMenuText(MSTR& text) override {
        if (!GetTable() || !GetTable()->GetMenuText(id_, text))
            text = shortName_;
    }
    void GetDescriptionText(MSTR& text) override { text = description_; }
    void GetCategoryText(MSTR& text) override { text = category_; }
    BOOL IsChecked() override { return GetTable() && GetTable()->IsChecked(id_); }
    BOOL IsItemVisible() override { return !GetTable() || GetTable()->IsItemVisible(id_); }
    BOOL IsEnabled() override { return !GetTable() || GetTable()->IsEnabled(id_); }
    void DeleteThis() override { delete this; }

private:
    int id_;
    MSTR description_;
    MSTR shortName_;
    MSTR category_;
};

// Describes what all tables publish. The id is this library's own.
class TableDescription : public FPInterfaceDesc {
public:
    TableDescription() { ID = Interface_ID(0x74414354, 1); }
};

TableDescription tableDescription;

} // namespace

ActionTable::ActionTable(ActionTableId id, ActionContextId contextId, MSTR& name, HACCEL hDefaults,
                         int numIds, ActionDescription* pOps, HINSTANCE hInst)
    : ActionTable(id, contextId, name) {
    BuildActionTable(hDefaults, numIds, pOps, hInst);
}

ActionTable::ActionTable(ActionTableId id, ActionContextId contextId, MSTR& name)
    : mId(id), mContextId(contextId), mName(name), mhDefaultAccel(nullptr), mhAccel(nullptr),
      mpCallback(nullptr) {}

ActionTable::~ActionTable() {
    for (int i = 0; i < mOps.Count(); ++i)
        mOps[i]->DeleteThis();
}

void ActionTable::BuildActionTable(HACCEL hDefaults, int numIds, ActionDescription* pOps,
                                   HINSTANCE hInst) {
    mhDefaultAccel = hDefaults;
    for (int i = 0; i < numIds; ++i)
        AppendOperation(new TableItem(pOps[i], hInst));
}

HACCEL ActionTable::GetHAccel() {
    return mhAccel;
}
void ActionTable::SetHAccel(HACCEL hAccel) {
    mhAccel = hAccel;
}
HACCEL ActionTable::GetDefaultHAccel() {
    return mhDefaultAccel;
}
void ActionTable::SetDefaultHAccel(HACCEL hAccel) {
    mhDefaultAccel = hAccel;
}
MSTR& ActionTable::GetName() {
    return mName;
}
ActionTableId ActionTable::GetId() {
    return mId;
}
ActionContextId ActionTable::GetContextId() {
    return mContextId;
}
ActionCallback* ActionTable::GetCallback() {
    return mpCallback;
}
void ActionTable::SetCallback(ActionCallback* pCallback) {
    mpCallback = pCallback;
}
int ActionTable::Count() {
    return mOps.Count();
}
ActionItem* ActionTable::operator[](int i) {
    return GetActionByIndex(i);
}

ActionItem* ActionTable::GetAction(int cmdId) {
    for (int i = 0; i < mOps.Count(); ++i)
        if (mOps[i]->GetId() == cmdId)
            return mOps[i];
    return nullptr;
}

ActionItem* ActionTable::GetActionByIndex(int index) {
    return index >= 0 && index < mOps.Count() ? mOps[index] : nullptr;
}

void ActionTable::AppendOperation(ActionItem* pAction) {
    pAction->SetTable(this);
    mOps.Append(1, &pAction);
}

BOOL ActionTable::DeleteOperation(ActionItem* pAction) {
    for (int i = 0; i < mOps.Count(); ++i)
        if (mOps[i] == pAction) {
            mOps.Delete(i, 1);
            return TRUE;
        }
    return FALSE;
}

void ActionTable::DeleteThis() {
    delete this;
}

BOOL ActionTable::GetButtonText(int cmdId, MSTR& buttonText) {
    ActionItem* item = GetAction(cmdId);
    if (item)
        item->GetButtonText(buttonText);
    return item != nullptr;
}

BOOL ActionTable::GetMenuText(int cmdId, MSTR& menuText) {
    return ActionTable::GetButtonText(cmdId, menuText);
}

BOOL ActionTable::GetDescriptionText(int cmdId, MSTR& descText) {
    ActionItem* item = GetAction(cmdId);
    if (item)
        item->GetDescriptionText(descText);
    return item != nullptr;
}

BOOL ActionTable::IsChecked(int) {
    return FALSE;
}
BOOL ActionTable::IsIndeterminate(int) {
    return FALSE;
}
BOOL ActionTable::IsItemVisible(int) {
    return TRUE;
}
BOOL ActionTable::IsEnabled(int) {
    return TRUE;
}

void ActionTable::WritePersistentActionId(int cmdId, MSTR& idString) {
    MCHAR text[16];
    wsprintfW(text, L"%d", cmdId);
    idString = text;
}

int ActionTable::ReadPersistentActionId(MSTR& idString) {
    int id = 0;
    for (const MCHAR* c = idString.data(); *c >= L'0' && *c <= L'9' && id < 100000000; ++c)
        id = id * 10 + (*c - L'0');
    return id;
}

MaxIcon* ActionTable::GetIcon(int) {
    return nullptr;
}
ActionItem* ActionTable::GetCurrentAssignment(ACCEL) {
    return nullptr;
}
void ActionTable::AssignKey(int, ACCEL) {}
void ActionTable::RemoveShortcutFromTable(ACCEL) {}
FPInterfaceDesc* ActionTable::GetDescByID(Interface_ID id) {
    return id == tableDescription.ID ? &tableDescription : &nullInterface;
}
FPInterfaceDesc* ActionTable::GetDesc() {
    return &tableDescription;
}
BaseInterface* ActionTable::GetInterface(Interface_ID id) {
    return FPMixinInterface::GetInterface(id);
}
Interface_ID ActionTable::GetID() {
    return GetDesc()->ID;
}
const MCHAR* ActionTable::fpGetContextName() const {
    ActionContext* context = ActionManager()->FindContext(mContextId);
    return context ? context->GetName() : L"";
}

ActionItem::ActionItem() : mpTable(nullptr) {}
ActionItem::~ActionItem() {}
void ActionItem::EmitMacro() {}
BOOL ActionItem::Execute() {
    return ExecuteAction();
}
ActionTable* ActionItem::GetTable() {
    return mpTable;
}
void ActionItem::SetTable(ActionTable* pTable) {
    mpTable = pTable;
}
MacroEntry* ActionItem::GetMacroScript() {
    return nullptr;
}
BOOL ActionItem::IsDynamicMenu() {
    return FALSE;
}
void ActionItem::SetIsDynamicMenu() {}
IMenu* ActionItem::GetDynamicMenu(HWND, IPoint2&) {
    return nullptr;
}
BOOL ActionItem::IsDynamicAction() {
    return FALSE;
}
FPInterfaceDesc* ActionItem::GetDescByID(Interface_ID) {
    return &nullInterface;
}
FPInterfaceDesc* ActionItem::GetDesc() {
    return &nullInterface;
}
BaseInterface* ActionItem::GetInterface(Interface_ID id) {
    return FPMixinInterface::GetInterface(id);
}
Interface_ID ActionItem::GetID() {
    return GetDesc()->ID;
}
MaxIcon* ActionItem::GetIconImp() {
    return nullptr;
}

ActionCallback::ActionCallback() : mpTable(nullptr) {}
ActionCallback::~ActionCallback() {}
BOOL ActionCallback::ExecuteAction(int) {
    return FALSE;
}
IMenu* ActionCallback::GetDynamicMenu(int, HWND, IPoint2&) {
    return nullptr;
}
ActionTable* ActionCallback::GetTable() {
    return mpTable;
}
void ActionCallback::SetTable(ActionTable* pTable) {
    mpTable = pTable;
}
