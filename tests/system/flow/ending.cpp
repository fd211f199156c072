#include "tests/system/flow/ending.h"

#include "resources/controls.h"
#include "resources/texts.h"

#include <gmock/gmock.h>

namespace orv {
namespace test {

void PrintTo(const ArrangedEnding& ending, std::ostream* stream) {
    PrintTo(ending.row, stream);
}

std::vector<ArrangedEnding> Arranged(EndingCause cause, const std::vector<Arrangement>& how) {
    std::vector<ArrangedEnding> arranged;
    for (const SubmissionEnding& row : FlowEndings(cause)) {
        if (const Arrangement* found = FindNamed(how, row.name))
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
    EXPECT_TRUE(message.isAlone) << "the progress window stands beside the message";
    ExpectMessage(row_, message, {dialog_, text(IDS_CAPTION), &EndingTest::text, sceneInMessage});
}

void EndingTest::expectLeft() {
    EXPECT_EQ(archives().size(), LeavesArchive(row_) ? 1U : 0U);
    EXPECT_EQ(jobFiles().size(), LeavesJob(row_) ? 1U : 0U);
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
