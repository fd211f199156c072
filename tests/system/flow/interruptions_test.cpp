// The user or the client comes between while a submission runs.
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "standin/host/scene.h"
#include "tests/support/wait_until.h"
#include "tests/system/flow/flow.h"

namespace orv {
namespace test {
namespace {

class Interruption : public SubmissionFlow {
protected:
    void begin(const std::wstring& client = std::wstring()) {
        host_.sceneBytes = NoisyBytes(3U << 20); // packing takes a second or two
        ASSERT_NO_FATAL_FAILURE(startClient(client));
        ASSERT_NO_FATAL_FAILURE(open());
        submit();
        ASSERT_TRUE(WaitUntil([this] { return !archives().empty(); })) << "the archive is begun";
    }
    // Whether the host's main thread serves its windows.
    bool hostIsAlive() const {
        DWORD_PTR answered = 0;
        return ::SendMessageTimeoutW(host_.window(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000,
                                     &answered) != 0;
    }
};

TEST_F(Interruption, ByClosingTheHostWaitsForTheSubmission) {
    ASSERT_NO_FATAL_FAILURE(begin());
    ::PostMessageW(host_.window(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(hostIsAlive());
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_TRUE(WaitUntil([this] { return !host_.events("stopped").empty(); }))
        << "then the host ends";
    expectNothingLostOrLeft();
}

TEST_F(Interruption, ByClosingTheDialogDoesNotEndTheSubmission) {
    ASSERT_NO_FATAL_FAILURE(begin());
    ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_TRUE(hostIsAlive());
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    expectNothingLostOrLeft();
}

TEST_F(Interruption, BySubmittingAgainMakesNoSecondSubmission) {
    ASSERT_NO_FATAL_FAILURE(begin());
    for (int i = 0; i < 5; ++i)
        ::PostMessageW(dialog_, WM_COMMAND, IDC_SUBMIT, 0);
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_EQ(archives().size(), 1U);
    EXPECT_EQ(jobFiles().size(), 1U);
    expectNothingLostOrLeft();
}

TEST_F(Interruption, ByDestroyingTheDialogEndsNothingElse) {
    ASSERT_NO_FATAL_FAILURE(begin());
    ::PostMessageW(dialog_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_TRUE(WaitUntil([this] { return !::IsWindow(dialog_); }));
    EXPECT_TRUE(hostIsAlive());
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    expectNothingLostOrLeft();
}

// The worker waits for as long as Windows lets it; the user does not have to.
TEST_F(Interruption, ByAClientThatNeverAnswersLeavesTheHostToTheUser) {
    ASSERT_NO_FATAL_FAILURE(begin(L"--delay 600000"));
    ASSERT_TRUE(WaitUntil([this] { return logHas(L"rud_data", "[INFO] Write json file at: "); }));
    ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(dialogCloses()) << "the dialog can be closed";
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(hostIsAlive());
    const std::size_t savesBefore = host_.events("scene_saved").size();
    host_.save();
    EXPECT_TRUE(WaitUntil([&] { return host_.events("scene_saved").size() > savesBefore; }))
        << "the scene can be saved";
    EXPECT_TRUE(host_.events("scene_saved").back()["ok"].asBool());

    stopClient(); // the connection breaks, the worker tells it and ends
    const MessageSeen message = answer();
    EXPECT_EQ(message.text.find(text(IDS_CLIENT_UNREACHABLE)), 0U) << WideToUtf8(message.text);
    EXPECT_EQ(result(), 0);
    expectNothingLostOrLeft();
    ASSERT_NO_FATAL_FAILURE(startClient());
    dialog_ = host_.openDialog();
    ASSERT_NE(dialog_, nullptr);
    ClickCheckBox(dialog_, IDC_CAMERAS, 0);
    expectSecondSubmissionSucceeds();
}

} // namespace
} // namespace test
} // namespace orv
