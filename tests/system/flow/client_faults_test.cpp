// What the farm's client can do to a submission. One row for each message that comes of it; the
// bytes of replies are the matter of the exchange's own tests.
#include "tests/support/wait_until.h"
#include "tests/system/flow/ending.h"

namespace orv {
namespace test {
namespace {

// A client with other options.
Ending Client(const char* name, const wchar_t* options, unsigned textId, const char* httpLine) {
    Ending row(name);
    row.before = [options](EndingTest& flow) { flow.startClient(options); };
    row.textId = textId;
    row.httpLine = httpLine;
    return row;
}

// A client that answers with these bytes.
Ending Reply(const char* name, const std::string& bytes, unsigned textId, const char* httpLine) {
    Ending row(name);
    row.before = [bytes](EndingTest& flow) { flow.startClientThatAnswers(bytes); };
    row.textId = textId;
    row.httpLine = httpLine;
    return row;
}

Ending NoClient() {
    Ending row("NoClient");
    row.before = [](EndingTest& flow) {
        flow.startClient();
        flow.host_.product.writeSettings("port=1\r\nlowerversion=1.3.7\r\n");
    };
    row.textId = IDS_CLIENT_UNREACHABLE;
    row.behind = L"10061";
    row.httpLine = "[ERROR] connect error, Error Code is: 10061";
    return row;
}

Ending ThatDiesBetweenPackingAndPosting() {
    Ending row("ClientThatDiesBetweenPackingAndPosting");
    row.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "[INFO] Scene packed into "); }));
        flow.stopClient();
    };
    row.textId = IDS_CLIENT_UNREACHABLE;
    row.behind = L"10061";
    row.httpLine = "[ERROR] connect error, Error Code is: 10061";
    return row;
}

// It listens until it has the one connection; a moment later it would be refused instead.
Ending ThatDiesBeforeItReplies() {
    Ending row = Client("ClientThatDiesBeforeItReplies", L"--delay 60000", IDS_CLIENT_UNREACHABLE,
                        "[ERROR] ");
    row.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "[INFO] Write json file at: "); }));
        flow.stopClient();
    };
    row.anyCode = true;
    return row;
}

// Sending or receiving fails, with a code of either.
Ending ThatClosesAtOnce() {
    Ending row = Client("CloseAtOnce", L"--close-at-once", IDS_CLIENT_UNREACHABLE, "[ERROR] ");
    row.anyCode = true;
    return row;
}

Ending ThatRefusesInItsOwnWords() {
    Ending row = Client("RefusedInTheClientsWords", L"--reply-code 10010 --err \"disk full\"", 0,
                        "[ERROR] disk full");
    row.behind = L"disk full";
    return row;
}

// A newer client's code: it has shown its own words, the log tells that an answer came.
Ending UnknownCode() {
    Ending row = Reply("ACodeThatNobodyKnows",
                       "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n{\"ret\":12345}", 0,
                       "[INFO] tcp read data successfully.");
    row.silent = true;
    return row;
}

INSTANTIATE_TEST_SUITE_P(
    AtTheClient, EndingTest,
    ::testing::Values(
        NoClient(), ThatDiesBetweenPackingAndPosting(), ThatDiesBeforeItReplies(),
        ThatClosesAtOnce(),
        Reply("ReplyWithoutJson", "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n",
              IDS_REPLY_WITHOUT_JSON, "[INFO] find '{' failed."),
        Reply("ReplyThatCannotBeRead",
              "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n{\"ret\":", IDS_REPLY_UNREADABLE,
              "[ERROR] Get response data failed: parse the data from client failed!"),
        UnknownCode(),
        Client("SubmittedBefore", L"--reply-code 10009", IDS_REPLY_SUBMITTED_BEFORE,
               "[ERROR] The current submission scenario already exists, please do not repeat the "
               "submission!"),
        ThatRefusesInItsOwnWords()),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
