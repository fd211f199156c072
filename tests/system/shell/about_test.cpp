// The second command's message box, read and answered as a user does.
#include "tests/support/box_languages.h"
#include "tests/support/message_box_watcher.h"
#include "tests/system/shell/plugin_in_host.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

SeenMessageBox ShowAbout(unsigned short language) {
    BareHost host;
    const PluginInHost plugin(language);
    const BoxLanguages languages(plugin.module());
    MessageBoxWatcher watcher;
    EXPECT_TRUE(standin_run_action(kTable, kAbout));
    const auto boxes = watcher.stop();
    EXPECT_EQ(boxes.size(), 1U);
    const WORD expected = language == kEnglish ? kEnglish : WORD{1};
    EXPECT_EQ(languages.asked(), std::vector<WORD>{expected});
    return boxes.empty() ? SeenMessageBox() : boxes[0];
}

TEST(About, ShowsTheVersionInEnglish) {
    const SeenMessageBox box = ShowAbout(kEnglish);
    EXPECT_EQ(box.caption, L"About Orv Rendering");
    EXPECT_EQ(box.text, L"Orv Rendering 1.3.7\n\nSends the scene that is open in 3ds Max to the "
                        L"render farm.");
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_EQ(box.owner, nullptr);
}

TEST(About, ShowsTheVersionInChinese) {
    const SeenMessageBox box = ShowAbout(kChinese);
    EXPECT_EQ(box.caption, L"\u5173\u4E8E Orv Rendering");
    EXPECT_EQ(box.text.substr(0, 19), L"Orv Rendering 1.3.7");
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
}

TEST(Actions, UnknownCommandsAreNotTheTables) {
    BareHost host;
    const PluginInHost plugin;
    EXPECT_FALSE(standin_run_action(kTable, 1499));
    EXPECT_FALSE(standin_run_action(0x1111, kAbout));
}

TEST(Actions, WorkNoLongerWhenThePluginIsGone) {
    BareHost host;
    { const PluginInHost plugin; }
    EXPECT_FALSE(standin_run_action(kTable, kAbout));
}

} // namespace
} // namespace test
} // namespace orv
