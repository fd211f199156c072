// The calls by which the plug-in starts and stops, in their order, and what it does in a host that
// lacks a part.
#include "standin/menus.h"
#include "tests/support/import_patch.h"
#include "tests/system/abi/loaded_plugin.h"
#include "tests/system/abi/slot_patch.h"

#include <gmock/gmock.h>

#include <memory>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace slot = host_abi::slot;

constexpr DWORD kMainMenuBar = 1;
constexpr DWORD kMenuContext = 0x411A1C29;
constexpr int kStartup = 0x50;
constexpr wchar_t kMenuTitle[] = L"Orv Rendering";
constexpr char kNewMenu[] = "?GetIMenu@@YAPEAVIMenu@@XZ";

using Calls = std::vector<std::wstring>;
using Procedure = void (*)(void*, void*);

void* CoreInterface() {
    return Exported<void* (*)()>(L"core.dll", "?GetCOREInterface@@YAPEAVInterface@@XZ")();
}

void* MenuManager() {
    return CallSlot<void*>(CoreInterface(), slot::Interface_GetMenuManager);
}

void* ActionManager() {
    return CallSlot<void*>(CoreInterface(), slot::Interface_GetActionManager);
}

template<class Function>
ULONGLONG AddressOf(Function function) {
    ULONGLONG address = 0;
    std::memcpy(&address, &function, sizeof(address));
    return address;
}

// Notes what the plug-in asks of the host's managers and of its notifications, and passes it on.
class RecordedHost : private rud_Noncopyable {
public:
    explicit RecordedHost(HMODULE plugin)
        : register_(plugin, kRegister, AddressOf(&RecordedHost::registerNotification)),
          unregister_(plugin, kUnregister, AddressOf(&RecordedHost::unregisterNotification)) {
        now = this;
    }
    ~RecordedHost() { now = nullptr; }

    // The calls since the last time.
    Calls take() {
        Calls taken;
        taken.swap(calls_);
        return taken;
    }
    const std::vector<void*>& callbacks() const { return callbacks_; }

private:
    static constexpr char kRegister[] = "?RegisterNotification@@YAHP6AXPEAXPEAUNotifyInfo@@@Z0H@Z";
    static constexpr char kUnregister[] =
        "?UnRegisterNotification@@YAHP6AXPEAXPEAUNotifyInfo@@@Z0H@Z";
    using Notification = int (*)(Procedure, void*, int);

    static void add(const std::wstring& call) { now->calls_.push_back(call); }
    static std::wstring number(unsigned long value) { return std::to_wstring(value); }

    static int registerNotification(Procedure procedure, void* parameter, int code) {
        add(L"watch " + number(static_cast<unsigned long>(code)));
        return Exported<Notification>(L"core.dll", kRegister)(procedure, parameter, code);
    }
    static int unregisterNotification(Procedure procedure, void* parameter, int code) {
        add(L"no longer watch " + number(static_cast<unsigned long>(code)));
        return Exported<Notification>(L"core.dll", kUnregister)(procedure, parameter, code);
    }
    static void* findMenu(void* self, const wchar_t* title) {
        add(std::wstring(L"find menu ") + title);
        return now->findMenu_.original(self, title);
    }
    static bool registerMenu(void* self, void* menu, DWORD flags) {
        add(L"register menu, flags " + number(flags));
        return now->registerMenu_.original(self, menu, flags);
    }
    static bool unregisterMenu(void* self, void* menu) {
        add(L"unregister menu");
        const std::size_t asked = now->calls_.size();
        const bool result = now->unregisterMenu_.original(self, menu);
        now->calls_.resize(asked);
        return result;
    }
    static bool registerMenuContext(void* self, DWORD id, const wchar_t* name) {
        add(L"register menu context " + number(id) + L" " + name);
        return now->registerMenuContext_.original(self, id, name);
    }
    static void* menuContext(void* self, DWORD id) {
        add(L"menu context " + number(id));
        return now->menuContext_.original(self, id);
    }
    static void setContextMenu(void* self, void* menu) {
        add(menu == nullptr ? L"context has no menu" : L"context has a menu");
        now->setContextMenu_.original(self, menu);
    }
    static void updateMenuBar(void* self) {
        add(L"update menu bar");
        now->updateMenuBar_.original(self);
    }
    static void registerTable(void* self, void* table) {
        add(L"register table");
        now->registerTable_.original(self, table);
    }
    static int activateTable(void* self, void* callback, DWORD id) {
        add(L"activate table " + number(id));
        now->callbacks_.push_back(callback);
        const std::size_t asked = now->calls_.size();
        const int result = now->activateTable_.original(self, callback, id);
        now->calls_.resize(asked); // without what the manager asks of itself
        return result;
    }
    static void* findTable(void* self, DWORD id) {
        add(L"find table " + number(id));
        return now->findTable_.original(self, id);
    }
    static BOOL registerActionContext(void* self, DWORD id, const wchar_t* name) {
        add(L"register action context " + number(id) + L" " + name);
        return now->registerActionContext_.original(self, id, name);
    }

    static RecordedHost* now; // there is one at a time

    Calls calls_;
    std::vector<void*> callbacks_;
    const SlotPatch<void, void*> setContextMenu_{
        CallSlot<void*>(MenuManager(), slot::IMenuManager_GetContext, kMainMenuBar),
        slot::IMenuBarContext_SetMenu, &setContextMenu};
    const ImportPatch register_;
    const ImportPatch unregister_;
    const SlotPatch<void*, const wchar_t*> findMenu_{MenuManager(), slot::IMenuManager_FindMenu,
                                                     &findMenu};
    const SlotPatch<bool, void*, DWORD> registerMenu_{
        MenuManager(), slot::IMenuManager_RegisterMenu, &registerMenu};
    const SlotPatch<bool, void*> unregisterMenu_{MenuManager(), slot::IMenuManager_UnRegisterMenu,
                                                 &unregisterMenu};
    const SlotPatch<bool, DWORD, const wchar_t*> registerMenuContext_{
        MenuManager(), slot::IMenuManager_RegisterMenuBarContext, &registerMenuContext};
    const SlotPatch<void*, DWORD> menuContext_{MenuManager(), slot::IMenuManager_GetContext,
                                               &menuContext};
    const SlotPatch<void> updateMenuBar_{MenuManager(), slot::IMenuManager_UpdateMenuBar,
                                         &updateMenuBar};
    const SlotPatch<void, void*> registerTable_{
        ActionManager(), slot::IActionManager_RegisterActionTable, &registerTable};
    const SlotPatch<int, void*, DWORD> activateTable_{
        ActionManager(), slot::IActionManager_ActivateActionTable, &activateTable};
    const SlotPatch<void*, DWORD> findTable_{ActionManager(), slot::IActionManager_FindTable,
                                             &findTable};
    const SlotPatch<BOOL, DWORD, const wchar_t*> registerActionContext_{
        ActionManager(), slot::IActionManager_RegisterActionContext, &registerActionContext};
};

constexpr char RecordedHost::kRegister[];
constexpr char RecordedHost::kUnregister[];
RecordedHost* RecordedHost::now = nullptr;

// The plug-in's utility, which the test starts and stops.
class StartOrder : public PluginSlots {
protected:
    ~StartOrder() override {
        if (utility != nullptr)
            CallSlot<void>(utility, slot::GUP_Stop);
        destroy();
    }

    void start() { EXPECT_EQ(CallSlot<DWORD>(utility, slot::GUP_Start), 0U) << "keep"; }
    void destroy() {
        if (utility != nullptr)
            CallSlot<void>(utility, slot::GUP_DeleteThis);
        utility = nullptr;
    }

    static int itemsOf(const wchar_t* title) {
        standin_menu* const menu = standin_find_menu(title);
        return menu == nullptr ? -1 : standin_menu_item_count(menu);
    }
    // A menu of that title with one item, as the host's menu file may bring it.
    static void bring(const wchar_t* title) {
        standin_menu_append_command(standin_menu_create(title), 7, L"Of before");
    }

    void* utility = create();
};

// The numbers of the action context, the table and the menu's context, in decimal.
const wchar_t kFindTable[] = L"find table 1168786313";
const wchar_t kActivate[] = L"activate table 1168786313";
const wchar_t kOurContext[] = L"menu context 1092230185";
const wchar_t kRegisterOurContext[] = L"register menu context 1092230185 Orv Rendering";

TEST_F(StartOrder, IsNotificationOldMenusActionsMenu) {
    RecordedHost recorded(module);
    start();
    EXPECT_THAT(recorded.take(),
                ElementsAre(L"watch 80",
                            L"find menu Orv Rendering", // left by an earlier run
                            L"find menu Vantrel", L"find menu OrvCloud", L"find menu Orv Render",
                            L"menu context 1", L"register action context 563298227 Tallowmere",
                            L"register table", kActivate, kFindTable, kActivate,
                            kRegisterOurContext, L"find menu Orv Rendering",
                            L"register menu, flags 0", kOurContext, L"context has a menu",
                            L"update menu bar"));
}

TEST_F(StartOrder, IsTheSameWithAMenuOfAnEarlierRun) {
    bring(kMenuTitle);
    RecordedHost recorded(module);
    start();
    const Calls calls = recorded.take();
    // Without the product's context the menu is emptied and stays; it is filled at the end.
    ASSERT_EQ(calls.size(), 15U);
    EXPECT_EQ(Calls(calls.begin(), calls.begin() + 4),
              (Calls{L"watch 80", L"find menu Orv Rendering", kOurContext, L"find menu Vantrel"}));
    EXPECT_EQ(Calls(calls.end() - 3, calls.end()),
              (Calls{kRegisterOurContext, L"find menu Orv Rendering", L"update menu bar"}));
    EXPECT_EQ(itemsOf(kMenuTitle), 3);
}

TEST_F(StartOrder, PutsASecondCallbackInForce) {
    RecordedHost recorded(module);
    start();
    ASSERT_EQ(recorded.callbacks().size(), 2U);
    void* const first = recorded.callbacks()[0];
    void* const second = recorded.callbacks()[1];
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
    void* const table = CallSlot<void*>(ActionManager(), slot::IActionManager_FindTable, kTableId);
    EXPECT_EQ(CallSlot<void*>(table, slot::ActionTable_GetCallback), second);
}

TEST_F(StartOrder, OfTheSystemBringsTheMenuUpToDate) {
    start();
    RecordedHost recorded(module);
    standin_broadcast(kStartup);
    EXPECT_THAT(recorded.take(), ElementsAre(L"menu context 1", kFindTable, kRegisterOurContext,
                                             L"find menu Orv Rendering", L"update menu bar"));
}

TEST_F(StartOrder, IsUndoneByTheStopAndLookedForOnceMoreAtTheEnd) {
    start();
    RecordedHost recorded(module);
    CallSlot<void>(utility, slot::GUP_Stop);
    EXPECT_THAT(recorded.take(),
                ElementsAre(L"no longer watch 80", L"find menu Orv Rendering", kOurContext,
                            L"context has no menu", L"unregister menu", L"update menu bar"));
    destroy();
    EXPECT_THAT(recorded.take(), ElementsAre(L"find menu Orv Rendering"));
}

TEST_F(StartOrder, IsUndoneAtTheEndWhereTheMenuCameBack) {
    start();
    CallSlot<void>(utility, slot::GUP_Stop);
    bring(kMenuTitle);
    destroy();
    EXPECT_EQ(standin_find_menu(kMenuTitle), nullptr);
}

// ---- A host that lacks a part ----

void* NoManager(void*) {
    return nullptr;
}

void* NoTable(void*, DWORD) {
    return nullptr;
}

void* NoMenu() {
    return nullptr;
}

// While it lives, the host has no menu context of that number.
class HiddenContext : private rud_Noncopyable {
public:
    explicit HiddenContext(DWORD id) : id_(id) { now = this; }
    ~HiddenContext() { now = nullptr; }

private:
    static void* context(void* self, DWORD id) {
        return id == now->id_ ? nullptr : now->patch_.original(self, id);
    }

    static HiddenContext* now; // there is one at a time

    const DWORD id_;
    const SlotPatch<void*, DWORD> patch_{MenuManager(), slot::IMenuManager_GetContext, &context};
};

HiddenContext* HiddenContext::now = nullptr;

TEST_F(StartOrder, WithoutAMenuManagerLeavesTheActionsAlone) {
    const int menus = standin_registered_menu_count();
    {
        const SlotPatch<void*> none(CoreInterface(), slot::Interface_GetMenuManager, &NoManager);
        start();
        standin_broadcast(kStartup);
    }
    EXPECT_EQ(standin_action_activation_count(), 2);
    EXPECT_EQ(standin_registered_menu_count(), menus);
    EXPECT_EQ(standin_menu_context_count(), 1);
}

TEST_F(StartOrder, WithoutAnActionManagerInstallsNoMenu) {
    const int menus = standin_registered_menu_count();
    const SlotPatch<void*> none(CoreInterface(), slot::Interface_GetActionManager, &NoManager);
    start();
    standin_broadcast(kStartup);
    EXPECT_EQ(standin_action_table_count(), 0);
    EXPECT_EQ(standin_registered_menu_count(), menus);
}

TEST_F(StartOrder, WithoutAMainMenuBarInstallsNoMenu) {
    const int menus = standin_registered_menu_count();
    const HiddenContext hidden(kMainMenuBar);
    start();
    EXPECT_EQ(standin_action_activation_count(), 2);
    EXPECT_EQ(standin_registered_menu_count(), menus);
    EXPECT_EQ(standin_menu_context_count(), 2) << "the menu's own context is there";
}

TEST_F(StartOrder, OfTheSystemDoesNothingWithoutAMainMenuBar) {
    start();
    bring(kMenuTitle);
    const HiddenContext hidden(kMainMenuBar);
    standin_broadcast(kStartup);
    EXPECT_EQ(itemsOf(kMenuTitle), 4) << "what was brought stays";
}

TEST_F(StartOrder, WithoutItsTableInstallsNoMenu) {
    const int menus = standin_registered_menu_count();
    const SlotPatch<void*, DWORD> none(ActionManager(), slot::IActionManager_FindTable, &NoTable);
    start();
    EXPECT_EQ(standin_registered_menu_count(), menus);
}

TEST_F(StartOrder, OfTheSystemDoesNothingWithoutItsTable) {
    start();
    bring(kMenuTitle);
    const SlotPatch<void*, DWORD> none(ActionManager(), slot::IActionManager_FindTable, &NoTable);
    standin_broadcast(kStartup);
    EXPECT_EQ(itemsOf(kMenuTitle), 4) << "what was brought stays";
}

TEST_F(StartOrder, WithoutANewMenuInstallsNone) {
    const int menus = standin_registered_menu_count();
    const ImportPatch none(module, kNewMenu, AddressOf(&NoMenu));
    start();
    EXPECT_EQ(standin_registered_menu_count(), menus);
}

TEST_F(StartOrder, WithoutTheMenusContextShowsItNowhere) {
    const HiddenContext hidden(kMenuContext);
    start();
    EXPECT_EQ(itemsOf(kMenuTitle), 0) << "registered and empty";
    EXPECT_EQ(standin_menu_item_count(standin_menu_bar()), 0);
}

} // namespace
} // namespace test
} // namespace orv
