// The rules of the main dialog that need no window.
#include "resources/controls.h"
#include "ui/main_dialog/main_controls.h"
#include "ui/main_dialog/main_layout.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(BlockMode, FollowsTheRadioButton) {
    EXPECT_EQ(BlockModeOf(1030), 1);
    EXPECT_EQ(BlockModeOf(1031), 10);
    EXPECT_EQ(BlockModeOf(1032), 64);
    EXPECT_EQ(BlockModeOf(1033), 1010);
    EXPECT_EQ(BlockModeOf(1029), 0);
    EXPECT_EQ(BlockModeOf(1034), 0);
}

TEST(BlockMode, AllowsTheMaterialChannelUnlessTheImageIsCut) {
    EXPECT_TRUE(IsMaterialChannelPossible(1));
    EXPECT_FALSE(IsMaterialChannelPossible(10));
    EXPECT_FALSE(IsMaterialChannelPossible(64));
    EXPECT_TRUE(IsMaterialChannelPossible(1010));
}

struct Row {
    int id;
    int english;
    int chinese;
};

// From left to right, at 96 dots per inch.
const Row kLimitRow[] = {
    {1061, 38, 48},   {1054, 88, 98},   {1154, 162, 172}, {1012, 183, 193}, {1058, 220, 220},
    {1045, 278, 268}, {1148, 350, 342}, {1059, 370, 365}, {1064, 390, 395}, {1047, 475, 445},
    {1147, 549, 519}, {1063, 570, 540}, {1060, 610, 610}, {1039, 690, 690},
};

TEST(LimitRow, StandsAtItsPlacesTimesTheScale) {
    for (const bool isChinese : {false, true}) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            const std::vector<ControlPosition> row = LimitRowPositions(scale, isChinese);
            ASSERT_EQ(row.size(), sizeof(kLimitRow) / sizeof(kLimitRow[0]));
            for (std::size_t index = 0; index < row.size(); ++index) {
                const Row& expected = kLimitRow[index];
                const int base = isChinese ? expected.chinese : expected.english;
                EXPECT_EQ(row[index].id, expected.id);
                EXPECT_NEAR(row[index].left, base * scale, 0.5) << expected.id;
            }
        }
    }
}

TEST(LimitRow, RoundsToWholePixels) {
    EXPECT_EQ(LimitRowPositions(1.25, false)[0].left, 48); // 47.5
    EXPECT_EQ(LimitRowPositions(1.25, false)[1].left, 110);
    EXPECT_EQ(LimitRowPositions(1.25, false)[2].left, 203); // 202.5
}

TEST(MainDialogSize, GrowsWithTheScale) {
    struct Case {
        double scale;
        double width; // where the texts are Chinese; others 20 less
        double height;
    };
    for (const Case& row : {
             Case{1.0, 375.0, 371.0}, Case{1.25, 562.5, 556.5}, // 468.75 + 93.75, 463.75 + 92.75
             Case{1.5, 618.75, 612.15},                         // 562.5 + 56.25, 556.5 + 55.65
             Case{1.75, 750.0, 742.0},                          // 656.25 + 93.75, 649.25 + 92.75
             Case{2.0, 843.75, 834.75},                         // 750 + 93.75, 742 + 92.75
         }) {
        EXPECT_NEAR(MainDialogSize(row.scale, true).width, row.width, 0.001);
        EXPECT_NEAR(MainDialogSize(row.scale, false).width, row.width - 20.0, 0.001);
        EXPECT_NEAR(MainDialogSize(row.scale, true).height, row.height, 0.001);
        EXPECT_NEAR(MainDialogSize(row.scale, false).height, row.height, 0.001);
    }
}

TEST(NumberFields, HaveTheirEditStepAndRange) {
    struct Case {
        int arrows;
        int edit;
        double step; // 0 for arrows that count by themselves
        DecimalRange range;
    };
    for (const Case& row : {
             Case{1048, 1039, 0.1, {0.1, 5.0}},
             Case{1049, 1040, 0.1, {10.0, 1000000000.0}},
             Case{1076, 1075, 1.0, {2.0, 10.0}},
             Case{1147, 1047, 0.1, {0.0, 239.0}},
             Case{1148, 1045, 0.1, {0.0, 100.0}},
             Case{1046, 1037, 0.0, {1.0, 1000.0}},
             Case{1154, 1054, 0.0, {0.0, 2147483647.0}},
         }) {
        const NumberRules* rules = FindNumberField(row.arrows);
        ASSERT_NE(rules, nullptr) << row.arrows;
        EXPECT_EQ(FindNumberField(row.edit), rules);
        EXPECT_EQ(rules->edit, row.edit);
        EXPECT_EQ(rules->step, row.step);
        EXPECT_EQ(rules->range.minimum, row.range.minimum);
        EXPECT_EQ(rules->range.maximum, row.range.maximum);
    }
    EXPECT_EQ(FindNumberField(1036), nullptr); // the scene's name
}

TEST(NumberFields, KeepWhatIsTypedInTheirRange) {
    struct Case {
        int edit;
        std::wstring typed;
        std::wstring kept;
    };
    for (const Case& row : {
             Case{1047, L"239.5", L"239.00"},
             Case{1047, L"1.23456", L"1.234"},
             Case{1047, L"x", L"0.00"},
             Case{1047, L"012", L"12.000"},
             Case{1045, L"100.5", L"100.00"},
             Case{1045, L"99.99999", L"99.999"},
             Case{1045, L"-1", L"0.00"},
             Case{1054, L"2147483648", L"2147483647"},
             Case{1054, L"-1", L"0"},
             Case{1054, L"12 passes", L"12"},
             Case{1075, L"1", L"2"},
             Case{1075, L"11", L"10"},
             Case{1075, L"5", L"5"},
             Case{1037, L"1001", L"1000"},
             Case{1037, L"0", L"1"},
             Case{1037, L"24.7", L"24"},
             Case{1037, L"x", L"1"},
             Case{1039, L"5.1", L"5.00"},
             Case{1039, L"0.05", L"0.10"},
             Case{1039, L"1.23456", L"1.234"},
             Case{1039, L"x", L"0.10"},
             Case{1040, L"9.9", L"10.00"},
             Case{1040, L"1000000001", L"1000000000.00"},
             Case{1040, L"12.34567", L"12.345"},
             Case{1040, L"-20", L"10.00"},
         }) {
        const NumberRules* rules = FindNumberField(row.edit);
        ASSERT_NE(rules, nullptr) << row.edit;
        EXPECT_EQ(TextByRules(*rules, row.typed), row.kept) << row.edit;
    }
}

TEST(NumberFields, LetTheUserBeginANumberBelowTheirRange) {
    struct Case {
        int edit;
        std::wstring typed;
        std::wstring kept;
    };
    for (const Case& row : {
             Case{1037, L"0", L"0"}, Case{1039, L"0.", L"0."}, Case{1040, L"2", L"2"},
             Case{1075, L"1", L"2"}, // the number of blocks is never below
         }) {
        const NumberRules* rules = FindNumberField(row.edit);
        ASSERT_NE(rules, nullptr) << row.edit;
        EXPECT_EQ(TextWhileTyped(*rules, row.typed), row.kept) << row.edit;
    }
}

} // namespace
} // namespace test
} // namespace orv
