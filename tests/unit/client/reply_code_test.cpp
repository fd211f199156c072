#include "client/reply_code.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/log_lines.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"
#include "tests/unit/client/expected_replies.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

TEST(ReplyCodes, HaveTheirSeverityTextAndLogLine) {
    for (const ExpectedReply& expected : kExpectedReplies) {
        const ReplyCode* const known = FindReplyCode(expected.code);
        ASSERT_NE(known, nullptr) << expected.code;
        EXPECT_EQ(known->textId, expected.textId) << expected.code;
        EXPECT_EQ("[" + std::string(known->severity) + "] " + known->logText, expected.logLine);
    }
    const ReplyCode* const ownWords = FindReplyCode(kExpectedOwnWords);
    ASSERT_NE(ownWords, nullptr);
    EXPECT_EQ(ownWords->textId, 0U);
    EXPECT_STREQ(ownWords->severity, "ERROR");
    EXPECT_EQ(ownWords->logText, nullptr);
}

TEST(ReplyCodes, OfOtherNumbersAreUnknown) {
    for (const int code : {0, -1, 1, 10000, 10011, 11001, 11011, 2147483647})
        EXPECT_EQ(FindReplyCode(code), nullptr) << code;
}

struct ReadableReply {
    const char* text;
    int code;
    const char* ownWords; // null: the reply has none
};

TEST(AReply, IsReadForItsCodeAndItsWords) {
    const ReadableReply replies[] = {
        {"{\"ret\":10001}", 10001, nullptr},
        {" {\"err\":\"disk full\",\"ret\":10010} ", 10010, "disk full"},
        {"{\"ret\":10010,\"err\":\"\\u78C1\\u76D8\"}", 10010, "\xE7\xA3\x81\xE7\x9B\x98"},
        {"{\"ret\":10010,\"err\":\"\"}", 10010, ""},
        {"{\"ret\":10010,\"err\":[\"a\"]}", 10010, nullptr},
        {"{\"ret\":10010,\"err\":5}", 10010, nullptr},
        {"{\"ret\":-5}", -5, nullptr},
        {"{\"ret\":10001.0}", 10001, nullptr},
        {"{\"ret\":10001.9}", 10001, nullptr},
        {"{\"ret\":-1.9}", -1, nullptr},
        {"{\"ret\":true}", 1, nullptr},
        {"{\"ret\":false}", 0, nullptr},
        {"{\"ret\":null}", 0, nullptr},
        {"{\"err\":\"disk full\"}", 0, "disk full"},
        {"{}", 0, nullptr},
        {"null", 0, nullptr},
        {"{\"ret\":2147483647}", 2147483647, nullptr},
        {"{\"ret\":10002,\"ret\":10001}", 10001, nullptr},
        {"/* note */ {\"ret\":10001}", 10001, nullptr},
        {"{\"ret\":10001}\r\n", 10001, nullptr},
    };
    for (const ReadableReply& expected : replies) {
        const Reply reply = ReadReply(expected.text);
        EXPECT_TRUE(reply.readable) << expected.text;
        EXPECT_EQ(reply.code, expected.code) << expected.text;
        EXPECT_EQ(reply.hasOwnWords, expected.ownWords != nullptr) << expected.text;
        EXPECT_EQ(reply.ownWords, expected.ownWords == nullptr ? "" : expected.ownWords);
    }
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(AReply, ThatIsNotTheClientsIsNotReadable) {
    const std::vector<std::string> replies = {
        "",
        "{",
        "{\"ret\":10001",
        "{\"ret\":}",
        "{\"ret\":\"10001\"}",
        "{\"ret\":[10001]}",
        "{\"ret\":{\"ret\":10001}}",
        "{\"ret\":2147483648}",
        "{\"ret\":-2147483649}",
        "{\"ret\":99999999999999999999999999}",
        "{\"ret\":1e999}",
        "{\"ret\":nan}",
        "[10001]",
        "\"ret\"",
        "10001",
        Repeated("[", 10000),
        Repeated("{\"a\":", 10000),
        "{\"ret\":" + Repeated("[", 10000) + Repeated("]", 10000) + "}",
        "{\"\xFF\xFE\":\xC3\x28}",
        std::string("{\"ret\"\0:10001}", 14),
        "{\"ret\":10001,\"err\":\"\\uD800\"}",
    };
    for (const std::string& text : replies)
        EXPECT_FALSE(ReadReply(text).readable) << text.substr(0, 60);
}

class ReplyMessages : public ::testing::Test {
protected:
    // Lets the reply be handled and returns the boxes that came.
    std::vector<SeenMessageBox> handle(const std::string& text, int expectedCode) {
        MessageBoxWatcher watcher;
        EXPECT_EQ(ReplyCodeMessage(text, nullptr), expectedCode) << text;
        return watcher.stop();
    }

    std::vector<std::string> logLines() const { return LogLines(folder_.log(L"rud_http")); }

    const TestProductFolder folder_;
    const ModuleScope module_;
};

TEST_F(ReplyMessages, ShowAndLogTheRefusalInTheClientsWords) {
    const std::vector<SeenMessageBox> boxes = handle(
        "{\"ret\":10010,\"err\":\"\xE7\xA3\x81\xE7\x9B\x98\xE5\xB7\xB2\xE6\xBB\xA1\"}", 10010);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, L"磁盘已满");
    EXPECT_EQ(boxes[0].caption, ResourceText(IDS_CAPTION));
    EXPECT_EQ(logLines(),
              std::vector<std::string>{"[ERROR] \xE7\xA3\x81\xE7\x9B\x98\xE5\xB7\xB2\xE6\xBB\xA1"});
}

TEST_F(ReplyMessages, NeverShowARefusalWithoutAnyWords) {
    const std::vector<SeenMessageBox> boxes = handle("{\"ret\":10010,\"err\":[]}", 10010);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_REPLY_UNREADABLE));
}

TEST_F(ReplyMessages, ReplaceBytesThatAreNoText) {
    const std::vector<SeenMessageBox> boxes = handle("{\"ret\":10010,\"err\":\"a\xFF"
                                                     "b\"}",
                                                     10010);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, L"a\xFFFD"
                             L"b");
}

TEST_F(ReplyMessages, StaySilentForAnUnknownCode) {
    EXPECT_TRUE(handle("{\"ret\":12345}", 12345).empty());
    EXPECT_TRUE(logLines().empty());
}

TEST_F(ReplyMessages, StaySilentForAReplyWithoutACode) {
    for (const char* text : {"{}", "{\"ret\":null}", "{\"err\":\"disk full\"}"})
        EXPECT_TRUE(handle(text, 0).empty()) << text;
    EXPECT_TRUE(logLines().empty());
}

struct LoggedReply {
    const char* text;
    const char* line;
};

TEST_F(ReplyMessages, AreLoggedWhenTheyAreAnswered) {
    const LoggedReply replies[] = {
        {"{\"ret\":10001}", "[INFO] Submit successfully."},
        {"{\"ret\":10010,\"err\":\"disk full\"}", "[ERROR] disk full"},
        {"{", "[ERROR] Get response data failed: parse the data from client failed!"},
    };
    std::vector<std::string> expected;
    for (const LoggedReply& reply : replies) {
        EXPECT_TRUE(WhileBoxIsOpen(
            ResourceText(IDS_CAPTION), [&] { ReplyCodeMessage(reply.text, nullptr); },
            [&] { EXPECT_EQ(logLines(), expected) << reply.text; }));
        expected.emplace_back(reply.line);
        EXPECT_EQ(logLines(), expected) << reply.text;
    }
}

TEST_F(ReplyMessages, SayThatAReplyCannotBeRead) {
    ::testing::internal::CaptureStdout();
    const std::vector<SeenMessageBox> boxes = handle("{\"ret\":", kNoReply);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_REPLY_UNREADABLE));
    EXPECT_EQ(boxes[0].caption, ResourceText(IDS_CAPTION));
    EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
    EXPECT_EQ(logLines(),
              std::vector<std::string>{
                  "[ERROR] Get response data failed: parse the data from client failed!"});
    EXPECT_EQ(printed.compare(0, 6, "Error "), 0) << printed;
    EXPECT_NE(printed.find(" in WinHttpReadData."), std::string::npos) << printed;
}

} // namespace
} // namespace test
} // namespace orv
