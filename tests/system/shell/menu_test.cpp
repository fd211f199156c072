// The product's menu: new, found from an earlier run, left over from an earlier release.
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/shell/plugin_in_host.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

const Texts kItems = {L"Submit to Render Farm...", L"-", L"About Orv Rendering..."};

// A host that has read the menu file of an earlier run.
class HostWithMenuFile : public ::testing::Test {
protected:
    void load(const std::string& content) {
        WriteFileBytes(path, content);
        ASSERT_TRUE(standin_menus_load(path.c_str()));
    }

    BareHost host;
    TemporaryFolder folder{L"menus \u83DC\u5355"};
    const std::wstring path = folder.file(L"menus.txt");
};

TEST_F(HostWithMenuFile, GetsANewMenuAtTheEndOfTheMenuBar) {
    standin_menu_append_sub_menu(standin_menu_bar(), standin_menu_create(L"File"));
    const PluginInHost plugin;
    EXPECT_EQ(MenuBar(), (Texts{L"> File", L"> Orv Rendering"}));
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
    EXPECT_EQ(standin_context_menu(kMenuContext), standin_find_menu(kMenuTitle));
}

TEST_F(HostWithMenuFile, BindsTheItemsToTheActions) {
    const PluginInHost plugin;
    standin_menu* menu = standin_find_menu(kMenuTitle);
    standin_item item;
    ASSERT_TRUE(standin_menu_item(menu, 0, &item));
    EXPECT_EQ(item.kind, STANDIN_ITEM_ACTION);
    EXPECT_EQ(item.table, kTable);
    EXPECT_EQ(item.command, kOpen);
    EXPECT_TRUE(item.enabled);
    ASSERT_TRUE(standin_menu_item(menu, 1, &item));
    EXPECT_EQ(item.kind, STANDIN_ITEM_SEPARATOR);
    ASSERT_TRUE(standin_menu_item(menu, 2, &item));
    EXPECT_EQ(item.command, kAbout);
}

TEST_F(HostWithMenuFile, KeepsOneMenuOfThreeItemsWhenTheHostHasStarted) {
    const PluginInHost plugin;
    standin_broadcast(kStartup);
    standin_broadcast(kStartup);
    EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    EXPECT_EQ(MenusTitled(kMenuTitle), 1);
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
}

TEST_F(HostWithMenuFile, SpeaksChinese) {
    const PluginInHost plugin(kChinese);
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)),
              (Texts{L"\u63D0\u4EA4\u5230\u6E32\u67D3\u519C\u573A...", L"-",
                     L"\u5173\u4E8E Orv Rendering..."}));
}

TEST_F(HostWithMenuFile, RefillsTheMenuOfAnEarlierRun) {
    for (const bool withContext : {false, true}) {
        SCOPED_TRACE(withContext ? "with context" : "without context");
        load(MenuFile("Orv Rendering", withContext));
        const PluginInHost plugin;
        EXPECT_EQ(MenusTitled(kMenuTitle), 1);
        EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
        standin_broadcast(kStartup);
        EXPECT_EQ(MenusTitled(kMenuTitle), 1);
        EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
        EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    }
}

// The host reads its menu file after the plug-ins have started: what they had installed is gone.
TEST_F(HostWithMenuFile, InstallsItsMenuAgainWhenTheMenuFileHasReplacedIt) {
    const PluginInHost plugin;
    load("standin-menus 1\nmenu 1 registered Main Menu Bar\ncontext 1 1 Main Menu Bar\n");
    EXPECT_EQ(MenusTitled(kMenuTitle), 0);
    standin_broadcast(kStartup);
    EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
}

TEST_F(HostWithMenuFile, RefillsTheMenuThatTheMenuFileBringsLater) {
    const PluginInHost plugin;
    load(MenuFile("Orv Rendering", true));
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)),
              (Texts{L"Submit to Render Farm...", L"Something else"}));
    standin_broadcast(kStartup);
    EXPECT_EQ(MenusTitled(kMenuTitle), 1);
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
}

TEST_F(HostWithMenuFile, SurvivesARoundTripThroughTheMenuFile) {
    {
        const PluginInHost plugin;
        ASSERT_TRUE(standin_menus_save(path.c_str()));
    }
    ASSERT_TRUE(standin_menus_load(path.c_str()));
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems) << "the labels are in the file";
    standin_item item;
    ASSERT_TRUE(standin_menu_item(standin_find_menu(kMenuTitle), 0, &item));
    EXPECT_FALSE(item.enabled) << "no table, no command";
    const PluginInHost plugin;
    standin_broadcast(kStartup);
    EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
}

struct OldTitle {
    const char* name;
    const char* utf8;
    const wchar_t* title;
};

class LeftOverMenu : public HostWithMenuFile, public ::testing::WithParamInterface<OldTitle> {};

TEST_P(LeftOverMenu, IsEmptiedAndUnregisteredAtTheStart) {
    load(MenuFile(GetParam().utf8, true));
    ASSERT_EQ(MenusTitled(GetParam().title), 1);
    const PluginInHost plugin;
    EXPECT_EQ(MenusTitled(GetParam().title), 0);
    EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    EXPECT_EQ(Items(standin_context_menu(kMenuContext)), kItems);
}

TEST_P(LeftOverMenu, StaysRegisteredButEmptyWithoutTheProductsContext) {
    load(MenuFile(GetParam().utf8, false));
    const PluginInHost plugin;
    ASSERT_EQ(MenusTitled(GetParam().title), 1);
    EXPECT_EQ(Items(standin_find_menu(GetParam().title)), Texts{});
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)), kItems);
}

INSTANTIATE_TEST_SUITE_P(Titles, LeftOverMenu,
                         ::testing::Values(OldTitle{"Vantrel", "Vantrel", L"Vantrel"},
                                           OldTitle{"OrvCloud", "OrvCloud", L"OrvCloud"},
                                           OldTitle{"OfTheResources", "Orv Render", kOldMenuTitle}),
                         [](const auto& parameter) { return parameter.param.name; });

} // namespace
} // namespace test
} // namespace orv
