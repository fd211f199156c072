// Exchanges that bring a reply.
#include "tests/support/files.h"
#include "tests/support/handle_count.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/client/exchange.h"
#include "tests/unit/client/expected_replies.h"

namespace orv {
namespace test {
namespace {

constexpr char kRead[] = "[INFO] tcp read data successfully.";

using AnExchange = ClientExchange;

TEST_F(AnExchange, TurnsEachReplyCodeIntoItsMessageAndLogLine) {
    std::vector<std::string> expectedLog;
    for (const ExpectedReply& expected : kExpectedReplies) {
        ClientProcess client(L"--requests 1 --reply-code " + std::to_wstring(expected.code));
        const Outcome outcome = post(client.port());
        EXPECT_EQ(outcome.code, expected.code);
        EXPECT_EQ(outcome.onlyText(), ResourceText(expected.textId)) << expected.code;
        expectedLog.push_back(kRead);
        expectedLog.push_back(expected.logLine);
        EXPECT_EQ(outcome.logLines, expectedLog) << expected.code;
    }
}

TEST_F(AnExchange, ShowsTheClientsOwnWords) {
    ClientProcess client(L"--reply-code 10010 --err \"disk full\"");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, 10010);
    EXPECT_EQ(outcome.onlyText(), L"disk full");
    EXPECT_EQ(outcome.logLines, (std::vector<std::string>{kRead, "[ERROR] disk full"}));
}

TEST_F(AnExchange, ShowsTheClientsOwnWordsInChineseAndBeyond) {
    ClientProcess client(L"--reply-code 10010 --err \"磁盘已满 \xD83D\xDCBE\"");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.onlyText(), L"磁盘已满 \xD83D\xDCBE");
    EXPECT_EQ(
        outcome.logLines,
        (std::vector<std::string>{kRead, "[ERROR] \xE7\xA3\x81\xE7\x9B\x98\xE5\xB7\xB2\xE6\xBB\xA1 "
                                         "\xF0\x9F\x92\xBE"}));
}

TEST_F(AnExchange, ReturnsAnUnknownCodeInSilence) {
    ClientProcess client(L"--reply-code 424242");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, 424242);
    EXPECT_TRUE(outcome.boxes.empty());
    EXPECT_EQ(outcome.logLines, std::vector<std::string>{kRead});
}

TEST_F(AnExchange, DoesNotCareForTheHttpStatus) {
    ClientProcess client(L"--reply-code 10001 --http-status 500");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, 10001);
    EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_REPLY_ACCEPTED));
}

TEST_F(AnExchange, WaitsForASlowClient) {
    ClientProcess client(L"--reply-code 10001 --delay 700");
    EXPECT_EQ(post(client.port()).code, 10001);
}

TEST_F(AnExchange, SendsExactlyTheBytesThatTheClientExpects) {
    const TemporaryFolder folder(L"请求 record");
    const std::string body = "{\"scenePath\":\"D:/\xE5\x9C\xBA\xE6\x99\xAF.max\"}";
    ClientProcess client(L"--reply-code 10001 --record \"" + folder.file(L"request") + L"\"");
    const Outcome outcome = post(client.port(), body);
    EXPECT_EQ(outcome.code, 10001);
    EXPECT_EQ(ReadFileBytes(folder.file(L"request")),
              "POST / HTTP/1.1\r\n"
              "Connection: Keep-Alive\r\n"
              "Content-Type: application/json;charset=utf-8\r\n"
              "User-Agent: A WinHTTP Program For Tallowmere/1.0\r\n"
              "Content-Length: " +
                  std::to_string(body.size()) +
                  "\r\nHost: 127.0.0.1:" + std::to_string(client.port()) + "\r\n\r\n" + body);
}

TEST_F(AnExchange, SendsTheHeadAloneForAnEmptyBody) {
    ClientProcess client(L"--reply-code 10001");
    EXPECT_EQ(post(client.port(), "").code, 10001);
    const Json::Value line = client.nextLine();
    EXPECT_EQ(line["body_bytes"].asInt(), 0);
    EXPECT_EQ(line["headers"][3].asString(), "Content-Length: 0");
}

TEST_F(AnExchange, SendsALargeBodyWhole) {
    const TemporaryFolder folder;
    const std::string body = "{\"scenePath\":\"" + std::string(8 * 1024 * 1024, 'x') + "\"}";
    ClientProcess client(L"--reply-code 10001 --record \"" + folder.file(L"request") + L"\"");
    EXPECT_EQ(post(client.port(), body).code, 10001);
    const std::string request = ReadFileBytes(folder.file(L"request"));
    ASSERT_GT(request.size(), body.size());
    EXPECT_TRUE(request.compare(request.size() - body.size(), body.size(), body) == 0);
}

TEST_F(AnExchange, PutsItsMessageOverTheOwnerWindow) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"dialog", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                         50, 50, 400, 300, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    ClientProcess client(L"--reply-code 10001");
    MessageBoxWatcher watcher;
    PostToClient({L"127.0.0.1", client.port()}, "{}", owner);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ::DestroyWindow(owner);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].owner, owner);
}

// The client sees the connection end before the message is answered: it is free for
// the next request.
TEST_F(AnExchange, EndsTheConnectionBeforeItsMessageIsAnswered) {
    ClientProcess client(L"--requests 1 --reply-code 10001");
    DWORD exitCode = 1;
    bool ended = false;
    EXPECT_TRUE(WhileBoxIsOpen(
        ResourceText(IDS_CAPTION),
        [&client] {
            PostToClient({L"127.0.0.1", client.port()}, "{}", nullptr);
        },
        [&] { ended = client.waitForExit(exitCode); }));
    EXPECT_TRUE(ended);
    EXPECT_EQ(exitCode, 0U);
}

TEST_F(AnExchange, LeavesNoHandleBehindAfterTwoHundred) {
    ClientProcess client(L"--reply-code 424242"); // answered in silence
    const auto postMany = [&client](int times) {
        for (int i = 0; i < times; ++i)
            ASSERT_EQ(PostToClient({L"127.0.0.1", client.port()}, "{}", nullptr), 424242);
    };
    postMany(5); // loads what stays loaded
    const std::size_t before = CountOpenHandles();
    postMany(200);
    // A handle lost in each exchange makes hundreds; the system opens one or two late.
    EXPECT_LT(CountOpenHandles(), before + 20);
}

} // namespace
} // namespace test
} // namespace orv
