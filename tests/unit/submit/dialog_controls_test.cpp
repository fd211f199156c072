#include "submit/dialog_input/dialog_controls.h"

#include "resources/controls.h"
#include "tests/unit/submit/test_dialog.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv {
namespace test {
namespace {

constexpr int kAbsent = 4711;

TEST(DialogControls, AreReadFromAnotherThread) {
    const TestDialog dialog;
    dialog.setText(IDC_GAMMA, L"2.25");
    dialog.setText(IDC_SCENE_NAME, L"\x573A\x666F one \xD83C\xDFA5");
    dialog.check(IDC_AO_CHANNEL);
    EXPECT_DOUBLE_EQ(ControlNumber(dialog.handle(), IDC_GAMMA), 2.25);
    EXPECT_EQ(ControlWholeNumber(dialog.handle(), IDC_GAMMA), 2);
    EXPECT_EQ(ControlText(dialog.handle(), IDC_SCENE_NAME), L"\x573A\x666F one \xD83C\xDFA5");
    EXPECT_TRUE(IsChecked(dialog.handle(), IDC_AO_CHANNEL));
    EXPECT_FALSE(IsChecked(dialog.handle(), IDC_COLOR_CHANNEL));
}

TEST(DialogControls, OfWhichNoneExistsReadAsNothing) {
    const TestDialog dialog;
    EXPECT_FALSE(IsChecked(dialog.handle(), kAbsent));
    EXPECT_EQ(ControlText(dialog.handle(), kAbsent), L"");
    EXPECT_DOUBLE_EQ(ControlNumber(dialog.handle(), kAbsent), 0.0);
    EXPECT_EQ(ControlWholeNumber(nullptr, kAbsent), 0);
    EXPECT_FALSE(HasControl(dialog.handle(), kAbsent));
    EXPECT_TRUE(HasControl(dialog.handle(), IDC_GAMMA));
}

TEST(DialogControls, CountAsCheckedOnlyWhenTheyAreFullyChecked) {
    const TestDialog dialog;
    dialog.check(IDC_PSD_CHANNEL, BST_INDETERMINATE);
    EXPECT_FALSE(IsChecked(dialog.handle(), IDC_PSD_CHANNEL));
}

TEST(DialogControls, ReadLongTextsWhole) {
    const TestDialog dialog;
    const std::wstring text(20000, L'x');
    ::SendMessageW(dialog.control(IDC_SCENE_NAME), EM_SETLIMITTEXT, 30000, 0);
    dialog.setText(IDC_SCENE_NAME, text);
    EXPECT_EQ(ControlText(dialog.handle(), IDC_SCENE_NAME), text);
}

TEST(Truncated, CutsTowardsZeroAndStaysWithin32Bits) {
    EXPECT_EQ(Truncated(1.9), 1);
    EXPECT_EQ(Truncated(-1.9), -1);
    EXPECT_EQ(Truncated(1e300), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(Truncated(-1e300), std::numeric_limits<std::int32_t>::min());
}

} // namespace
} // namespace test
} // namespace orv
