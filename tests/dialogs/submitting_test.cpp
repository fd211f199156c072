// Submitting from the dialog of the plug-in in a host, as far as the dialog itself goes.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

const wchar_t kNotSaved[] =
    L"The scene could not be saved. Please save it in 3ds Max and submit again.";

constexpr int kMessageText = 0xFFFF; // the control of a message box that holds its text

// The host refuses to save, which ends a submission early, with a message that waits for its
// answer.
class Submitting : public ::testing::Test {
protected:
    void SetUp() override { open(kEnglishLanguage); }
    void open(LANGID language) {
        host_.scene["refuse_save"] = true;
        host_.start(language);
        window_ = host_.openDialog();
        ASSERT_NE(window_, nullptr);
        ClickCheckBox(window_, IDC_CAMERAS, 0);
        Press(window_, IDC_SAVE_SCENE_FILE); // no saving before the submission itself
        Type(window_, IDC_SCENE_NAME, L"\u5BA2\u5385 v2");
    }
    // The message box that waits for an answer.
    static bool waitForMessage() {
        return WaitUntil([] { return FindDialogWith(kMessageText) != nullptr; });
    }
    // A visible dialog that belongs to the host's main window; null when there is none.
    HWND boxOverTheHost() const {
        HWND box = nullptr;
        while ((box = ::FindWindowExW(nullptr, box, L"#32770", nullptr)) != nullptr) {
            if (::GetWindow(box, GW_OWNER) == host_.window() && ::IsWindowVisible(box))
                break;
        }
        return box;
    }
    // The message is closed and the dialog can be used: the submission has ended.
    bool waitForDialog() const {
        return WaitUntil([this] {
            return FindDialogWith(kMessageText) == nullptr && ::IsWindowEnabled(window_) != FALSE;
        });
    }
    std::size_t saves() const { return host_.events("scene_saved").size(); }

    HostInProcess host_;
    HWND window_ = nullptr;
};

TEST_F(Submitting, RunsOneSubmissionHoweverOftenSubmitIsPressed) {
    for (int press = 0; press < 5; ++press)
        ::SendMessageW(window_, WM_COMMAND, IDC_SUBMIT, 0);
    ASSERT_TRUE(waitForMessage());
    ::SendMessageW(window_, WM_COMMAND, IDC_SUBMIT, 0);

    MessageBoxWatcher watcher(L"Orv Rendering");
    ASSERT_TRUE(watcher.waitForBoxes(1));
    ASSERT_TRUE(waitForDialog());
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kNotSaved);
    EXPECT_EQ(boxes[0].owner, window_);
    ASSERT_EQ(saves(), 1U);
    EXPECT_EQ(host_.events("scene_saved")[0]["ok"], Json::Value(false));
    EXPECT_EQ(FindDialogWith(IDC_PROGRESS_BAR), nullptr);
}

// The progress window was in front, and hides for the message.
TEST_F(Submitting, LeavesTheKeyboardToItsMessage) {
    for (int time = 0; time < 3; ++time) {
        Press(window_, IDC_SUBMIT);
        ASSERT_TRUE(waitForMessage());
        EXPECT_TRUE(
            WaitUntil([] { return ::GetForegroundWindow() == FindDialogWith(kMessageText); }));
        ::keybd_event(VK_RETURN, 0, 0, 0);
        ::keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
        ASSERT_TRUE(waitForDialog());
        Type(window_, IDC_SCENE_NAME, L"again " + std::to_wstring(time));
    }
}

TEST_F(Submitting, IsAllowedAgainAfterItFailed) {
    MessageBoxWatcher watcher(L"Orv Rendering");
    for (std::size_t time = 1; time <= 3; ++time) {
        Type(window_, IDC_SCENE_NAME, L"name " + std::to_wstring(time));
        Press(window_, IDC_SUBMIT);
        ASSERT_TRUE(watcher.waitForBoxes(time));
        ASSERT_TRUE(waitForDialog());
        EXPECT_EQ(saves(), time);
    }
    EXPECT_EQ(watcher.stop().size(), 3U);
}

// The host has shown the reason; the next attempt is possible at once.
TEST_F(Submitting, StopsWithoutAWordWhenTheSceneCannotBeSavedFirst) {
    Press(window_, IDC_SAVE_SCENE_FILE);
    for (std::size_t time = 1; time <= 3; ++time) {
        Press(window_, IDC_SUBMIT);
        EXPECT_EQ(saves(), time);
        EXPECT_EQ(FindDialogWith(IDC_PROGRESS_BAR), nullptr);
    }
    EXPECT_EQ(FindDialogWith(kMessageText), nullptr);
    EXPECT_TRUE(::IsWindowEnabled(window_));
}

TEST_F(Submitting, SpeaksOfTheNameThatCannotBeUsedAndEndsTheDialog) {
    MessageBoxWatcher watcher(L"Orv Rendering");
    Type(window_, IDC_SCENE_NAME, L"50%");
    Press(window_, IDC_SUBMIT);
    EXPECT_TRUE(host_.waitForEnd());
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.find(L"This scene name cannot be used."), 0U);
    EXPECT_EQ(saves(), 0U);
}

TEST_F(Submitting, GoesOnWhenTheDialogIsClosedAndTellsItsEnd) {
    Press(window_, IDC_SUBMIT);
    ASSERT_TRUE(waitForMessage());
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(host_.waitForEnd());
    // Another one cannot begin meanwhile.
    host_.chooseSubmit();
    HWND box = nullptr;
    ASSERT_TRUE(WaitUntil([&] { return (box = boxOverTheHost()) != nullptr; }));
    EXPECT_EQ(ReadWindowText(::GetDlgItem(box, kMessageText))
                  .find(L"The last submission is still running."),
              0U);
    EXPECT_EQ(FindDialogWith(IDC_CAMERAS), nullptr);
    MessageBoxWatcher watcher(L"Orv Rendering");
    EXPECT_TRUE(watcher.waitForBoxes(2));
    EXPECT_TRUE(host_.waitForEnd());
}

// Its threads may outlive the host's use of the library.
TEST(LibraryThatHasSubmitted, StaysWhenTheHostLetsGoOfIt) {
    {
        HostInProcess host;
        host.scene["refuse_save"] = true;
        host.start();
        HWND window = host.openDialog();
        ASSERT_NE(window, nullptr);
        ClickCheckBox(window, IDC_CAMERAS, 0);
        Press(window, IDC_SAVE_SCENE_FILE);
        Type(window, IDC_SCENE_NAME, L"other");
        MessageBoxWatcher watcher(L"Orv Rendering");
        Press(window, IDC_SUBMIT);
        ASSERT_TRUE(watcher.waitForBoxes(1));
    }
    EXPECT_NE(::GetModuleHandleW(L"OrvRendering.gup"), nullptr);
}

// The host checks the language of each box.
class SubmittingInChinese : public Submitting {
protected:
    void SetUp() override {}
};

TEST_F(SubmittingInChinese, ShowsItsMessages) {
    open(kChineseLanguage);
    MessageBoxWatcher watcher;
    Press(window_, IDC_THREE_BLOCKS);
    Press(window_, IDC_MATERIAL_CHANNEL);   // not together
    ClickCheckBox(window_, IDC_CAMERAS, 0); // none is ticked any more
    Press(window_, IDC_SUBMIT);
    EXPECT_TRUE(watcher.waitForBoxes(3));
    ASSERT_TRUE(waitForDialog());
    EXPECT_EQ(watcher.stop().size(), 3U);
}

} // namespace
} // namespace test
} // namespace orv
