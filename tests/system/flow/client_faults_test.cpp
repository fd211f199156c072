// What the farm's client can do to a submission.
#include "tests/support/wait_until.h"
#include "tests/system/flow/ending.h"

namespace orv {
namespace test {
namespace {

// A client with other options.
Arrangement Client(const char* name, const wchar_t* options) {
    Arrangement how(name);
    how.before = [options](EndingTest& flow) { flow.startClient(options); };
    return how;
}

// A client that answers with these bytes.
Arrangement Reply(const char* name, const std::string& bytes) {
    Arrangement how(name);
    how.before = [bytes](EndingTest& flow) { flow.startClientThatAnswers(bytes); };
    return how;
}

Arrangement NoClient() {
    Arrangement how("NoClient");
    how.before = [](EndingTest& flow) {
        flow.startClient();
        flow.host_.product.writeSettings("port=1\r\nlowerversion=1.3.7\r\n");
    };
    return how;
}

Arrangement ThatDiesBetweenPackingAndPosting() {
    Arrangement how("ClientThatDiesBetweenPackingAndPosting");
    how.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "[INFO] Scene packed into "); }));
        flow.stopClient();
    };
    return how;
}

// It listens until it has the one connection; a moment later it would be refused instead.
Arrangement ThatDiesBeforeItReplies() {
    Arrangement how = Client("ClientThatDiesBeforeItReplies", L"--delay 60000");
    how.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "[INFO] Write json file at: "); }));
        flow.stopClient();
    };
    return how;
}

std::vector<Arrangement> Arrangements() {
    return {
        NoClient(),
        ThatDiesBetweenPackingAndPosting(),
        ThatDiesBeforeItReplies(),
        Client("CloseAtOnce", L"--close-at-once"),
        Reply("ReplyWithoutJson", "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n"),
        Reply("ReplyThatCannotBeRead", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n{\"ret\":"),
        Reply("ACodeThatNobodyKnows",
              "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n{\"ret\":12345}"),
        Client("SubmittedBefore", L"--reply-code 10009"),
        Client("RefusedInTheClientsWords", L"--reply-code 10010 --err \"disk full\"")};
}

TEST(EndingsAtTheClient, AreAllArranged) {
    ExpectAllArranged(EndingCause::Client, Arrangements());
}

INSTANTIATE_TEST_SUITE_P(AtTheClient, EndingTest,
                         ::testing::ValuesIn(Arranged(EndingCause::Client, Arrangements())),
                         NameOfEnding);

} // namespace
} // namespace test
} // namespace orv
