// The plug-in's own objects, called by the host through their slots.
#include "standin/maxutil.h"
#include "standin/menus.h"
#include "tests/system/abi/program_folder.h"
#include "tests/system/abi/slots.h"
#include "tests/system/abi/test_host.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orv {
namespace test {
namespace {

constexpr DWORD kTable = 0x45AA4389;
constexpr int kMenuContext = 0x411A1C29;

struct ClassId {
    std::uint32_t a, b;
};

class PluginSlots : public ::testing::Test {
protected:
    PluginSlots() {
        standin_set_language(0x0409);
        module = ::LoadLibraryW((ProgramFolder() + L"\\OrvRendering.gup").c_str());
        if (!module)
            throw std::runtime_error("the plug-in cannot be loaded");
        descriptor = entry<void* (*)(int)>("LibClassDesc")(0);
    }
    ~PluginSlots() override {
        standin_core_reset(); // its tables are deleted by the library's own code
        ::FreeLibrary(module);
    }

    template<class Function>
    Function entry(const char* name) {
        return Exported<Function>((ProgramFolder() + L"\\OrvRendering.gup").c_str(), name);
    }

    void* create() { return CallSlot<void*>(descriptor, 2, TRUE); }

    TestHost host;
    HMODULE module = nullptr;
    void* descriptor = nullptr;
};

TEST_F(PluginSlots, DescriptorTellsWhatTheClassIs) {
    EXPECT_EQ(CallSlot<int>(descriptor, 1), 1);
    EXPECT_EQ(CallSlot<int>(descriptor, 3, static_cast<void*>(nullptr)), 0);
    EXPECT_EQ(CallSlot<int>(descriptor, 4, static_cast<void*>(nullptr)), 0);
    EXPECT_EQ(CallSlot<BOOL>(descriptor, 5, static_cast<void*>(nullptr)), 1);
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, 6), L"Orv Rendering");
    EXPECT_EQ(CallSlot<std::uint32_t>(descriptor, 7), 0x10E0U);
    ClassId id = {0, 0};
    CallSlot<void*>(descriptor, 8, &id);
    EXPECT_EQ(id.a, 0x2E87AC90U);
    EXPECT_EQ(id.b, 0x85FBF488U);
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, 9), L"Orv Rendering");
    EXPECT_STREQ(CallSlot<const wchar_t*>(descriptor, 24), L"Orv_Rendering");
    EXPECT_EQ(CallSlot<HINSTANCE>(descriptor, 26), module);
}

// The rest is the host's own behaviour.
TEST_F(PluginSlots, DescriptorKeepsTheBaseForEverythingElse) {
    EXPECT_EQ(CallSlot<int>(descriptor, 13), 0) << "action tables";
    EXPECT_EQ(CallSlot<std::uint32_t>(descriptor, 23), 0x7fffffffU) << "rollups";
    EXPECT_EQ(CallSlot<int>(descriptor, 27), 0) << "parameter blocks";
    EXPECT_EQ(CallSlot<int>(descriptor, 42), 0) << "interfaces";
    EXPECT_EQ(CallSlot<INT_PTR>(descriptor, 49, 1, ULONG_PTR{2}, ULONG_PTR{3}, ULONG_PTR{4}), 0);
}

TEST_F(PluginSlots, ClassNameAndCategoryCanBeHeldTogether) {
    const wchar_t* name = CallSlot<const wchar_t*>(descriptor, 6);
    const wchar_t* category = CallSlot<const wchar_t*>(descriptor, 9);
    EXPECT_NE(name, category);
}

TEST_F(PluginSlots, UtilityStartsStopsAndDeletesItself) {
    const long long before = standin_heap_block_count();
    void* utility = create();
    ASSERT_NE(utility, nullptr);
    EXPECT_EQ(standin_heap_block_count(), before + 1) << "made on the host's heap";
    EXPECT_EQ(CallSlot<DWORD>(utility, 10), 0U) << "keep";
    EXPECT_EQ(standin_notification_count(), 1);
    EXPECT_EQ(standin_action_table_count(), 1);
    EXPECT_NE(standin_context_menu(kMenuContext), nullptr);
    CallSlot<void>(utility, 11);
    EXPECT_EQ(standin_notification_count(), 0);
    EXPECT_EQ(standin_context_menu(kMenuContext), nullptr);

    const long long started = standin_heap_block_count();
    CallSlot<void>(utility, 15);
    EXPECT_EQ(standin_heap_block_count(), started - 1) << "freed by the host's heap";
}

TEST_F(PluginSlots, UtilityHasNothingToControlSaveOrLoad) {
    void* utility = create();
    EXPECT_EQ(CallSlot<DWORD_PTR>(utility, 12, DWORD{5}), 0U);
    EXPECT_EQ(CallSlot<int>(utility, 13, static_cast<void*>(nullptr)), 0);
    EXPECT_EQ(CallSlot<int>(utility, 14, static_cast<void*>(nullptr)), 0);
    CallSlot<void>(utility, 15);
}

TEST_F(PluginSlots, UtilityAnswersTheHostsOwnSlots) {
    void* utility = create();
    ClassId interfaceId = {1, 2}; // goes by address: the host's class has a copy constructor
    EXPECT_EQ(CallSlot<void*>(utility, 1, &interfaceId), nullptr);
    EXPECT_EQ(CallSlot<HWND>(utility, 3), host.mainWindow);
    EXPECT_TRUE(CallSlot<bool>(utility, 8, L"print 1"));
    CallSlot<void>(utility, 15);
    EXPECT_EQ(host.calls, (std::vector<std::wstring>{L"script(print 1, 0, 1)"}));
}

class StartedPlugin : public PluginSlots {
protected:
    StartedPlugin() {
        CallSlot<DWORD>(utility, 10);
        void* const manager = CallSlot<void*>(
            Exported<void* (*)()>(L"core.dll", "?GetCOREInterface@@YAPEAVInterface@@XZ")(), 170);
        table = CallSlot<void*>(manager, 33, kTable);
        callback = CallSlot<void*>(table, 33);
    }
    ~StartedPlugin() override {
        CallSlot<void>(utility, 11);
        CallSlot<void>(utility, 15);
    }

    std::wstring menuText(int command, BOOL expected) {
        HostString text(L"unchanged");
        EXPECT_EQ(CallSlot<BOOL>(table, 43, command, text.object()), expected);
        return text.text();
    }

    void* utility = create();
    void* table = nullptr;
    void* callback = nullptr;
};

TEST_F(StartedPlugin, TableLabelsItsTwoCommands) {
    EXPECT_EQ(menuText(1497, TRUE), L"Submit to Render Farm...");
    EXPECT_EQ(menuText(1498, TRUE), L"About Orv Rendering...");
}

TEST_F(StartedPlugin, TableLeavesOtherCommandsToTheBase) {
    EXPECT_EQ(menuText(1499, FALSE), L"unchanged");
    EXPECT_EQ(menuText(0, FALSE), L"unchanged");
}

TEST_F(StartedPlugin, TableHoldsTheAboutActionFirst) {
    EXPECT_EQ(CallSlot<int>(table, 35), 2) << "count";
    const auto commandAt = [this](int index) {
        return CallSlot<int>(CallSlot<void*>(table, 38, index), 26); // the item's own number
    };
    EXPECT_EQ(commandAt(0), 1498);
    EXPECT_EQ(commandAt(1), 1497);
    EXPECT_EQ(CallSlot<DWORD>(table, 31), kTable);
    EXPECT_EQ(CallSlot<DWORD>(table, 32), 0x21933FB3U);
    EXPECT_EQ(HostString::TextOf(CallSlot<void*>(table, 30)), L"Submit to Render Farm...");
}

TEST_F(StartedPlugin, CallbackTakesUnknownCommandsForHandled) {
    ASSERT_NE(callback, nullptr);
    EXPECT_EQ(CallSlot<BOOL>(callback, 4, 1499), TRUE);
    EXPECT_EQ(CallSlot<BOOL>(callback, 4, 0), TRUE);
    EXPECT_EQ(CallSlot<BOOL>(callback, 4, -1), TRUE);
    EXPECT_EQ(host.calls.back(), L"menu bar changed()") << "nothing was asked of the host";
}

} // namespace
} // namespace test
} // namespace orv
