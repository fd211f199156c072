// What the plug-in's start gives to the host and its stop takes back.
#include "tests/system/shell/plugin_in_host.h"

#include "standin/maxutil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::Each;

TEST(Start, RegistersWhatTheHostHasToKnow) {
    BareHost host;
    const PluginInHost plugin;
    EXPECT_EQ(standin_plugin_object_count(plugin()), 1) << "it wants to be kept";
    EXPECT_EQ(standin_notification_count(), 1);
    EXPECT_EQ(standin_action_table_count(), 1);
    EXPECT_STREQ(standin_action_context_name(kActionContext), L"Tallowmere");
    EXPECT_NE(standin_context_menu(kMenuContext), nullptr);
}

TEST(Start, ActivatesTheActionsTwice) {
    BareHost host;
    const PluginInHost plugin;
    EXPECT_EQ(standin_action_activation_count(), 2);
}

TEST(Start, AsksNothingOfTheSceneAndRunsNoScript) {
    BareHost host;
    const PluginInHost plugin;
    EXPECT_THAT(host.calls, Each(std::wstring(L"menu bar changed()")));
}

TEST(Start, DoesNothingWithoutAHost) {
    BareHost host;
    standin_set_host(nullptr);
    const PluginInHost plugin;
    EXPECT_EQ(standin_plugin_object_count(plugin()), 1) << "it stays all the same";
    EXPECT_EQ(standin_action_table_count(), 0);
    EXPECT_EQ(standin_registered_menu_count(), 1) << "the main menu bar";
    standin_broadcast(kStartup);
    EXPECT_EQ(standin_registered_menu_count(), 1);
}

TEST(Stop, TakesTheMenuAndTheNotificationBack) {
    BareHost host;
    const PluginInHost plugin;
    standin_broadcast(kStartup);
    standin_plugin_stop(plugin());
    EXPECT_EQ(standin_notification_count(), 0);
    EXPECT_EQ(MenuBar(), Texts{});
    EXPECT_EQ(MenusTitled(kMenuTitle), 0);
    EXPECT_EQ(standin_context_menu(kMenuContext), nullptr);
    EXPECT_EQ(standin_action_table_count(), 1) << "the host keeps the table";
    EXPECT_EQ(standin_live_item_count(), 0);
}

TEST(Stop, IsHarmlessTwice) {
    BareHost host;
    const PluginInHost plugin;
    standin_plugin_stop(plugin()); // stops, then destroys: the destructor looks for the menu again
    const auto calls = host.calls;
    standin_plugin_stop(plugin());
    EXPECT_EQ(host.calls, calls);
    standin_broadcast(kStartup);
    EXPECT_EQ(MenuBar(), Texts{}) << "nobody puts the menu back";
}

TEST(Stop, LeavesOtherMenusAlone) {
    BareHost host;
    standin_menu* file = standin_menu_create(L"File");
    standin_menu_append_command(file, 1, L"Open");
    standin_menu_append_sub_menu(standin_menu_bar(), file);
    {
        const PluginInHost plugin;
        EXPECT_EQ(MenuBar(), (Texts{L"> File", L"> Orv Rendering"}));
    }
    EXPECT_EQ(MenuBar(), Texts{L"> File"});
    EXPECT_EQ(Items(file), Texts{L"Open"});
}

TEST(StartAndStop, FiftyTimesLeaveNothingBehind) {
    BareHost host;
    for (int i = 0; i < 50; ++i) {
        const PluginInHost plugin;
        standin_broadcast(kStartup);
        ASSERT_EQ(Items(standin_find_menu(kMenuTitle)).size(), 3U);
    }
    EXPECT_EQ(standin_notification_count(), 0);
    EXPECT_EQ(standin_action_table_count(), 0);
    EXPECT_EQ(standin_registered_menu_count(), 1);
    EXPECT_EQ(standin_live_item_count(), 0);
    EXPECT_EQ(standin_menu_context_count(), 2) << "the main menu bar's and the product's";
    EXPECT_EQ(::GetModuleHandleW(L"OrvRendering.gup"), nullptr);
    EXPECT_EQ(standin_wrong_thread_count(), 0);
}

} // namespace
} // namespace test
} // namespace orv
