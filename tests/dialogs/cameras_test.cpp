// Working with the cameras in the dialog of the plug-in in a host.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

#include <commctrl.h>

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
    bool canEditSelected() const {
        return ::IsWindowEnabled(::GetDlgItem(window_, IDC_EDIT_CAMERAS)) != FALSE;
    }
    LRESULT selectedRows() const {
        return ::SendDlgItemMessageW(window_, IDC_CAMERAS, LVM_GETSELECTEDCOUNT, 0, 0);
    }
    void selectTwoRows() const {
        ClickRow(window_, IDC_CAMERAS, 0);
        ClickRow(window_, IDC_CAMERAS, 2, MK_CONTROL);
        ASSERT_EQ(selectedRows(), 2);
        ASSERT_TRUE(canEditSelected());
    }

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

TEST_F(Cameras, AreEditedTogetherWhileMoreThanOneIsSelected) {
    EXPECT_FALSE(canEditSelected());
    ClickRow(window_, IDC_CAMERAS, 0);
    EXPECT_FALSE(canEditSelected()) << "one alone is edited by a double click";
    ClickRow(window_, IDC_CAMERAS, 2, MK_CONTROL);
    EXPECT_TRUE(canEditSelected());
    ClickRow(window_, IDC_CAMERAS, 2, MK_CONTROL);
    EXPECT_EQ(selectedRows(), 1);
    EXPECT_FALSE(canEditSelected());
    ClickRow(window_, IDC_CAMERAS, 1, MK_CONTROL);
    EXPECT_TRUE(canEditSelected());
    PressKey(window_, IDC_CAMERAS, VK_UP);
    EXPECT_EQ(selectedRows(), 1);
    EXPECT_FALSE(canEditSelected());
}

// Whatever fills the table anew.
TEST_F(Cameras, AreNotEditedTogetherWhenTheirRowsAreNew) {
    for (const int button : {IDC_SELECT_ALL, IDC_INVERT_SELECTION, IDC_ANALYSE_AGAIN}) {
        ASSERT_NO_FATAL_FAILURE(selectTwoRows());
        Press(window_, button);
        EXPECT_EQ(selectedRows(), 0) << button;
        EXPECT_FALSE(canEditSelected()) << button;
    }
    ASSERT_NO_FATAL_FAILURE(selectTwoRows());
    ::SendMessageW(window_, WM_USER + 1, 0, 0);
    EXPECT_EQ(selectedRows(), 0);
    EXPECT_FALSE(canEditSelected());
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
