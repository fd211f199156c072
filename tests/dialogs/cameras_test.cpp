// Working with the cameras in the dialog of the plug-in in a host.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

class Cameras : public ::testing::Test {
protected:
    void SetUp() override {
        host_.start();
        window_ = host_.openDialog();
        ASSERT_NE(window_, nullptr);
    }
    std::string ticks() const { return Ticks(window_, IDC_CAMERAS); }

    HostInProcess host_;
    HWND window_ = nullptr;
};

TEST_F(Cameras, AreTickedByClicksOnTheirCheckBoxes) {
    ClickCheckBox(window_, IDC_CAMERAS, 0);
    ClickCheckBox(window_, IDC_CAMERAS, 2);
    EXPECT_EQ(ticks(), "101");
    ClickCheckBox(window_, IDC_CAMERAS, 0);
    EXPECT_EQ(ticks(), "001");
}

TEST_F(Cameras, AreTickedByTheSpaceBarFromTheFirstOn) {
    PressKey(window_, IDC_CAMERAS, VK_SPACE);
    EXPECT_EQ(ticks(), "100");
    PressKey(window_, IDC_CAMERAS, VK_DOWN);
    PressKey(window_, IDC_CAMERAS, VK_SPACE);
    EXPECT_EQ(ticks(), "110");
}

TEST_F(Cameras, AreAllTickedBySelectAll) {
    ClickCheckBox(window_, IDC_CAMERAS, 1);
    Press(window_, IDC_SELECT_ALL);
    EXPECT_EQ(ticks(), "111");
}

TEST_F(Cameras, AreInvertedFromWhatTheUserTicked) {
    ClickCheckBox(window_, IDC_CAMERAS, 1);
    Press(window_, IDC_INVERT_SELECTION);
    EXPECT_EQ(ticks(), "101");
    Press(window_, IDC_INVERT_SELECTION);
    EXPECT_EQ(ticks(), "010");
}

TEST_F(Cameras, AreRebuiltByTheSubmissionsMessage) {
    ClickCheckBox(window_, IDC_CAMERAS, 1);
    Press(window_, IDC_INVERT_SELECTION);
    ::SendMessageW(window_, WM_USER + 1, 0, 0);
    EXPECT_EQ(ticks(), "101");
    EXPECT_EQ(Lines(window_, IDC_WARNINGS).size(), 3U);
}

TEST_F(Cameras, KeepTheirTicksWhenTheSceneIsAnalysedAgain) {
    ClickCheckBox(window_, IDC_CAMERAS, 1);
    Press(window_, IDC_ANALYSE_AGAIN);
    ASSERT_TRUE(WaitUntil([this] { return host_.events("script_run").size() == 2; }));
    EXPECT_EQ(ticks(), "010");
    EXPECT_EQ(Lines(window_, IDC_WARNINGS).size(), 3U); // not the earlier ones once more
}

} // namespace
} // namespace test
} // namespace orv
