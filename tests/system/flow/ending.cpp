#include "tests/system/flow/ending.h"

#include "analysis/text/text_convert.h"
#include "resources/controls.h"

namespace orv {
namespace test {

void PrintTo(const Ending& ending, std::ostream* stream) {
    *stream << ending.name;
}

void EndingTest::startClientThatAnswers(const std::string& bytes) {
    WriteFileBytes(replies_.file(L"reply.http"), bytes);
    startClient(L"--raw-reply \"" + replies_.file(L"reply.http") + L"\"");
}

void EndingTest::begin() {
    const Ending& ending = GetParam();
    if (ending.before)
        ending.before(*this);
    if (!client_) {
        ASSERT_NO_FATAL_FAILURE(startClient());
    }
    ASSERT_NO_FATAL_FAILURE(open(ending.sceneName, ticksACamera));
    // The host would be asked to save before the submission begins; here it shall be asked within.
    ::CheckDlgButton(dialog_, IDC_SAVE_SCENE_FILE, BST_UNCHECKED);
    ::CheckDlgButton(dialog_, IDC_BACK_UP_SCENE, ending.clean ? BST_CHECKED : BST_UNCHECKED);
    if (ending.arrange)
        ending.arrange(*this);
    submit();
    if (ending.during)
        ending.during(*this);
}

void EndingTest::readMessage() {
    const Ending& ending = GetParam();
    const MessageSeen message = answer(ending.button);
    EXPECT_EQ(message.caption, text(ending.captionId));
    EXPECT_EQ(message.owner, dialog_);
    EXPECT_TRUE(message.isAlone) << "the progress window stands beside the message";
    if (ending.textId == 0 && ending.behind.empty()) {
        EXPECT_NE(message.text, text(IDS_REPLY_ACCEPTED));
    } else if (ending.textId == 0) {
        EXPECT_EQ(message.text, ending.behind);
    } else if (ending.anyCode) {
        EXPECT_EQ(message.text.find(text(ending.textId)), 0U) << WideToUtf8(message.text);
    } else {
        EXPECT_EQ(message.text, text(ending.textId) + ending.behind);
    }
}

void EndingTest::run() {
    const Ending& ending = GetParam();
    ASSERT_NO_FATAL_FAILURE(begin());
    if (!ending.silent)
        readMessage();
    EXPECT_EQ(result(), ending.result);
    if (ending.closesDialog) {
        EXPECT_TRUE(dialogCloses());
    } else {
        EXPECT_TRUE(dialogStays());
    }
    EXPECT_TRUE(logHas(ending.logName, ending.logLine)) << log(ending.logName);
    held.reset();
    EXPECT_TRUE(logHas(L"rud_http", ending.httpLine)) << log(L"rud_http");
    if (ending.mend)
        ending.mend(*this);
    expectNothingLostOrLeft();
    if (ending.closesDialog || !ending.submitsAgain)
        return;
    ASSERT_NO_FATAL_FAILURE(startClient());
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

TEST_P(EndingTest, IsToldAndLosesNothing) {
    run();
}

} // namespace test
} // namespace orv
