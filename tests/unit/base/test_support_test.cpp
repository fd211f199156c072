// The tests' own helpers: a helper that misreads would make every test that uses it worthless.
#include "base/folders.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>

namespace orv {
namespace test {
namespace {

TEST(TestFiles, ReadBackWhatWasWritten) {
    const TemporaryFolder folder(L"\u573a\u666f folder");
    const std::string bytes("a\0\r\n\xff", 5);
    WriteFileBytes(folder.file(L"b\\c\\d.bin"), bytes);
    EXPECT_EQ(ReadFileBytes(folder.file(L"b/c/d.bin")), bytes);
    EXPECT_EQ(ListFolder(folder.path()), std::vector<std::wstring>{L"b"});
}

TEST(TestFiles, AreGoneWithTheirFolder) {
    std::wstring path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        WriteFileBytes(folder.file(L"a\\b.txt"), "x");
    }
    EXPECT_FALSE(PathExists(path));
}

TEST(TestProductFolder, StartsEmptyAndLeavesNothing) {
    WriteFileBytes(ProductFolder() + L"/left/over.txt", "x");
    {
        const TestProductFolder product;
        EXPECT_EQ(ListFolder(product.path()), std::vector<std::wstring>{L"script"});
        product.write(L"/json/a.ret", "{}");
        EXPECT_EQ(product.read(L"/json/a.ret"), "{}");
    }
    EXPECT_FALSE(PathExists(ProductFolder()));
}

TEST(TestProductFolder, EmptiesALogThatIsHeldOpen) {
    const TestProductFolder product;
    product.write(L"/log/held.log", "line");
    const FileHandle held(::CreateFileW(product.path(L"/log/held.log").c_str(), GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    const TestProductFolder next;
    EXPECT_EQ(next.log(L"held"), "");
    EXPECT_TRUE(PathExists(next.path(L"/log/held.log")));
}

TEST(WaitUntil, GivesUpAtItsDeadline) {
    EXPECT_FALSE(WaitUntil([] { return false; }, std::chrono::milliseconds(20)));
    EXPECT_TRUE(WaitUntil([] { return true; }, std::chrono::milliseconds(0)));
}

TEST(MessageBoxWatcher, ReadsAndAnswersABox) {
    MessageBoxWatcher watcher(L"\u63d0\u793a");
    EXPECT_EQ(::MessageBoxExW(nullptr, L"line 1\nline 2", L"\u63d0\u793a", MB_OK, 1), IDOK);
    const std::vector<SeenMessageBox> seen = watcher.stop();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].caption, L"\u63d0\u793a");
    EXPECT_EQ(seen[0].text, L"line 1\nline 2");
    EXPECT_EQ(seen[0].buttons, std::vector<int>{IDOK});
    EXPECT_EQ(seen[0].answer, IDOK);
    EXPECT_EQ(seen[0].owner, nullptr);
    ASSERT_EQ(seen[0].buttonLabels.size(), 1U);
    EXPECT_FALSE(seen[0].buttonLabels[0].empty());
}

// Windows counts a thread as hung that has taken no message for five seconds.
TEST(ReadWindowText, WaitsForAThreadThatHasWorkedForLong) {
    constexpr DWORD kCountsAsHung = 5500;
    std::atomic<HWND> window{nullptr};
    std::atomic<bool> isRead{false};
    std::thread worker([&] {
        const HWND made = ::CreateWindowExW(0, L"STATIC", L"words", WS_POPUP | WS_VISIBLE, 0, 0, 50,
                                            50, nullptr, nullptr, nullptr, nullptr);
        MSG message = {};
        ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        const DWORD begun = ::GetTickCount();
        WaitUntil([begun] { return ::GetTickCount() - begun > kCountsAsHung; });
        window = made;
        WaitUntil([&] { return isRead || HIWORD(::GetQueueStatus(QS_SENDMESSAGE)) != 0; });
        PumpUntil([&] { return isRead.load(); });
        ::DestroyWindow(made);
    });
    EXPECT_TRUE(WaitUntil([&] { return window != nullptr; }));
    EXPECT_EQ(ReadWindowText(window), L"words");
    isRead = true;
    worker.join();
}

TEST(MessageBoxWatcher, GivesItsAnswersInTurn) {
    MessageBoxWatcher watcher(L"Ask", {IDNO, IDYES});
    EXPECT_EQ(::MessageBoxW(nullptr, L"1", L"Ask", MB_YESNO), IDNO);
    EXPECT_EQ(::MessageBoxW(nullptr, L"2", L"Ask", MB_YESNOCANCEL | MB_ICONWARNING), IDYES);
    EXPECT_EQ(::MessageBoxW(nullptr, L"3", L"Ask", MB_YESNO), IDYES);
    const std::vector<SeenMessageBox> seen = watcher.stop();
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[0].buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(seen[1].buttons, (std::vector<int>{IDYES, IDNO, IDCANCEL}));
    EXPECT_EQ(seen[1].text, L"2");
    EXPECT_EQ(seen[2].text, L"3");
}

TEST(MessageBoxWatcher, NeverLeavesABoxWaitingForAMissingButton) {
    MessageBoxWatcher watcher(L"", {IDRETRY});
    EXPECT_EQ(::MessageBoxW(nullptr, L"1", L"Any", MB_YESNO), IDYES);
    EXPECT_EQ(watcher.stop().at(0).answer, IDYES);
}

TEST(MessageBoxWatcher, LeavesOtherCaptionsToOthers) {
    MessageBoxWatcher stranger(L"Other");
    MessageBoxWatcher watcher(L"Mine");
    EXPECT_EQ(::MessageBoxW(nullptr, L"1", L"Mine", MB_OK), IDOK);
    EXPECT_TRUE(stranger.stop().empty());
    EXPECT_EQ(watcher.stop().size(), 1U);
}

// A dialog of the product as far as the watcher sees it: standard button, text, and an edit.
struct DialogWithEdit {
    DLGTEMPLATE dialog{WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_MODALFRAME, 0, 0, 0, 0, 100, 50};
    WORD menuClassTitle[3] = {0, 0, 0};

    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM, LPARAM) {
        if (message == WM_INITDIALOG) {
            const DWORD style = WS_CHILD | WS_VISIBLE;
            ::SetWindowTextW(window, L"Dialog");
            for (const auto& control :
                 {std::make_pair(L"BUTTON", IDOK), std::make_pair(L"STATIC", 0xFFFF),
                  std::make_pair(L"EDIT", 1039)})
                ::CreateWindowW(control.first, L"", style, 0, 0, 10, 10, window,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.second)),
                                nullptr, nullptr);
            return TRUE;
        }
        if (message == WM_CLOSE || message == WM_COMMAND)
            ::EndDialog(window, message == WM_CLOSE ? 1 : 2);
        return FALSE;
    }
};

TEST(MessageBoxWatcher, LeavesDialogsAlone) {
    const DialogWithEdit dialog;
    MessageBoxWatcher watcher;
    std::thread user([] {
        const HWND window = WaitForDialog(L"Dialog");
        EXPECT_NE(window, nullptr);
        // A message box above the dialog is answered, which shows that the watcher has been round.
        EXPECT_EQ(::MessageBoxW(nullptr, L"1", L"Box", MB_OK), IDOK);
        ::PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(
        ::DialogBoxIndirectParamW(nullptr, &dialog.dialog, nullptr, DialogWithEdit::procedure, 0),
        1);
    user.join();
    EXPECT_EQ(watcher.stop().size(), 1U);
}

} // namespace
} // namespace test
} // namespace orv
