#include "client/wire_text.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace test {
namespace {

TEST(HttpRequestBytes, AreExactlyWhatTheClientKnows) {
    EXPECT_EQ(HttpRequest({L"127.0.0.1", 20521}, "{\"a\":1}"),
              "POST / HTTP/1.1\r\n"
              "Connection: Keep-Alive\r\n"
              "Content-Type: application/json;charset=utf-8\r\n"
              "User-Agent: A WinHTTP Program For Tallowmere/1.0\r\n"
              "Content-Length: 7\r\n"
              "Host: 127.0.0.1:20521\r\n"
              "\r\n"
              "{\"a\":1}");
}

TEST(HttpRequestBytes, OfAnEmptyBodyAreTheHeadAlone) {
    const std::string request = HttpRequest({L"127.0.0.1", 80}, "");
    EXPECT_NE(request.find("\r\nContent-Length: 0\r\nHost: 127.0.0.1:80\r\n\r\n"),
              std::string::npos);
    EXPECT_EQ(request.substr(request.size() - 4), "\r\n\r\n");
}

TEST(HttpRequestBytes, CountBytesAndNotCharacters) {
    const std::string body = "{\"scenePath\":\"D:/\xE5\x9C\xBA\xE6\x99\xAF.max\"}";
    const std::string request = HttpRequest({L"127.0.0.1", 80}, body);
    EXPECT_NE(request.find("Content-Length: " + std::to_string(body.size()) + "\r\n"),
              std::string::npos);
    EXPECT_EQ(request.substr(request.size() - body.size()), body);
}

TEST(HttpRequestBytes, KeepABodyWithZeroBytes) {
    const std::string body("a\0b", 3);
    const std::string request = HttpRequest({L"127.0.0.1", 80}, body);
    EXPECT_EQ(request.substr(request.size() - 3), body);
    EXPECT_NE(request.find("Content-Length: 3\r\n"), std::string::npos);
}

struct ReplyText {
    const char* name;
    std::string reply;
    std::string json;
};

class JsonOfAReply : public ::testing::TestWithParam<ReplyText> {};

TEST_P(JsonOfAReply, BeginsAtTheFirstBrace) {
    EXPECT_EQ(JsonInReply(GetParam().reply), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, JsonOfAReply,
    ::testing::Values(ReplyText{"WithHead", "HTTP/1.1 200 OK\r\nServer: x\r\n\r\n{\"ret\":10001}",
                                "{\"ret\":10001}"},
                      ReplyText{"WithoutHead", "{\"ret\":10001}", "{\"ret\":10001}"},
                      ReplyText{"BraceInAHeader", "HTTP/1.1 200 OK\r\nETag: {1}\r\n\r\n{\"ret\":1}",
                                "{1}\r\n\r\n{\"ret\":1}"},
                      ReplyText{"WithTail", "x{\"ret\":1}\r\n", "{\"ret\":1}\r\n"},
                      ReplyText{"Nested", "{\"a\":{\"b\":1}}", "{\"a\":{\"b\":1}}"},
                      ReplyText{"Empty", "", ""},
                      ReplyText{"HeadAlone", "HTTP/1.1 200 OK\r\n\r\n", ""},
                      ReplyText{"ZeroBehindTheJson", std::string("{\"ret\":1}\0{}", 12),
                                "{\"ret\":1}"},
                      ReplyText{"ZeroBeforeTheJson", std::string("abc\0{\"ret\":1}", 13), ""}),
    [](const ::testing::TestParamInfo<ReplyText>& tested) {
        return std::string(tested.param.name);
    });

} // namespace
} // namespace test
} // namespace orv
