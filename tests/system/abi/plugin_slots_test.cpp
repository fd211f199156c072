// The plug-in's own objects, called by the host through their slots.
#include "standin/menus.h"
#include "tests/system/abi/loaded_plugin.h"

#include <cstdint>

namespace orv {
namespace test {
namespace {

namespace slot = host_abi::slot;

constexpr int kMenuContext = 0x411A1C29;

TEST_F(PluginSlots, DescriptorTellsWhatTheClassIs) {
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_IsPublic), 1);
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_BeginCreate, static_cast<void*>(nullptr)),
              0);
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_EndCreate, static_cast<void*>(nullptr)), 0);
    EXPECT_EQ(CallSlot<BOOL>(descriptor, slot::ClassDesc_OkToCreate, static_cast<void*>(nullptr)),
              1);
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, slot::ClassDesc_ClassName), L"Orv Rendering");
    EXPECT_EQ(CallSlot<std::uint32_t>(descriptor, slot::ClassDesc_SuperClassID), 0x10E0U);
    host_abi::TwoPartId id = {0, 0};
    CallSlot<void*>(descriptor, slot::ClassDesc_ClassID, &id);
    EXPECT_EQ(id.a, 0x2E87AC90U);
    EXPECT_EQ(id.b, 0x85FBF488U);
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, slot::ClassDesc_Category), L"Orv Rendering");
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, slot::ClassDesc_InternalName),
                 L"Orv_Rendering");
    EXPECT_EQ(CallSlot<HINSTANCE>(descriptor, slot::ClassDesc_HInstance), module);
}

// The rest is the host's own behaviour.
TEST_F(PluginSlots, DescriptorKeepsTheBaseForEverythingElse) {
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_NumActionTables), 0) << "action tables";
    EXPECT_EQ(CallSlot<std::uint32_t>(descriptor, slot::ClassDesc_InitialRollupPageState),
              0x7fffffffU)
        << "rollups";
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_NumParamBlockDescs), 0)
        << "parameter blocks";
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_NumInterfaces), 0) << "interfaces";
    EXPECT_EQ(CallSlot<INT_PTR>(descriptor, slot::ClassDesc_Execute, 1, ULONG_PTR{2}, ULONG_PTR{3},
                                ULONG_PTR{4}),
              0);
}

TEST_F(PluginSlots, ClassNameAndCategoryCanBeHeldTogether) {
    const wchar_t* name = CallSlot<const wchar_t*>(descriptor, slot::ClassDesc_ClassName);
    const wchar_t* category = CallSlot<const wchar_t*>(descriptor, slot::ClassDesc_Category);
    EXPECT_NE(name, category);
}

TEST_F(PluginSlots, UtilityStartsStopsAndDeletesItself) {
    const long long before = standin_heap_block_count();
    void* utility = create();
    ASSERT_NE(utility, nullptr);
    EXPECT_EQ(standin_heap_block_count(), before + 1) << "made on the host's heap";
    EXPECT_EQ(CallSlot<DWORD>(utility, slot::GUP_Start), 0U) << "keep";
    EXPECT_EQ(standin_notification_count(), 1);
    EXPECT_EQ(standin_action_table_count(), 1);
    EXPECT_NE(standin_context_menu(kMenuContext), nullptr);
    CallSlot<void>(utility, slot::GUP_Stop);
    EXPECT_EQ(standin_notification_count(), 0);
    EXPECT_EQ(standin_context_menu(kMenuContext), nullptr);

    const long long started = standin_heap_block_count();
    CallSlot<void>(utility, slot::GUP_DeleteThis);
    EXPECT_EQ(standin_heap_block_count(), started - 1) << "freed by the host's heap";
}

TEST_F(PluginSlots, UtilityHasNothingToControlSaveOrLoad) {
    void* utility = create();
    EXPECT_EQ(CallSlot<DWORD_PTR>(utility, slot::GUP_Control, DWORD{5}), 0U);
    EXPECT_EQ(CallSlot<int>(utility, slot::GUP_Save, static_cast<void*>(nullptr)), 0);
    EXPECT_EQ(CallSlot<int>(utility, slot::GUP_Load, static_cast<void*>(nullptr)), 0);
    CallSlot<void>(utility, slot::GUP_DeleteThis);
}

TEST_F(PluginSlots, UtilityAnswersTheHostsOwnSlots) {
    void* utility = create();
    host_abi::TwoPartId interfaceId = {
        1, 2}; // goes by address: the host's class has a copy constructor
    EXPECT_EQ(CallSlot<void*>(utility, slot::GUP_GetInterface, &interfaceId), nullptr);
    EXPECT_EQ(CallSlot<HWND>(utility, slot::GUP_MaxWnd), host.mainWindow);
    EXPECT_TRUE(CallSlot<bool>(utility, slot::GUP_ExecuteStringScript, L"print 1"));
    CallSlot<void>(utility, slot::GUP_DeleteThis);
    EXPECT_EQ(host.calls, (std::vector<std::wstring>{L"script(print 1, 0, 1)"}));
}

// The table's label of a command, or the text it was asked with; `expected` is its answer.
std::wstring MenuText(void* table, int command, BOOL expected) {
    HostString text(L"unchanged");
    EXPECT_EQ(CallSlot<BOOL>(table, slot::ActionTable_GetMenuText, command, text.object()),
              expected);
    return text.text();
}

TEST_F(StartedPlugin, TableLabelsItsTwoCommands) {
    EXPECT_EQ(MenuText(table, 1497, TRUE), L"Submit to Render Farm...");
    EXPECT_EQ(MenuText(table, 1498, TRUE), L"About Orv Rendering...");
}

TEST_F(StartedPlugin, TableLeavesOtherCommandsToTheBase) {
    EXPECT_EQ(MenuText(table, 1499, FALSE), L"unchanged");
    EXPECT_EQ(MenuText(table, 0, FALSE), L"unchanged");
}

TEST_F(StartedPlugin, TableHoldsTheAboutActionFirst) {
    EXPECT_EQ(CallSlot<int>(table, slot::ActionTable_Count), 2) << "count";
    const auto commandAt = [this](int index) {
        return CallSlot<int>(CallSlot<void*>(table, slot::ActionTable_GetActionByIndex, index),
                             slot::ActionItem_GetId);
    };
    EXPECT_EQ(commandAt(0), 1498);
    EXPECT_EQ(commandAt(1), 1497);
    EXPECT_EQ(CallSlot<DWORD>(table, slot::ActionTable_GetId), kTableId);
    EXPECT_EQ(CallSlot<DWORD>(table, slot::ActionTable_GetContextId), 0x21933FB3U);
    EXPECT_EQ(HostString::TextOf(CallSlot<void*>(table, slot::ActionTable_GetName)),
              L"Submit to Render Farm...");
}

TEST_F(StartedPlugin, CallbackTakesUnknownCommandsForHandled) {
    ASSERT_NE(callback, nullptr);
    const std::vector<std::wstring> before = host.calls;
    EXPECT_EQ(CallSlot<BOOL>(callback, slot::ActionCallback_ExecuteAction, 1499), TRUE);
    EXPECT_EQ(CallSlot<BOOL>(callback, slot::ActionCallback_ExecuteAction, 0), TRUE);
    EXPECT_EQ(CallSlot<BOOL>(callback, slot::ActionCallback_ExecuteAction, -1), TRUE);
    EXPECT_EQ(host.calls, before) << "nothing was asked of the host";
}

} // namespace
} // namespace test
} // namespace orv
