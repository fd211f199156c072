// The list dialog, used as a person does.
#include "ui/list_dialog/list_dialog.h"

#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace orv {
namespace test {
namespace {

using Lines = std::vector<std::wstring>;

const Lines kFiles = {L"Missing files:", L"Missing: D:\\maps\\oak.jpg", L"\u7F3A\u5931"};

// Runs the dialog while `use` does something with it on another thread; it has to end by that.
INT_PTR RunAndUse(const std::vector<std::wstring>& lines, LANGID language,
                  const std::function<void(HWND)>& use) {
    std::thread user([&use] {
        HWND dialog = nullptr;
        if (WaitUntil([&dialog] { return (dialog = FindDialogWith(IDC_LIST_LINES)) != nullptr; }))
            use(dialog);
    });
    const LanguageScope scope(language);
    const INT_PTR result = RunListDialog(nullptr, lines);
    user.join();
    return result;
}

void Close(HWND dialog) {
    Press(dialog, IDC_LIST_CLOSE);
}

TEST(ListDialog, ShowsItsTextsAndEveryLine) {
    EXPECT_EQ(RunAndUse(kFiles, kEnglishLanguage,
                        [](HWND dialog) {
                            EXPECT_EQ(ReadWindowText(dialog), L"Files to check");
                            EXPECT_EQ(Text(dialog, IDC_LIST_LABEL),
                                      L"The farm may lack these files. Please check them before "
                                      L"you submit:");
                            EXPECT_EQ(Text(dialog, IDC_LIST_CLOSE), L"Close");
                            EXPECT_EQ(test::Lines(dialog, IDC_LIST_LINES), kFiles);
                            Close(dialog);
                        }),
              IDC_LIST_CLOSE);
}

TEST(ListDialog, SpeaksChinese) {
    RunAndUse(kFiles, kChineseLanguage, [](HWND dialog) {
        EXPECT_EQ(ReadWindowText(dialog), L"\u9700\u8981\u68C0\u67E5\u7684\u6587\u4EF6");
        EXPECT_EQ(Text(dialog, IDC_LIST_CLOSE), L"\u5173\u95ED");
        Close(dialog);
    });
}

TEST(ListDialog, EndsWithTheIdOfWhatClosedIt) {
    EXPECT_EQ(RunAndUse(kFiles, kEnglishLanguage, Close), IDC_LIST_CLOSE);
    EXPECT_EQ(RunAndUse(kFiles, kEnglishLanguage,
                        [](HWND dialog) { PressKey(dialog, IDC_LIST_LINES, VK_ESCAPE); }),
              IDCANCEL);
    EXPECT_EQ(RunAndUse(kFiles, kEnglishLanguage,
                        [](HWND dialog) { ::PostMessageW(dialog, WM_CLOSE, 0, 0); }),
              IDCANCEL);
    EXPECT_EQ(RunAndUse(kFiles, kEnglishLanguage,
                        [](HWND dialog) { PressKey(dialog, IDC_LIST_LINES, VK_RETURN); }),
              IDC_LIST_CLOSE);
}

TEST(ListDialog, StandsInTheMiddleOfTheWorkArea) {
    RunAndUse(kFiles, kEnglishLanguage, [](HWND dialog) {
        RECT work = {};
        ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        RECT area = {};
        ::GetWindowRect(dialog, &area);
        EXPECT_NEAR((area.left + area.right) / 2, (work.left + work.right) / 2, 1);
        EXPECT_NEAR((area.top + area.bottom) / 2, (work.top + work.bottom) / 2, 1);
        Close(dialog);
    });
}

TEST(ListDialog, ScrollsToTheEndOfLongPathsAndManyLines) {
    std::vector<std::wstring> lines(2000, L"D:\\maps\\" + std::wstring(200, L'm') + L".jpg");
    RunAndUse(lines, kEnglishLanguage, [](HWND dialog) {
        HWND list = ::GetDlgItem(dialog, IDC_LIST_LINES);
        RECT client = {};
        ::GetClientRect(list, &client);
        EXPECT_EQ(::SendMessageW(list, LB_GETCOUNT, 0, 0), 2000);
        EXPECT_GT(::SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0), client.right);
        Close(dialog);
    });
}

TEST(ListDialog, ShowsNoLinesAsWell) {
    EXPECT_EQ(RunAndUse({}, kEnglishLanguage, Close), IDC_LIST_CLOSE);
}

} // namespace
} // namespace test
} // namespace orv
