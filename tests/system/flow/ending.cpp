#include "tests/system/flow/ending.h"

#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace orv {
namespace test {

void PrintTo(const ArrangedEnding& ending, std::ostream* stream) {
    PrintTo(ending.row, stream);
}

std::vector<ArrangedEnding> Arranged(EndingCause cause, const std::vector<Arrangement>& how) {
    std::vector<ArrangedEnding> arranged;
    for (const SubmissionEnding& row : FlowEndings(cause)) {
        const auto found =
            std::find_if(how.begin(), how.end(), [&row](const Arrangement& arrangement) {
                return std::string(arrangement.name) == row.name;
            });
        if (found != how.end())
            arranged.push_back({row, *found});
    }
    return arranged;
}

void ExpectAllArranged(EndingCause cause, const std::vector<Arrangement>& how) {
    EXPECT_THAT(NamesOf(how), ::testing::UnorderedElementsAreArray(NamesOf(FlowEndings(cause))));
}

std::string NameOfEnding(const ::testing::TestParamInfo<ArrangedEnding>& info) {
    return info.param.row.name;
}

void EndingTest::startClientThatAnswers(const std::string& bytes) {
    WriteFileBytes(replies_.file(L"reply.http"), bytes);
    startClient(L"--raw-reply \"" + replies_.file(L"reply.http") + L"\"");
}

void EndingTest::begin() {
    if (how_.before)
        how_.before(*this);
    if (!client_) {
        ASSERT_NO_FATAL_FAILURE(startClient());
    }
    ASSERT_NO_FATAL_FAILURE(open(how_.sceneName, ticksACamera));
    // The host would be asked to save before the submission begins; here it shall be asked within.
    ::CheckDlgButton(dialog_, IDC_SAVE_SCENE_FILE, BST_UNCHECKED);
    ::CheckDlgButton(dialog_, IDC_BACK_UP_SCENE, how_.clean ? BST_CHECKED : BST_UNCHECKED);
    if (how_.arrange)
        how_.arrange(*this);
    submit();
    if (how_.during)
        how_.during(*this);
}

void EndingTest::readMessage() {
    const MessageSeen message = answer(row_.button);
    EXPECT_EQ(message.caption, text(row_.captionId != 0 ? row_.captionId : IDS_CAPTION));
    EXPECT_EQ(message.owner, row_.isOwned ? dialog_ : nullptr);
    EXPECT_EQ(message.buttons, row_.buttons);
    EXPECT_TRUE(message.isAlone) << "the progress window stands beside the message";
    if (row_.textId == 0 && row_.behind.empty()) {
        EXPECT_NE(message.text, text(IDS_REPLY_ACCEPTED));
        return;
    }
    const std::wstring wanted =
        (row_.textId != 0 ? text(row_.textId) : std::wstring()) + row_.behind + sceneInMessage;
    if (row_.isOpen && sceneInMessage.empty()) {
        EXPECT_EQ(message.text.find(wanted), 0U) << WideToUtf8(message.text);
    } else {
        EXPECT_EQ(message.text, wanted);
    }
}

void EndingTest::expectLeft() {
    const bool archive = row_.left == Left::Archive || row_.left == Left::ArchiveAndJob;
    const bool job = row_.left == Left::Job || row_.left == Left::ArchiveAndJob;
    EXPECT_EQ(archives().size(), archive ? 1U : 0U);
    EXPECT_EQ(jobFiles().size(), job ? 1U : 0U);
    EXPECT_EQ(PathExists(outputFolder()), row_.left != Left::Nothing);
}

void EndingTest::run() {
    ASSERT_NO_FATAL_FAILURE(begin());
    if (!row_.isSilent)
        readMessage();
    EXPECT_EQ(result(), row_.result);
    if (row_.closesDialog) {
        EXPECT_TRUE(dialogCloses());
    } else {
        EXPECT_TRUE(dialogStays());
    }
    EXPECT_TRUE(logHas(row_.logName, row_.logLine)) << log(row_.logName);
    held.reset();
    EXPECT_TRUE(logHas(L"rud_http", row_.httpLine)) << log(L"rud_http");
    expectLeft();
    if (how_.mend)
        how_.mend(*this);
    expectNothingLostOrLeft();
    if (row_.closesDialog || !how_.submitsAgain)
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
