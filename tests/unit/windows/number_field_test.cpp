// The rules of the fields for numbers.
#include "windows/number_field.h"

#include "tests/support/test_window.h"
#include "windows/controls.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

struct TextPair {
    std::wstring typed;
    std::wstring kept;
};

TEST(FilterDecimal, LetsDigitsAndOnePointThrough) {
    for (const TextPair& row : {
             TextPair{L"", L""},
             TextPair{L"7", L"7"},
             TextPair{L"12.345", L"12.345"},
             TextPair{L"12.3456", L"12.345"},
             TextPair{L"12.34567890", L"12.345"},
             TextPair{L"12.", L"12."},
             TextPair{L".", L"."},
             TextPair{L".5", L".5"},
             TextPair{L"1a", L"0.00"},
             TextPair{L"1.2.3", L"0.00"},
             TextPair{L"..", L"0.00"},
             TextPair{L"-1", L"0.00"},
             TextPair{L"+1", L"0.00"},
             TextPair{L"1,5", L"0.00"},
             TextPair{L"1e3", L"0.00"},
             TextPair{L" 1", L"0.00"},
             TextPair{L"12a4", L"0.00"}, // as long as what replaces it
             TextPair{L"\uFF11", L"0.00"},
             TextPair{L"\u4E94", L"0.00"},
             TextPair{std::wstring(3000, L'9'), std::wstring(3000, L'9')},
         })
        EXPECT_EQ(FilterDecimal(row.typed, 3), row.kept);
}

TEST(FilterDecimal, CutsToTheDigitsAskedFor) {
    EXPECT_EQ(FilterDecimal(L"1.2345", 0), L"1.");
    EXPECT_EQ(FilterDecimal(L"1.2345", 1), L"1.2");
    EXPECT_EQ(FilterDecimal(L"1.2345", 4), L"1.2345");
    EXPECT_EQ(FilterDecimal(L"1.2345", 5), L"1.2345");
}

TEST(ClampDecimal, KeepsANumberInItsRange) {
    const DecimalRange range = {0.5, 239.0};
    for (const TextPair& row : {
             TextPair{L"239", L"239"},
             TextPair{L"239.0", L"239.0"},
             TextPair{L"239.001", L"239.00"},
             TextPair{L"240", L"239.00"},
             TextPair{L"0.5", L"0.5"},
             TextPair{L"0.499", L"0.50"},
             TextPair{L"0", L"0.50"},
             TextPair{L"", L"0.50"},
             TextPair{L".", L"0.50"},
             TextPair{L"05", L"5.000"},
             TextPair{L"007.25", L"7.250"},
             TextPair{L"5.", L"5."},
             TextPair{L"1.500", L"1.500"},
             TextPair{std::wstring(3000, L'9'), L"239.00"},
         })
        EXPECT_EQ(ClampDecimal(row.typed, range), row.kept) << row.typed.size();
}

TEST(ClampDecimal, LeavesAnEmptyFieldAloneWhereZeroIsAllowed) {
    const DecimalRange range = {0.0, 239.0};
    EXPECT_EQ(ClampDecimal(L"", range), L"");
    EXPECT_EQ(ClampDecimal(L"0", range), L"0");
    EXPECT_EQ(ClampDecimal(L"0.0", range), L"0.0");
    EXPECT_EQ(ClampDecimal(L"00", range), L"0.000");
}

// The rules keep their own result: writing to an edit sends another notification.
TEST(DecimalRules, SettleAfterOnce) {
    const DecimalRange range = {0.0, 239.0};
    for (const wchar_t* typed : {L"1a", L"00", L"05", L"999", L"12.3456", L"", L"0.00", L"-5"}) {
        const std::wstring once = ClampDecimal(FilterDecimal(typed, 3), range);
        EXPECT_EQ(ClampDecimal(FilterDecimal(once, 3), range), once);
    }
}

TEST(ClampWholeNumber, KeepsAWholeNumberInItsRange) {
    for (const TextPair& row : {
             TextPair{L"1", L"2"},
             TextPair{L"2", L"2"},
             TextPair{L"10", L"10"},
             TextPair{L"11", L"10"},
             TextPair{L"3.0", L"3"},
             TextPair{L"07", L"7"},
             TextPair{L"", L"2"},
             TextPair{L"-3", L"2"},
             TextPair{L"abc", L"2"},
             TextPair{L"4294967301", L"10"}, // 5, if its upper half were lost
             TextPair{std::wstring(3000, L'9'), L"10"},
         })
        EXPECT_EQ(ClampWholeNumber(row.typed, 2, 10), row.kept);
}

TEST(StepDecimal, ChangesTheNumberByItsStepsWithinTheRange) {
    struct Case {
        std::wstring text;
        int steps;
        double step;
        DecimalRange range;
        std::wstring result;
    };
    const DecimalRange gamma = {0.1, 5.0};
    const DecimalRange radius = {10.0, 1000000000.0};
    const DecimalRange blocks = {2.0, 10.0};
    const DecimalRange hours = {0.0, 239.0};
    for (const Case& row : {
             Case{L"2.2", 1, 0.1, gamma, L"2.3"},
             Case{L"2.2", -1, 0.1, gamma, L"2.1"},
             Case{L"2.2", 5, 0.1, gamma, L"2.7"}, // held down, the arrows go faster
             Case{L"0.1", -1, 0.1, gamma, L"0.1"},
             Case{L"4.95", 1, 0.1, gamma, L"5.0"},
             Case{L"5.0", 1, 0.1, gamma, L"5.0"},
             Case{L"", 1, 0.1, gamma, L"0.1"},
             Case{L"no number", 1, 0.1, gamma, L"0.1"},
             Case{L"10.0", -1, 0.1, radius, L"10.0"},
             Case{L"10.1", -1, 0.1, radius, L"10.0"},
             Case{L"1000.0", 1, 0.1, radius, L"1000.1"},
             Case{L"1000000000.0", 1, 0.1, radius, L"1000000000.0"},
             Case{L"9", 1, 1.0, blocks, L"10.0"},
             Case{L"10", 1, 1.0, blocks, L"10.0"},
             Case{L"2", -1, 1.0, blocks, L"2.0"},
             Case{L"238.95", 1, 0.1, hours, L"239.0"},
             Case{L"239.0", 1, 0.1, hours, L"239.0"},
             Case{L"0.0", -1, 0.1, hours, L"0.0"},
         })
        EXPECT_EQ(StepDecimal(row.text, row.steps, row.step, row.range), row.result) << row.steps;
}

class NumberFieldOfADialog : public ::testing::Test {
protected:
    NumberFieldOfADialog() {
        ::CreateWindowExW(0, UPDOWN_CLASSW, L"", WS_CHILD, 0, 0, 10, 10, dialog(),
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(kArrows)), nullptr, nullptr);
    }
    HWND dialog() const { return ::GetParent(edit_.get()); }
    std::wstring text() const { return Edit(edit_.get()).text(); }
    static NumberRules hours(int arrowsMinimum = 0, int arrowsMaximum = 239) {
        return {TestWindow::kControlId, kArrows,       {0.0, 239.0}, 0.0, TypedText::Decimal, 0.1,
                arrowsMinimum,          arrowsMaximum, L"0.0"};
    }

    static constexpr int kArrows = TestWindow::kControlId + 1;
    const TestWindow edit_{L"EDIT"};
};

TEST_F(NumberFieldOfADialog, OpensWithItsTextAndItsArrowsRange) {
    const NumberRules rules = hours(3, 240);
    NumberField(dialog(), rules).open();
    EXPECT_EQ(text(), L"0.0");
    int minimum = 0;
    int maximum = 0;
    ::SendDlgItemMessageW(dialog(), kArrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&minimum),
                          reinterpret_cast<LPARAM>(&maximum));
    EXPECT_EQ(minimum, 3);
    EXPECT_EQ(maximum, 240);
}

TEST_F(NumberFieldOfADialog, LeavesATextAloneThatIsFilledOtherwise) {
    const NumberRules rules = {
        TestWindow::kControlId, kArrows, {0.0, 5.0}, 0.0, TypedText::Decimal, 0.1, 0, 5, nullptr};
    Edit(edit_.get()).setText(L"2.2");
    NumberField(dialog(), rules).open();
    EXPECT_EQ(text(), L"2.2");
}

TEST_F(NumberFieldOfADialog, BringsWhatIsTypedUnderItsRules) {
    const NumberRules rules = hours();
    const NumberField field(dialog(), rules);
    Edit(edit_.get()).setText(L"240");
    field.applyRules();
    EXPECT_EQ(text(), L"239.00");
    // A text that obeys them is not set again: an edit forgets then that it was typed into.
    ::SendMessageW(edit_.get(), EM_SETMODIFY, TRUE, 0);
    field.applyRules();
    EXPECT_TRUE(::SendMessageW(edit_.get(), EM_GETMODIFY, 0, 0));
}

// The user types 25 in two steps, of which the first is below the range.
TEST_F(NumberFieldOfADialog, KeepsWhatANumberBeginsWithUntilTheUserLeavesIt) {
    const NumberRules rules = {
        TestWindow::kControlId, kArrows, {10.0, 99.0}, 1.0, TypedText::Decimal, 0.1, 0, 0, nullptr};
    const NumberField field(dialog(), rules);
    ::ShowWindow(dialog(), SW_SHOW);
    ::SetFocus(edit_.get());
    ASSERT_EQ(::GetFocus(), edit_.get());
    for (const TextPair& row : {TextPair{L"2", L"2"}, TextPair{L"0", L"1.00"},
                                TextPair{L"100", L"99.00"}, TextPair{L"x", L"1.00"}}) {
        Edit(edit_.get()).setText(row.typed);
        field.applyRules();
        EXPECT_EQ(text(), row.kept);
    }
    Edit(edit_.get()).setText(L"2");
    field.settle();
    EXPECT_EQ(text(), L"10.00");

    ::SetFocus(nullptr);
    Edit(edit_.get()).setText(L"2"); // by the dialog, not by typing
    field.applyRules();
    EXPECT_EQ(text(), L"10.00");
}

TEST_F(NumberFieldOfADialog, StepsUnlessItsArrowsCountByThemselves) {
    NumberRules rules = hours();
    const NumberField field(dialog(), rules);
    field.open();
    EXPECT_TRUE(field.step(3));
    EXPECT_EQ(text(), L"0.3");
    rules.step = kOwnCount;
    EXPECT_FALSE(field.step(1));
    EXPECT_EQ(text(), L"0.3");
}

} // namespace
} // namespace test
} // namespace orv
