// The product's library in the host: loading, the menu, starting and stopping many times.
#include "standin/host/text.h"
#include "standin/sdk/include/standin/core.h"
#include "standin/sdk/include/standin/maxutil.h"
#include "standin/sdk/include/standin/menus.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/product_folder.h"
#include "tests/support/program_folder.h"
#include "tests/system/host/host_under_test.h"
#include "tests/system/host/process_counts.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

using Texts = std::vector<std::wstring>;
using standin::HostOptions;

constexpr wchar_t kMenu[] = L"Orv Rendering";
const Texts kEnglishItems = {L"Submit to Render Farm...", L"-", L"About Orv Rendering..."};

class HostWithPlugin : public ::testing::Test {
protected:
    HostWithPlugin() { options.pluginFolder = MakePluginFolder(folder); }

    // A menu file as a run of the host leaves it when it ends without stopping the plug-in.
    std::wstring menuFileOfAnEarlierRun() {
        const std::wstring path = folder.file(L"menus \u83DC\u5355.txt");
        HostUnderTest host(options);
        EXPECT_TRUE(host->start());
        EXPECT_TRUE(host->saveMenus(path));
        return path;
    }

    SceneFolder folder;
    HostOptions options;
};

TEST_F(HostWithPlugin, LoadsItAndTellsWhatItIs) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host->pluginCount(), 1);
    const auto loaded = host.events("plugin_loaded");
    ASSERT_EQ(loaded.size(), 1U);
    EXPECT_EQ(loaded[0]["class"].asString(), "Orv Rendering");
    EXPECT_NE(loaded[0]["description"].asString(), "");
}

TEST_F(HostWithPlugin, HasItsMenuLastWithThreeItems) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu}));
    EXPECT_EQ(host.menu(kMenu), kEnglishItems);
}

TEST_F(HostWithPlugin, SpeaksChineseWhenTheHostDoes) {
    options.language = standin::Language::Chinese;
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu}));
    const Texts items = host.menu(kMenu);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_GE(items[0][0], L'\u4E00') << "a Chinese character was expected";
    EXPECT_NE(items[0], kEnglishItems[0]);
}

TEST_F(HostWithPlugin, KeepsOneMenuWhenTheMenuFileHasItAlready) {
    options.menuFile = menuFileOfAnEarlierRun();
    for (const bool late : {false, true}) {
        options.loadMenusLate = late;
        HostUnderTest host(options);
        ASSERT_TRUE(host->start());
        EXPECT_TRUE(host.events("menus_loaded")[0]["ok"].asBool());
        EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu})) << late;
        EXPECT_EQ(host.menu(kMenu), kEnglishItems) << late;
        ASSERT_TRUE(host->saveMenus(options.menuFile + L".again"));
        host->stop();
        // Stopping took the menu away and wrote the file without it; the next round needs it again.
        orv::test::WriteFileBytes(options.menuFile,
                                  orv::test::ReadFileBytes(options.menuFile + L".again"));
    }
}

TEST_F(HostWithPlugin, ComesBackWhenAMenuFileWithoutItIsReadLate) {
    const std::wstring plugins = options.pluginFolder;
    options.pluginFolder.clear();
    options.menuFile = menuFileOfAnEarlierRun();
    options.pluginFolder = plugins;
    options.loadMenusLate = true;
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu}));
    EXPECT_EQ(host.menu(kMenu), kEnglishItems);
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

TEST_F(HostWithPlugin, TakesAwayTheMenusOfEarlierReleases) {
    const std::string now = orv::test::ReadFileBytes(menuFileOfAnEarlierRun());
    options.menuFile = folder.file(L"old menus.txt");
    for (const char* oldTitle : {"Vantrel", "OrvCloud", "Orv Render"}) {
        const std::string old = Replaced(now, "Orv Rendering", oldTitle);
        ASSERT_NE(old, now);
        orv::test::WriteFileBytes(options.menuFile, old);
        HostUnderTest host(options);
        ASSERT_TRUE(host->start());
        EXPECT_TRUE(host.events("menus_loaded")[0]["ok"].asBool());
        EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu})) << oldTitle;
        EXPECT_EQ(host.menu(kMenu), kEnglishItems) << oldTitle;
        EXPECT_EQ(standin_find_menu(standin::ToWide(oldTitle).c_str()), nullptr) << oldTitle;
    }
}

TEST_F(HostWithPlugin, StartsWithAMenuFileThatIsDamaged) {
    options.menuFile = folder.write(L"menus.txt", "\xFF\xFE\0 no menu file at all {{{");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host.menuBar(), (Texts{L"&File", kMenu}));
}

TEST_F(HostWithPlugin, LeavesNoMenuWhenItStops) {
    options.menuFile = folder.file(L"menus.txt");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    host->stop();
    const std::string file = orv::test::ReadFileBytes(options.menuFile);
    EXPECT_NE(file.find("&File"), std::string::npos);
    EXPECT_EQ(file.find("Submit"), std::string::npos);
    EXPECT_EQ(standin_notification_count(), 0);
    EXPECT_EQ(standin_action_table_count(), 0);
}

TEST_F(HostWithPlugin, ShowsItsVersionFromTheMenu) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    orv::test::MessageBoxWatcher boxes;
    ASSERT_TRUE(host.choose(kMenu, kEnglishItems[2]));
    const auto seen = boxes.stop();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].caption, L"About Orv Rendering");
    EXPECT_EQ(seen[0].owner, nullptr);
    const auto ended = host.events("action_ended");
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_TRUE(ended[0]["handled"].asBool());
}

struct OwnedDialog {
    HWND owner;
    HWND dialog;
};

BOOL CALLBACK FindOwnedDialog(HWND window, LPARAM parameter) {
    auto* const search = reinterpret_cast<OwnedDialog*>(parameter);
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (std::wstring(name) != L"#32770" || GetWindow(window, GW_OWNER) != search->owner ||
        IsWindowVisible(window) == FALSE)
        return TRUE;
    search->dialog = window;
    return FALSE;
}

HWND DialogOver(HWND owner) {
    OwnedDialog search = {owner, nullptr};
    EnumWindows(&FindOwnedDialog, reinterpret_cast<LPARAM>(&search));
    return search.dialog;
}

// The dialog fills itself from the report before it is shown, then waits for the user in a message
// loop, inside the host's menu command.
TEST_F(HostWithPlugin, OpensItsDialogOverTheWindowAndReadsTheScene) {
    const orv::test::TestProductFolder product;
    product.installScripts();
    product.writeSettings("port=1\r\nlowerversion=1.0.0\r\n");
    folder.write(L"\u5BA2\u5385 1.max.json", R"({"cameras": ["Wide", "\u9910\u5385"]})");
    options.scenePath = folder.write(L"\u5BA2\u5385 1.max", "scene bytes");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    HWND window = host->window();

    bool listed = false;
    bool blocked = false;
    std::thread user([&] {
        listed = orv::test::WaitUntil([&] {
            HWND table = FindWindowExW(DialogOver(window), nullptr, WC_LISTVIEWW, nullptr);
            return table != nullptr && ListView_GetItemCount(table) == 2;
        });
        blocked = IsWindowEnabled(window) == FALSE;
        PostMessageW(DialogOver(window), WM_CLOSE, 0, 0);
    });
    const bool chosen = host.choose(kMenu, kEnglishItems[0]);
    user.join();

    EXPECT_TRUE(chosen);
    EXPECT_TRUE(listed) << "two cameras in the table";
    EXPECT_TRUE(blocked);
    EXPECT_TRUE(IsWindowEnabled(window));
    const auto scripts = host.events("script_run");
    ASSERT_EQ(scripts.size(), 1U);
    EXPECT_TRUE(scripts[0]["ok"].asBool()) << scripts[0]["error"].asString();
    EXPECT_EQ(host.events("action_ended").size(), 1U);
}

// What the host's libraries hold of menus, actions and notifications.
struct HostCounts {
    int registeredMenus = standin_registered_menu_count();
    int contexts = standin_menu_context_count();
    int menus = standin_live_menu_count();
    int items = standin_live_item_count();
    int tables = standin_action_table_count();
    int actionContexts = standin_action_context_count();
    int notifications = standin_notification_count();
    long long heapBlocks = standin_heap_block_count();
};

void ExpectSame(const HostCounts& now, const HostCounts& before, const char* when) {
    EXPECT_EQ(now.registeredMenus, before.registeredMenus) << when;
    EXPECT_EQ(now.contexts, before.contexts) << when;
    EXPECT_EQ(now.menus, before.menus) << when;
    EXPECT_EQ(now.items, before.items) << when;
    EXPECT_EQ(now.tables, before.tables) << when;
    EXPECT_EQ(now.actionContexts, before.actionContexts) << when;
    EXPECT_EQ(now.notifications, before.notifications) << when;
}

TEST_F(HostWithPlugin, StartsAndStopsFiftyTimesWithoutGrowth) {
    constexpr int kRounds = 50;
    constexpr int kWarmUp = 5; // the system's own caches fill in the first rounds
    HostCounts running;
    HostCounts stopped;
    ProcessCounts process;
    for (int round = 1; round <= kRounds; ++round) {
        HostUnderTest host(options);
        ASSERT_TRUE(host->start()) << round;
        host->pump();
        ASSERT_EQ(host.menuBar(), (Texts{L"&File", kMenu})) << round;
        ASSERT_EQ(host.menu(kMenu), kEnglishItems) << round;
        const HostCounts whileRunning;
        host->stop();
        const HostCounts afterStop;
        if (round == kWarmUp) {
            running = whileRunning;
            stopped = afterStop;
            process = CountProcess();
        } else if (round > kWarmUp) {
            ExpectSame(whileRunning, running, "while it runs");
            ExpectSame(afterStop, stopped, "after it stopped");
        }
    }
    const ProcessCounts now = CountProcess();
    const HostCounts end;
    std::cout << "after round " << kWarmUp << ": " << process << ", " << stopped.heapBlocks
              << " heap blocks; after round " << kRounds << ": " << now << ", " << end.heapBlocks
              << " heap blocks\n";
    EXPECT_EQ(now.handles, process.handles);
    EXPECT_EQ(now.gdiObjects, process.gdiObjects);
    EXPECT_EQ(now.windows, process.windows);
    EXPECT_EQ(now.threads, process.threads);
    EXPECT_EQ(end.notifications, 0);
    EXPECT_EQ(end.tables, 0);
    // Each start activates the action table with two callbacks, which live as long as the process.
    EXPECT_LE(end.heapBlocks - stopped.heapBlocks, 2 * (kRounds - kWarmUp));
}

struct RefusedLibrary {
    const wchar_t* file;
    const char* reason; // a part of it
};

class RefusedLibraries : public HostWithPlugin,
                         public ::testing::WithParamInterface<RefusedLibrary> {};

TEST_P(RefusedLibraries, AreToldAndDoNotKeepTheOthersOut) {
    orv::test::WriteFileBytes(
        options.pluginFolder + L"\\a.gup",
        orv::test::ReadFileBytes(orv::test::ProgramFolder() + L"\\" + GetParam().file));
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    const auto refused = host.events("plugin_refused");
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_NE(refused[0]["reason"].asString().find(GetParam().reason), std::string::npos)
        << refused[0]["reason"].asString();
    EXPECT_EQ(host->pluginCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Libraries, RefusedLibraries,
    ::testing::Values(RefusedLibrary{L"refused\\wrong_version.gup", "0x52083401"},
                      RefusedLibrary{L"refused\\no_class_descriptor.gup",
                                     "does not export LibClassDesc"},
                      RefusedLibrary{L"refused\\will_not_initialise.gup", "LibInitialize failed"}));

} // namespace
