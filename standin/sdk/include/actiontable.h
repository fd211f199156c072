// Commands that the user can put into menus, tool bars and on keys.
#pragma once

#include "Noncopyable.h"
#include "actiontableTypedefs.h"
#include "ifnpub.h"

class ActionCallback;
class ActionItem;
class IMenu;
class IPoint2;
class MacroEntry;
class MaxIcon;

const ActionTableId kActionMainUI = 0;
const ActionContextId kActionMainUIContext = 0;

// One row of a table of commands; the texts are numbers of the string table of the table's module.
struct ActionDescription {
    int mCmdID;
    int mDescriptionResourceID;
    int mShortNameResourceID;
    int mCategoryResourceID;
};

class ActionTable : public FPMixinInterface, public MaxSDK::Util::Noncopyable {
public:
    // The functions that a table publishes to scripts.
    enum ActionTableFps {
        kGetId,
        kGetName,
        kGetContextId,
        kGetContextName,
        kNumActionItems,
        kGetActionItem
    };

    CoreExport ActionTable(ActionTableId id, ActionContextId contextId, MSTR& name,
                           HACCEL hDefaults, int numIds, ActionDescription* pOps, HINSTANCE hInst);
    CoreExport ActionTable(ActionTableId id, ActionContextId contextId, MSTR& name);
    CoreExport ~ActionTable() override;

    CoreExport virtual HACCEL GetHAccel();
    CoreExport virtual void SetHAccel(HACCEL hAccel);
    CoreExport virtual HACCEL GetDefaultHAccel();
    CoreExport virtual void SetDefaultHAccel(HACCEL hAccel);
    CoreExport virtual MSTR& GetName();
    CoreExport virtual ActionTableId GetId();
    CoreExport virtual ActionContextId GetContextId();
    CoreExport virtual ActionCallback* GetCallback();
    CoreExport virtual void SetCallback(ActionCallback* pCallback);
    CoreExport virtual int Count();
    CoreExport virtual ActionItem* operator[](int i);
    CoreExport virtual ActionItem* GetAction(int cmdId);
    CoreExport virtual ActionItem* GetActionByIndex(int index);
    CoreExport virtual void AppendOperation(ActionItem* pAction);
    CoreExport virtual BOOL DeleteOperation(ActionItem* pAction);
    CoreExport virtual void DeleteThis();
    CoreExport virtual BOOL GetButtonText(int cmdId, MSTR& buttonText);
    CoreExport virtual BOOL GetMenuText(int cmdId, MSTR& menuText);
    CoreExport virtual BOOL GetDescriptionText(int cmdId, MSTR& descText);
    CoreExport virtual BOOL IsChecked(int cmdId);
    CoreExport virtual BOOL IsIndeterminate(int cmdId);
    CoreExport virtual BOOL IsItemVisible(int cmdId);
    CoreExport virtual BOOL IsEnabled(int cmdId);
    CoreExport virtual void WritePersistentActionId(int cmdId, MSTR& idString);
    CoreExport virtual int ReadPersistentActionId(MSTR& idString);
    CoreExport virtual MaxIcon* GetIcon(int cmdId);
    CoreExport void BuildActionTable(HACCEL hDefaults, int numIds, ActionDescription* pOps,
                                     HINSTANCE hInst);
    CoreExport virtual ActionItem* GetCurrentAssignment(ACCEL accel);
    CoreExport virtual void AssignKey(int cmdId, ACCEL accel);
    CoreExport virtual void RemoveShortcutFromTable(ACCEL accel);

    CoreExport FPInterfaceDesc* GetDescByID(Interface_ID id) override;
    CoreExport FPInterfaceDesc* GetDesc() override;
    CoreExport BaseInterface* GetInterface(Interface_ID id) override;
    CoreExport Interface_ID GetID() override;

    CoreExport const MCHAR* fpGetContextName() const;

protected:
    // The host exports no body of this one: each library that derives a table has its own.
    FPStatus _dispatch_fn(FunctionID fid, TimeValue t, FPValue& result, FPParams* p) override;

    Tab<ActionItem*> mOps;

private:
    ActionTableId mId;
    ActionContextId mContextId;
    MSTR mName;
    HACCEL mhDefaultAccel;
    HACCEL mhAccel;
    ActionCallback* mpCallback;
};

class ActionItem : public FPMixinInterface {
public:
    CoreExport ActionItem();
    CoreExport ~ActionItem() override;

    virtual int GetId() = 0;
    virtual BOOL ExecuteAction() = 0;
    CoreExport virtual void EmitMacro();
    CoreExport BOOL Execute();
    virtual void GetButtonText(MSTR& buttonText) = 0;
    virtual void GetMenuText(MSTR& menuText) = 0;
    virtual void GetDescriptionText(MSTR& descText) = 0;
    virtual void GetCategoryText(MSTR& catText) = 0;
    virtual BOOL IsChecked() = 0;
    virtual BOOL IsIndeterminate() { return FALSE; }
    virtual BOOL IsItemVisible() = 0;
    virtual BOOL IsEnabled() = 0;
    virtual void DeleteThis() = 0;
    CoreExport virtual ActionTable* GetTable();
    CoreExport virtual void SetTable(ActionTable* pTable);
    CoreExport virtual MacroEntry* GetMacroScript();
    CoreExport virtual BOOL IsDynamicMenu();
    CoreExport virtual void SetIsDynamicMenu();
    CoreExport virtual IMenu* GetDynamicMenu(HWND hwnd, IPoint2& m);
    CoreExport virtual BOOL IsDynamicAction();

    CoreExport FPInterfaceDesc* GetDescByID(Interface_ID id) override;
    CoreExport FPInterfaceDesc* GetDesc() override;
    CoreExport BaseInterface* GetInterface(Interface_ID id) override;
    CoreExport Interface_ID GetID() override;

protected:
    CoreExport virtual MaxIcon* GetIconImp();

private:
    ActionTable* mpTable;
};

inline FPStatus ActionTable::_dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams* p) {
    switch (fid) {
    case kGetId:
        result.LoadPtr(TYPE_DWORD, GetId());
        return FPS_OK;
    case kGetName:
        result.LoadPtr(TYPE_STRING, GetName().data());
        return FPS_OK;
    case kGetContextId:
        result.LoadPtr(TYPE_DWORD, GetContextId());
        return FPS_OK;
    case kGetContextName:
        result.LoadPtr(TYPE_STRING, fpGetContextName());
        return FPS_OK;
    case kNumActionItems:
        result.LoadPtr(TYPE_INT, Count());
        return FPS_OK;
    case kGetActionItem:
        result.LoadPtr(TYPE_INTERFACE, static_cast<FPInterface*>(GetActionByIndex(p->params[0].i)));
        return FPS_OK;
    default:
        return FPS_NO_SUCH_FUNCTION;
    }
}

class ActionCallback : public BaseInterfaceServer {
public:
    CoreExport ActionCallback();
    CoreExport ~ActionCallback() override;

    CoreExport virtual BOOL ExecuteAction(int id);
    CoreExport virtual IMenu* GetDynamicMenu(int id, HWND hwnd, IPoint2& m);
    CoreExport ActionTable* GetTable();
    CoreExport void SetTable(ActionTable* pTable);

private:
    ActionTable* mpTable;
};

class ActionContext : public MaxHeapOperators {
public:
    ActionContext(ActionContextId contextId, const MCHAR* name)
        : mActive(true), mContextId(contextId), mName(name) {}
    virtual ~ActionContext() {}
    virtual MCHAR* GetName() { return const_cast<MCHAR*>(mName.data()); }
    virtual ActionContextId GetContextId() { return mContextId; }
    virtual bool IsActive() { return mActive; }
    virtual void SetActive(bool active) { mActive = active; }

private:
    bool mActive;
    ActionContextId mContextId;
    MSTR mName;
};

class IActionManager : public FPStaticInterface {
public:
    virtual void RegisterActionTable(ActionTable* pTable) = 0;
    virtual int NumActionTables() = 0;
    virtual ActionTable* GetTable(int i) = 0;
    virtual int ActivateActionTable(ActionCallback* pCallback, ActionTableId id) = 0;
    virtual int DeactivateActionTable(ActionCallback* pCallback, ActionTableId id) = 0;
    virtual ActionTable* FindTable(ActionTableId id) = 0;
    virtual BOOL GetShortcutString(ActionTableId tableId, int commandId, MCHAR* buf) = 0;
    virtual BOOL GetActionDescription(ActionTableId tableId, int commandId, MCHAR* buf) = 0;
    virtual BOOL RegisterActionContext(ActionContextId contextId, const MCHAR* pName) = 0;
    virtual int NumActionContexts() = 0;
    virtual ActionContext* GetActionContext(int i) = 0;
    virtual ActionContext* FindContext(ActionContextId contextId) = 0;
    virtual BOOL IsContextActive(ActionContextId contextId) = 0;
};
