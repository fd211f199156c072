// The record of what was chosen, as the dialog's thread reads it and as another one gets it.
#include "config/dialog_choices.h"
#include "resources/controls.h"
#include "tests/unit/submit/test_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

using ::testing::SizeIs;

HWND Gone() {
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFFFFF0));
}

class DialogChoices : public ::testing::Test {
protected:
    TestDialog dialog_;
    SubmissionChoices choices_;
};

TEST_F(DialogChoices, HoldAllThatStandsInTheDialog) {
    dialog_.setCameras({{L"a", true}, {L"\x76F8\x673A", false}});
    dialog_.setText(IDC_SCENE_NAME, L"\x573A\x666F one \xD83C\xDFA5");
    dialog_.setText(IDC_GAMMA, L"2.25");
    dialog_.check(IDC_AO_CHANNEL);
    dialog_.check(IDC_SAVE_SCENE_FILE);
    dialog_.check(IDC_BACK_UP_SCENE);
    dialog_.check(IDC_PSD_CHANNEL, BST_INDETERMINATE);
    dialog_.select(IDC_GI_SCALE, 2);
    ASSERT_TRUE(TakeChoices(dialog_.handle(), choices_));

    EXPECT_TRUE(choices_.hasCameraTable);
    ASSERT_THAT(choices_.cameras, SizeIs(2));
    EXPECT_EQ(choices_.cameras[0].name, L"a");
    EXPECT_TRUE(choices_.cameras[0].isChecked);
    EXPECT_EQ(choices_.cameras[1].name, L"\x76F8\x673A");
    EXPECT_FALSE(choices_.cameras[1].isChecked);
    EXPECT_EQ(choices_.text(IDC_SCENE_NAME), L"\x573A\x666F one \xD83C\xDFA5");
    EXPECT_EQ(choices_.text(IDC_GAMMA), L"2.25");
    EXPECT_TRUE(choices_.isChecked(IDC_AO_CHANNEL));
    EXPECT_TRUE(choices_.isChecked(IDC_SAVE_SCENE_FILE));
    EXPECT_TRUE(choices_.isChecked(IDC_BACK_UP_SCENE));
    EXPECT_FALSE(choices_.isChecked(IDC_COLOR_CHANNEL));
    EXPECT_FALSE(choices_.isChecked(IDC_PSD_CHANNEL)) << "neither ticked nor unticked";
    EXPECT_EQ(choices_.boxState(IDC_PSD_CHANNEL), 2U);
    EXPECT_EQ(choices_.selection(IDC_GI_SCALE), 2);
}

TEST_F(DialogChoices, LeaveOutWhatTheDialogHasNot) {
    dialog_.takeAway(IDC_GAMMA);
    dialog_.takeAway(IDC_CAMERAS);
    ASSERT_TRUE(TakeChoices(dialog_.handle(), choices_));
    EXPECT_EQ(choices_.texts.count(IDC_GAMMA), 0U);
    EXPECT_EQ(choices_.texts.count(IDC_SCENE_NAME), 1U);
    EXPECT_FALSE(choices_.hasCameraTable);
}

TEST_F(DialogChoices, HoldLongTextsWhole) {
    const std::wstring text(20000, L'x');
    ::SendMessageW(dialog_.control(IDC_SCENE_NAME), EM_SETLIMITTEXT, 30000, 0);
    dialog_.setText(IDC_SCENE_NAME, text);
    ASSERT_TRUE(TakeChoices(dialog_.handle(), choices_));
    EXPECT_EQ(choices_.text(IDC_SCENE_NAME), text);
}

TEST_F(DialogChoices, OfADialogThatIsGoneAreNotKnown) {
    choices_.texts[IDC_SCENE_NAME] = L"from before";
    for (HWND window : {Gone(), HWND{nullptr}, ::GetDesktopWindow()}) {
        EXPECT_FALSE(TakeChoices(window, choices_));
        EXPECT_EQ(choices_.text(IDC_SCENE_NAME), L"from before");
    }
}

TEST_F(DialogChoices, AreNotKnownWhenACheckBoxCannotBeRead) {
    dialog_.setCameras({{L"a", true}});
    ::SendMessageW(dialog_.control(IDC_CAMERAS), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES,
                   0); // its rows have no image any more
    LVITEMW item = {};
    item.stateMask = LVIS_STATEIMAGEMASK;
    ::SendMessageW(dialog_.control(IDC_CAMERAS), LVM_SETITEMSTATE, 0,
                   reinterpret_cast<LPARAM>(&item));
    EXPECT_FALSE(TakeChoices(dialog_.handle(), choices_));
    EXPECT_FALSE(choices_.hasCameraTable);
}

TEST_F(DialogChoices, AreGivenToNobodyWhoHasNotAskedForThem) {
    for (const WPARAM number : {WPARAM{0}, WPARAM{1}, ~WPARAM{0}})
        EXPECT_EQ(::SendMessageW(dialog_.handle(), kTakeChoices, number, 0x1000), 0);
    EXPECT_TRUE(TakeChoices(dialog_.handle(), choices_));
}

} // namespace
} // namespace test
} // namespace orv
