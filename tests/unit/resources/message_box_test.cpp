// Message boxes, read and answered as a user would.
#include "resources/activation_context.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/handle_count.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

TEST(MessageBoxLanguageOf, IsEnglishForExactlyZeroOnly) {
    EXPECT_EQ(MessageBoxLanguage(L"0"), 1033);
    for (const wchar_t* marker : {L"00", L"1", L"", L" 0", L"0 ", L"O", L"０"})
        EXPECT_EQ(MessageBoxLanguage(marker), 1) << std::wstring(marker).size();
}

class MessageBoxes : public ::testing::Test {
protected:
    const ModuleScope module_;
    const LanguageScope english_{kEnglishLanguage};
};

TEST_F(MessageBoxes, ShowTextAndCaptionWithAnOkButton) {
    MessageBoxWatcher watcher;
    const int button = ShowMessage(nullptr, L"A text, 一段文字", L"A caption, 标题");
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, L"A text, 一段文字");
    EXPECT_EQ(boxes[0].caption, L"A caption, 标题");
    EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
    EXPECT_EQ(button, IDOK);
}

TEST_F(MessageBoxes, ShowTextsByNumber) {
    MessageBoxWatcher watcher;
    ShowMessage(nullptr, IDS_SCENE_NOT_SAVED, IDS_CAPTION_CHECK);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_SCENE_NOT_SAVED));
    EXPECT_EQ(boxes[0].caption, L"Orv Rendering - Please check");
}

TEST_F(MessageBoxes, AskAndReturnTheButtonThatWasPressed) {
    MessageBoxWatcher watcher(L"", {IDCANCEL});
    const int button = ShowMessage(nullptr, IDS_NO_CAMERA_TICKED, IDS_CAPTION, MB_OKCANCEL);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(button, IDCANCEL);
}

TEST_F(MessageBoxes, BelongToTheOwnerWindow) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                         100, 100, 300, 200, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    MessageBoxWatcher watcher;
    ShowMessage(owner, L"text", L"caption", MB_OK, L"1");
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ::DestroyWindow(owner);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].owner, owner);
}

// The library may be asked for a message before it knows its module: the box still has to appear.
TEST(MessageBoxesWithoutModule, AreShownAllTheSame) {
    const ModuleScope noModule(nullptr);
    MessageBoxWatcher watcher;
    EXPECT_EQ(ShowMessage(nullptr, L"text", L"caption"), IDOK);
    EXPECT_EQ(watcher.stop().size(), 1U);
}

// Whether a button made by this thread now would be one of the themed controls.
bool ButtonsAreRedirected() {
    ACTCTX_SECTION_KEYED_DATA data = {};
    data.cbSize = sizeof(data);
    return ::FindActCtxSectionStringW(0, nullptr,
                                      ACTIVATION_CONTEXT_SECTION_WINDOW_CLASS_REDIRECTION,
                                      L"Button", &data) != FALSE;
}

TEST_F(MessageBoxes, ScopeGivesTheThemedControlsAndTakesThemBack) {
    ASSERT_FALSE(ButtonsAreRedirected()) << "this program must not ask for them itself";
    {
        const ActivationContextScope scope;
        EXPECT_TRUE(scope.active());
        EXPECT_TRUE(ButtonsAreRedirected());
        {
            const ActivationContextScope inner;
            EXPECT_TRUE(ButtonsAreRedirected());
        }
        EXPECT_TRUE(ButtonsAreRedirected());
    }
    EXPECT_FALSE(ButtonsAreRedirected());
}

TEST(ActivationContextWithoutModule, DoesNothing) {
    const ModuleScope noModule(nullptr);
    const ActivationContextScope scope;
    EXPECT_FALSE(scope.active());
    EXPECT_FALSE(ButtonsAreRedirected());
}

TEST(ActivationContextOfAModuleWithoutManifest, DoesNothing) {
    const ModuleScope foreign(::GetModuleHandleW(L"kernel32.dll"));
    const ActivationContextScope scope;
    EXPECT_FALSE(scope.active());
}

TEST_F(MessageBoxes, LeaveNoHandleBehind) {
    const auto showTwenty = [] {
        MessageBoxWatcher watcher;
        for (int i = 0; i < 20; ++i)
            ShowMessage(nullptr, IDS_REPLY_ACCEPTED, IDS_CAPTION);
        EXPECT_EQ(watcher.stop().size(), 20U);
    };
    showTwenty(); // loads what stays loaded
    const std::size_t before = CountOpenHandles();
    showTwenty();
    EXPECT_LE(CountOpenHandles(), before);
    EXPECT_GT(before, 0U);
}

} // namespace
} // namespace test
} // namespace orv
