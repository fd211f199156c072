#include "ui/camera_table/warnings_list.h"

#include "base/handles.h"
#include "log/module_log.h"
#include "tests/support/test_window.h"
#include "tests/unit/ui/ui_log.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(WarningLines, AreMessagesThenAdviceThenProblemFilesWithoutInformation) {
    SceneAnalysis analysis;
    analysis.messages = {{kInfo, "No errors!", L""},
                         {kWarn, "recorded", L"w \u6444"},
                         {kError, "e", L"e"},
                         {kInfo, "Done", L""}};
    analysis.tips = {L"heading", L"tip"};
    analysis.problemFiles = {L"missing:", L"a.jpg"};

    const std::vector<std::wstring> expected = {L"w \u6444", L"e",        L"heading",
                                                L"tip",      L"missing:", L"a.jpg"};
    EXPECT_EQ(WarningLines(analysis), expected);
}

TEST(WarningLines, AreNoneForASceneWithoutFaults) {
    SceneAnalysis analysis;
    analysis.messages = {{kInfo, "No errors!", L""}};
    EXPECT_TRUE(WarningLines(analysis).empty());
}

class WarningsListBox : public ::testing::Test {
protected:
    LRESULT extent() const { return ::SendMessageW(list_.get(), LB_GETHORIZONTALEXTENT, 0, 0); }

    UiLog log_;
    const TestWindow list_{L"LISTBOX", WS_HSCROLL | WS_VSCROLL};
};

TEST_F(WarningsListBox, HoldsEachLineAndReplacesEarlierOnes) {
    FillWarnings(list_.get(), {L"old"});
    FillWarnings(list_.get(), {L"first", L"\u8B66\u544A"});

    ASSERT_EQ(::SendMessageW(list_.get(), LB_GETCOUNT, 0, 0), 2);
    wchar_t text[32] = {};
    ::SendMessageW(list_.get(), LB_GETTEXT, 1, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"\u8B66\u544A");
    EXPECT_EQ(log_.lastLine(), "[INFO] Get warnning infomation of current scene successfully.");
}

TEST_F(WarningsListBox, ScrollsToTheEndOfItsWidestLine) {
    FillWarnings(list_.get(), {std::wstring(100, L'm'), L"i"});
    const LRESULT wide = extent();
    FillWarnings(list_.get(), {L"i", std::wstring(50, L'm')});
    const LRESULT narrow = extent();
    FillWarnings(list_.get(), {});

    EXPECT_GT(narrow, 0);
    EXPECT_GT(wide, narrow * 3 / 2);
    EXPECT_LT(wide, narrow * 2);
    EXPECT_EQ(extent(), 0);
}

TEST_F(WarningsListBox, MeasuresInItsOwnFont) {
    FillWarnings(list_.get(), {L"measured"});
    const LRESULT before = extent();
    const FontHandle large(
        ::CreateFontW(-60, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Segoe UI"));
    ::SendMessageW(list_.get(), WM_SETFONT, reinterpret_cast<WPARAM>(large.get()), FALSE);
    FillWarnings(list_.get(), {L"measured"});
    EXPECT_GT(extent(), before * 2);
}

TEST_F(WarningsListBox, LogsThatThereIsNothingToWarnOf) {
    FillWarnings(list_.get(), {});
    EXPECT_EQ(log_.lastLine(), "[INFO] There is no warnning in this scene.");
}

} // namespace
} // namespace test
} // namespace orv
