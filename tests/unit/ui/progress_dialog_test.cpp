// What the progress dialog says, and what is logged of a dialog that cannot be shown.
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "ui/exit/exit_dialog.h"
#include "ui/list_dialog/list_dialog.h"
#include "ui/progress/progress_dialog.h"

#include <gtest/gtest.h>

#include <set>

namespace orv {
namespace test {
namespace {

TEST(Stages, HaveWordsOfTheirOwn) {
    std::set<std::wstring> texts;
    for (const SubmissionStage stage :
         {SubmissionStage::Checking, SubmissionStage::Saving, SubmissionStage::Cleaning,
          SubmissionStage::Packing, SubmissionStage::Describing, SubmissionStage::Sending})
        texts.insert(ResourceText(StageText(stage)));
    EXPECT_EQ(texts.size(), 6U);
    EXPECT_EQ(StageText(SubmissionStage::Packing), static_cast<unsigned>(IDS_STAGE_PACKING));
}

TEST(ElapsedText, ReadsAsAClock) {
    struct Case {
        std::uint64_t milliseconds;
        std::wstring text;
    };
    for (const Case& row : {
             Case{0, L"0:00"},
             Case{999, L"0:00"},
             Case{7000, L"0:07"},
             Case{59999, L"0:59"},
             Case{60000, L"1:00"},
             Case{750000, L"12:30"},
             Case{3599999, L"59:59"},
             Case{3600000, L"1:00:00"},
             Case{3723000, L"1:02:03"},
             Case{360000000, L"100:00:00"},
         })
        EXPECT_EQ(ElapsedText(row.milliseconds), row.text);
}

TEST(MegabyteText, HasOneDigitBehindThePoint) {
    EXPECT_EQ(MegabyteText(0), L"0.0");
    EXPECT_EQ(MegabyteText(1024 * 1024), L"1.0");
    EXPECT_EQ(MegabyteText(1536 * 1024), L"1.5");
    EXPECT_EQ(MegabyteText(5ULL << 40), L"5242880.0");
}

TEST(FileSize, IsTheFilesAndZeroWithoutAFile) {
    const TemporaryFolder folder(L"\u573A\u666F");
    const std::wstring path = folder.file(L"a.7z");
    EXPECT_EQ(FileSize(path), 0U);
    WriteFileBytes(path, std::string(12345, 'x'));
    EXPECT_EQ(FileSize(path), 12345U);
    EXPECT_EQ(FileSize(L""), 0U);
}

TEST(DialogsOfASubmission, WriteToTheDataLogWhenTheyCannotBeShown) {
    const TestProductFolder folder;
    PluginData& data = PluginData::instance();
    HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                   nullptr, nullptr);
    ::DestroyWindow(owner);
    EXPECT_EQ(ProgressDialog(data).run(IDD_PROGRESS, owner), -1);
    EXPECT_EQ(ExitDialog(data).run(IDD_EXIT, owner), -1);
    EXPECT_EQ(RunListDialog(owner, {}), -1);
    const std::string log = folder.log(L"rud_data");
    for (const int dialog : {IDD_PROGRESS, IDD_EXIT, IDD_LIST})
        EXPECT_NE(
            log.find("[ERROR] DialogBoxParamW dialog " + std::to_string(dialog) + " error no:"),
            std::string::npos)
            << dialog;
}

} // namespace
} // namespace test
} // namespace orv
