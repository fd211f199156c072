// What goes wrong around a submission loses nothing: the scene is whole, nothing is left behind,
// the log tells it, and the next submission succeeds.
#include "base/handles.h"
#include "resources/texts.h"
#include "tests/support/wait_until.h"
#include "tests/system/flow/flow.h"

namespace orv {
namespace test {
namespace {

class Fault : public SubmissionFlow {
protected:
    void begin() {
        ASSERT_NO_FATAL_FAILURE(startClient());
        ASSERT_NO_FATAL_FAILURE(open());
    }
    // The client misses something, says so in its own words, and the dialog stays.
    void expectRefusedByTheClient() {
        int code = kStillRunning;
        const MessageSeen message = submitToMessage(&code);
        EXPECT_NE(message.text, text(IDS_REPLY_ACCEPTED));
        EXPECT_TRUE(message.isAlone);
        EXPECT_EQ(code, 0);
        EXPECT_TRUE(logHas(L"rud_http", "[ERROR] ")) << log(L"rud_http");
        EXPECT_TRUE(dialogStays());
    }
};

TEST_F(Fault, ArchiverThatFails) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const std::wstring inTheWay = outputFolder() + L"\\compress";
    WriteFileBytes(inTheWay, "a file where the folder should be");
    expectRefusedByTheClient();
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: the archiver ended with code "));
    DeleteTree(inTheWay);
    expectNothingLostOrLeft();
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

TEST_F(Fault, ArchiverThatIsMissing) {
    ASSERT_NO_FATAL_FAILURE(begin());
    DeleteTree(host_.product.path(L"/7-Zip"));
    expectRefusedByTheClient();
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: start of the archiver "));
    expectNothingLostOrLeft();
    InstallArchiver();
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

TEST_F(Fault, ArchiverThatIsKilledHalfWay) {
    host_.sceneBytes = NoisyBytes(6U << 20); // packing takes seconds
    ASSERT_NO_FATAL_FAILURE(begin());
    submit();
    ASSERT_TRUE(WaitUntil([this] { return !archives().empty(); })) << "the archive is begun";
    const std::vector<DWORD> archivers = ProcessesNamed(L"7z.exe");
    ASSERT_EQ(archivers.size(), 1U);
    const ProcessHandle archiver(::OpenProcess(PROCESS_TERMINATE, FALSE, archivers[0]));
    ASSERT_TRUE(::TerminateProcess(archiver.get(), 137));
    EXPECT_NE(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] Pack scene: the archiver ended with code 137"));
    EXPECT_TRUE(logHas(L"rud_data", "[INFO] Unfinished archive deleted: "));
    EXPECT_TRUE(archives().empty());
    EXPECT_TRUE(dialogStays());
    expectNothingLostOrLeft();
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

TEST_F(Fault, ClientThatDiesBetweenPackingAndPosting) {
    ASSERT_NO_FATAL_FAILURE(begin());
    submit();
    ASSERT_TRUE(WaitUntil([this] { return logHas(L"rud_data", "[INFO] Scene packed into "); }));
    stopClient();
    const MessageSeen message = answer();
    EXPECT_EQ(message.text, text(IDS_CLIENT_UNREACHABLE) + L"10061");
    EXPECT_TRUE(message.isAlone);
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(logHas(L"rud_http", "[ERROR] connect error, Error Code is: 10061"));
    EXPECT_TRUE(dialogStays());
    expectNothingLostOrLeft();
    ASSERT_NO_FATAL_FAILURE(startClient());
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

TEST_F(Fault, ClientThatDiesBeforeItReplies) {
    ASSERT_NO_FATAL_FAILURE(startClient(L"--delay 60000"));
    ASSERT_NO_FATAL_FAILURE(open());
    submit();
    ASSERT_TRUE(WaitUntil([this] { return logHas(L"rud_data", "[INFO] Write json file at: "); }));
    // It listens until it has the one connection; a moment later it would be refused instead.
    stopClient();
    EXPECT_EQ(answer().text.find(text(IDS_CLIENT_UNREACHABLE)), 0U);
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogStays());
    ASSERT_NO_FATAL_FAILURE(startClient());
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

} // namespace
} // namespace test
} // namespace orv
