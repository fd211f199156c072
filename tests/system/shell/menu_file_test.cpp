// The stand-in's menu file: what it keeps, and what it refuses.
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/shell/plugin_in_host.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

class MenuFileOfTheHost : public ::testing::Test {
protected:
    MenuFileOfTheHost() {
        standin_menu* file = standin_menu_create(L"File \u6587\u4EF6");
        standin_menu_append_command(file, 5, L"&Save\tCtrl+S");
        standin_menu_append_separator(file);
        standin_menu* recent = standin_menu_create(L"Recent");
        standin_menu_append_command(recent, -7, L"loft.max");
        standin_menu_append_sub_menu(file, recent);
        standin_menu_append_sub_menu(standin_menu_bar(), file);
    }

    void expectMenusUnchanged() {
        EXPECT_EQ(MenuBar(), Texts{L"> File \u6587\u4EF6"});
        EXPECT_EQ(Items(standin_find_menu(L"File \u6587\u4EF6")),
                  (Texts{L"&Save\tCtrl+S", L"-", L"> Recent"}));
        standin_item item;
        ASSERT_TRUE(standin_menu_item(standin_find_menu(L"Recent"), 0, &item));
        EXPECT_EQ(item.kind, STANDIN_ITEM_HOST_COMMAND);
        EXPECT_EQ(item.command, -7);
        EXPECT_EQ(standin_registered_menu_count(), 3);
        EXPECT_EQ(standin_menu_context_count(), 1);
    }

    BareHost host;
    TemporaryFolder folder;
    const std::wstring path = folder.file(L"menus.txt");
};

TEST_F(MenuFileOfTheHost, KeepsMenusFromOneRunToTheNext) {
    ASSERT_TRUE(standin_menus_save(path.c_str()));
    standin_menus_reset();
    EXPECT_EQ(MenuBar(), Texts{});
    ASSERT_TRUE(standin_menus_load(path.c_str()));
    expectMenusUnchanged();
}

TEST_F(MenuFileOfTheHost, ReplacesEverythingAndLeaksNothing) {
    const int menus = standin_live_menu_count();
    const int items = standin_live_item_count();
    ASSERT_TRUE(standin_menus_save(path.c_str()));
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(standin_menus_load(path.c_str()));
    EXPECT_EQ(standin_live_menu_count(), menus);
    EXPECT_EQ(standin_live_item_count(), items);
}

TEST_F(MenuFileOfTheHost, CutsTitlesThatAreTooLong) {
    standin_menu_create(std::wstring(1000, L'\u706F').c_str());
    ASSERT_TRUE(standin_menus_save(path.c_str()));
    ASSERT_TRUE(standin_menus_load(path.c_str()));
    EXPECT_NE(standin_find_menu(std::wstring(255, L'\u706F').c_str()), nullptr);
}

TEST_F(MenuFileOfTheHost, CannotBeWrittenIntoAMissingFolder) {
    EXPECT_FALSE(standin_menus_save(folder.file(L"missing\\menus.txt").c_str()));
    EXPECT_FALSE(standin_menus_load(folder.file(L"missing.txt").c_str()));
    expectMenusUnchanged();
}

struct Damage {
    const char* name;
    std::string content;
};

class DamagedMenuFile : public MenuFileOfTheHost, public ::testing::WithParamInterface<Damage> {};

TEST_P(DamagedMenuFile, IsRefusedAndChangesNothing) {
    const int menus = standin_live_menu_count();
    const int items = standin_live_item_count();
    WriteFileBytes(path, GetParam().content);
    EXPECT_FALSE(standin_menus_load(path.c_str()));
    expectMenusUnchanged();
    EXPECT_EQ(standin_live_menu_count(), menus);
    EXPECT_EQ(standin_live_item_count(), items);
}

const char kHead[] = "standin-menus 1\n";

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedMenuFile,
    ::testing::Values(
        Damage{"Empty", ""}, Damage{"OtherFormat", "<xml/>\n"},
        Damage{"OtherVersion", "standin-menus 2\n"},
        Damage{"UnknownLine", std::string(kHead) + "button 1\n"},
        Damage{"ItemWithoutMenu", std::string(kHead) + "item separator\n"},
        Damage{"MenuWithoutNumber", std::string(kHead) + "menu registered A\n"},
        Damage{"NumberTooLarge", std::string(kHead) + "menu 99999999999 registered A\n"},
        Damage{"SameNumberTwice",
               std::string(kHead) + "menu 1 registered A\nmenu 1 registered B\n"},
        Damage{"UnknownSubMenu", std::string(kHead) + "menu 1 registered A\nitem sub-menu 2\n"},
        Damage{"ItselfAsSubMenu", std::string(kHead) + "menu 1 registered A\nitem sub-menu 1\n"},
        Damage{"UnknownItem", std::string(kHead) + "menu 1 registered A\nitem x\n"},
        Damage{"UnknownMenuOfContext", std::string(kHead) + "context 1 4 A\n"},
        Damage{"BrokenText", std::string(kHead) + "menu 1 registered \xC3\x28\n"},
        Damage{"TitleTooLong", std::string(kHead) + "menu 1 registered " + std::string(300, 'x')},
        Damage{"Zeroes", std::string(4096, '\0')},
        Damage{"TooLarge", std::string(kHead) + std::string(2 << 20, '\n')}),
    [](const auto& parameter) { return parameter.param.name; });

} // namespace
} // namespace test
} // namespace orv
