// Exchanges that fail: a message is shown, the log has its line, and nothing is left behind.
#include "tests/support/files.h"
#include "tests/support/handle_count.h"
#include "tests/support/loopback.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/client/exchange.h"

namespace orv {
namespace test {
namespace {

constexpr char kRead[] = "[INFO] tcp read data successfully.";
constexpr char kUnreadable[] =
    "[ERROR] Get response data failed: parse the data from client failed!";

class AFailedExchange : public ClientExchange {
protected:
    // Lets the client answer with these bytes and nothing else.
    Outcome postForReply(const std::string& reply) {
        const TemporaryFolder folder;
        WriteFileBytes(folder.file(L"reply"), reply);
        ClientProcess client(L"--requests 1 --raw-reply \"" + folder.file(L"reply") + L"\"");
        return post(client.port());
    }
};

TEST_F(AFailedExchange, WithoutAListenerTellsThatTheConnectionWasRefused) {
    const Outcome outcome = post(UnusedPort());
    EXPECT_EQ(outcome.code, kNoReply);
    EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_CLIENT_UNREACHABLE) + L"10061");
    EXPECT_EQ(outcome.logLines,
              std::vector<std::string>{"[ERROR] connect error, Error Code is: 10061"});
}

// A settings file can hold any number. Cut to sixteen bits, 65536 + n would reach the program on
// port n.
TEST_F(AFailedExchange, WithAPortThatCannotBeNeverReachesAnotherProgram) {
    ClientProcess client(L"--reply-code 10001");
    std::size_t attempts = 0;
    for (const std::int32_t port : {0, -1, 65536, 65536 + client.port(), -65536 + client.port()}) {
        const Outcome outcome = post(port);
        EXPECT_EQ(outcome.code, kNoReply) << port;
        EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_CLIENT_UNREACHABLE) + L"10049") << port;
        ASSERT_EQ(outcome.logLines.size(), ++attempts);
        EXPECT_EQ(outcome.logLines.back(), "[ERROR] connect error, Error Code is: 10049");
    }
    EXPECT_EQ(post(client.port()).code, 10001);
    EXPECT_EQ(client.nextLine()["request"].asInt(), 1) << "the client got one of the others";
}

TEST_F(AFailedExchange, WithAnAddressThatIsNoneIsReported) {
    const Outcome outcome = post(ClientLink{L"no.such.address", 20521}, "{}");
    EXPECT_EQ(outcome.code, kNoReply);
    ASSERT_EQ(outcome.logLines.size(), 1U);
    EXPECT_EQ(outcome.logLines[0].compare(0, 38, "[ERROR] connect error, Error Code is: "), 0);
    EXPECT_NE(outcome.onlyText().find(ResourceText(IDS_CLIENT_UNREACHABLE)), std::wstring::npos);
}

// Depending on how far the system has got when the client closes, sending or receiving fails.
TEST_F(AFailedExchange, WithAClientThatClosesAtOnceIsReported) {
    ClientProcess client(L"--close-at-once");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, kNoReply);
    EXPECT_EQ(outcome.onlyText().find(ResourceText(IDS_CLIENT_UNREACHABLE)), 0U);
    ASSERT_EQ(outcome.logLines.size(), 1U);
    const std::string& line = outcome.logLines[0];
    EXPECT_TRUE(line.find("[ERROR] connect error, Error Code is: ") == 0 ||
                line.find("[ERROR] send error send_size:") == 0)
        << line;
}

TEST_F(AFailedExchange, WithAClientThatSaysNothingHasTheWordsOfAFailedConnection) {
    ClientProcess client(L"--close-without-reply");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, kNoReply);
    EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_CLIENT_UNREACHABLE) + L"0");
    EXPECT_EQ(outcome.logLines,
              std::vector<std::string>{"[ERROR] connect error, Error Code is: 0"});
}

struct BadReply {
    const char* name;
    std::string reply;
    bool hasBrace;
};

TEST_F(AFailedExchange, WithAReplyThatIsNotTheClientsIsReported) {
    std::string deep = "HTTP/1.1 200 OK\r\n\r\n{\"ret\":";
    deep.append(2000, '[');
    const BadReply replies[] = {
        {"garbage", "\x01\x02\xFF\xFE garbage", false},
        {"one byte", "H", false},
        {"half a status line", "HTTP/1.1 2", false},
        {"half the headers", "HTTP/1.1 200 OK\r\nContent-Le", false},
        {"headers without their end", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n", false},
        {"no body", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n", false},
        {"another protocol", "SSH-2.0-OpenSSH_9.2\r\n", false},
        {"another status", "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n", false},
        {"garbage with a brace behind a zero", std::string("\0\xFF\xFE{\"\0}\r\n\r\n{", 12), false},
        {"a list", "HTTP/1.1 200 OK\r\n\r\n[10001]", false},
        {"900 lists", "HTTP/1.1 200 OK\r\n\r\n" + std::string(900, '['), false},
        {"a code beyond all numbers", "HTTP/1.1 200 OK\r\n\r\n{\"ret\":99999999999999999999}",
         true},
        {"a head alone", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", false},
        {"a zero first", std::string("\0{\"ret\":10001}", 14), false},
        {"half of the JSON", "HTTP/1.1 200 OK\r\n\r\n{\"ret\":100", true},
        {"a code in quotes", "HTTP/1.1 200 OK\r\n\r\n{\"ret\":\"10001\"}", true},
        {"a code that is huge", "HTTP/1.1 200 OK\r\n\r\n{\"ret\":9999999999999}", true},
        {"a code that is a list", "HTTP/1.1 200 OK\r\n\r\n{\"ret\":[10001]}", true},
        {"a zero inside", std::string("{\"ret\"\0:10001}", 14), true},
        {"deep nesting", deep, true},
    };
    std::vector<std::string> expectedLog;
    for (const BadReply& bad : replies) {
        const Outcome outcome = postForReply(bad.reply);
        EXPECT_EQ(outcome.code, kNoReply) << bad.name;
        EXPECT_EQ(outcome.onlyText(),
                  ResourceText(bad.hasBrace ? IDS_REPLY_UNREADABLE : IDS_REPLY_WITHOUT_JSON))
            << bad.name;
        expectedLog.push_back(kRead);
        expectedLog.push_back(bad.hasBrace ? kUnreadable : "[INFO] find '{' failed.");
        EXPECT_EQ(outcome.logLines, expectedLog) << bad.name;
    }
}

TEST_F(AFailedExchange, WithAReplyWithoutACodeShowsNothing) {
    const Outcome outcome = postForReply("HTTP/1.1 200 OK\r\n\r\n{}");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.boxes.empty());
    EXPECT_EQ(outcome.logLines, std::vector<std::string>{kRead});
}

TEST_F(AFailedExchange, WithAReplyThatIsTooLongIsReported) {
    ClientProcess client(L"--oversized --reply-code 10001");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, kNoReply);
    EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_REPLY_UNREADABLE));
    EXPECT_EQ(outcome.logLines, (std::vector<std::string>{kRead, kUnreadable}));
}

// A reply of exactly 2048 bytes still fits; one byte more is cut off.
TEST_F(AFailedExchange, BeginsOneByteAboveTheLimit) {
    const std::string head = "HTTP/1.1 200 OK\r\n\r\n{\"ret\":10001,\"x\":\"";
    std::string reply = head + std::string(2048 - head.size() - 2, 'x') + "\"}";
    ASSERT_EQ(reply.size(), 2048U);
    EXPECT_EQ(postForReply(reply).code, 10001);
    reply.insert(head.size(), 1, 'x');
    EXPECT_EQ(postForReply(reply).code, kNoReply);
}

// The one read takes what has come by then: a head without JSON, or half of the JSON.
TEST_F(AFailedExchange, WithAReplyInTwoPiecesSeesTheFirstAlone) {
    {
        ClientProcess client(L"--split before-body --reply-code 10001");
        const Outcome outcome = post(client.port());
        EXPECT_EQ(outcome.code, kNoReply);
        EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_REPLY_WITHOUT_JSON));
        EXPECT_EQ(outcome.logLines, (std::vector<std::string>{kRead, "[INFO] find '{' failed."}));
    }
    ClientProcess client(L"--split inside-body --reply-code 10001");
    const Outcome outcome = post(client.port());
    EXPECT_EQ(outcome.code, kNoReply);
    EXPECT_EQ(outcome.onlyText(), ResourceText(IDS_REPLY_UNREADABLE));
    EXPECT_EQ(outcome.logLines.back(), kUnreadable);
}

TEST_F(AFailedExchange, WritesItsLineWhenItsMessageIsAnswered) {
    const std::uint16_t port = UnusedPort();
    EXPECT_EQ(logWhileMessageIsOpen(port), std::vector<std::string>{});
    EXPECT_EQ(LogLines(folder_.log(L"rud_http")),
              std::vector<std::string>{"[ERROR] connect error, Error Code is: 10061"});
}

TEST_F(AFailedExchange, WithoutJsonWritesItsLineWhenItsMessageIsAnswered) {
    ClientProcess client(L"--split before-body --reply-code 10001");
    EXPECT_EQ(logWhileMessageIsOpen(client.port()), std::vector<std::string>{kRead});
    EXPECT_EQ(LogLines(folder_.log(L"rud_http")),
              (std::vector<std::string>{kRead, "[INFO] find '{' failed."}));
}

TEST_F(AFailedExchange, LeavesNoHandleBehind) {
    const std::uint16_t port = UnusedPort();
    ClientProcess silent(L"--close-without-reply");
    const auto fail = [&](int times) {
        MessageBoxWatcher watcher;
        for (int i = 0; i < times; ++i) {
            PostToClient({L"127.0.0.1", port}, "{}", nullptr);
            PostToClient({L"127.0.0.1", silent.port()}, "{}", nullptr);
        }
    };
    fail(3); // loads what stays loaded
    const std::size_t before = CountOpenHandles();
    fail(25);
    EXPECT_LE(CountOpenHandles(), before);
}

} // namespace
} // namespace test
} // namespace orv
