// The host's list of action tables and contexts.
#include "actiontable.h"
#include "core/core_state.h"
#include "standin/sdk/include/standin/host_services.h"

namespace {

struct RegisteredTable {
    ActionTableId id; // kept here: a table whose library is gone must not be asked
    ActionTable* table;
};

class Manager : public IActionManager {
public:
    void RegisterActionTable(ActionTable* pTable) override {
        if (!pTable || IsRegistered(pTable))
            return;
        const RegisteredTable entry = {pTable->GetId(), pTable};
        tables_.Append(1, &entry);
    }
    int NumActionTables() override { return tables_.Count(); }
    ActionTable* GetTable(int i) override {
        return i >= 0 && i < tables_.Count() ? tables_[i].table : nullptr;
    }
    // The callback of the last call is in force. The answer is FALSE for an unknown table, and for
    // one that was active already.
    int ActivateActionTable(ActionCallback* pCallback, ActionTableId id) override {
        ActionTable* table = FindTable(id);
        if (!table || !pCallback)
            return FALSE;
        ++activations_;
        const bool wasActive = table->GetCallback() != nullptr;
        table->SetCallback(pCallback);
        pCallback->SetTable(table);
        return !wasActive;
    }
    int DeactivateActionTable(ActionCallback* pCallback, ActionTableId id) override {
        ActionTable* table = FindTable(id);
        if (!table || !pCallback || table->GetCallback() != pCallback)
            return FALSE;
        table->SetCallback(nullptr);
        return TRUE;
    }
    // Of two tables with one id the younger one counts: the older is what an earlier start left
    // behind.
    ActionTable* FindTable(ActionTableId id) override {
        for (int i = tables_.Count() - 1; i >= 0; --i)
            if (tables_[i].id == id)
                return tables_[i].table;
        return nullptr;
    }
    BOOL GetShortcutString(ActionTableId, int, MCHAR*) override { return FALSE; }
    BOOL GetActionDescription(ActionTableId tableId, int commandId, MCHAR* buf) override {
        ActionTable* table = FindTable(tableId);
        MSTR text;
        if (!table || !table->GetDescriptionText(commandId, text))
            return FALSE;
        lstrcpynW(buf, text.data(), MAX_PATH);
        return TRUE;
    }
    BOOL RegisterActionContext(ActionContextId contextId, const MCHAR* pName) override {
        if (FindContext(contextId))
            return FALSE;
        ActionContext* context = new ActionContext(contextId, pName);
        contexts_.Append(1, &context);
        return TRUE;
    }
    int NumActionContexts() override { return contexts_.Count(); }
    ActionContext* GetActionContext(int i) override {
        return i >= 0 && i < contexts_.Count() ? contexts_[i] : nullptr;
    }
    ActionContext* FindContext(ActionContextId contextId) override {
        for (int i = 0; i < contexts_.Count(); ++i)
            if (contexts_[i]->GetContextId() == contextId)
                return contexts_[i];
        return nullptr;
    }
    BOOL IsContextActive(ActionContextId contextId) override {
        ActionContext* context = FindContext(contextId);
        return context && context->IsActive();
    }

    int ActivationCount() const { return activations_; }

    void Release(HMODULE module) {
        for (int i = tables_.Count() - 1; i >= 0; --i) {
            ActionTable* table = tables_[i].table;
            const void* code = *reinterpret_cast<void**>(table);
            if (module && ModuleOf(code) != module)
                continue;
            tables_.Delete(i, 1);
            table->DeleteThis();
        }
        if (module)
            return;
        for (int i = 0; i < contexts_.Count(); ++i)
            delete contexts_[i];
        contexts_.ZeroCount();
        activations_ = 0;
    }

private:
    bool IsRegistered(ActionTable* table) {
        for (int i = 0; i < tables_.Count(); ++i)
            if (tables_[i].table == table)
                return true;
        return false;
    }

    Tab<RegisteredTable> tables_;
    Tab<ActionContext*> contexts_;
    int activations_ = 0;
};

Manager manager;

} // namespace

IActionManager* ActionManager() {
    return &manager;
}
void ReleaseActions(HMODULE module) {
    manager.Release(module);
}

int standin_run_action(unsigned long table, int command) {
    ActionTable* found = manager.FindTable(table);
    ActionItem* item = found ? found->GetAction(command) : nullptr;
    return item && item->Execute();
}

int standin_action_table_count(void) {
    return manager.NumActionTables();
}
int standin_action_context_count(void) {
    return manager.NumActionContexts();
}
int standin_action_activation_count(void) {
    return manager.ActivationCount();
}

const wchar_t* standin_action_context_name(unsigned long context) {
    ActionContext* found = manager.FindContext(context);
    return found ? found->GetName() : nullptr;
}

void* standin_find_action_table(unsigned long table) {
    return manager.FindTable(table);
}
