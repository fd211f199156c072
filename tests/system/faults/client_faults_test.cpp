// What the farm's client can do to an exchange, byte by byte.
#include "tests/system/faults/fault.h"

namespace orv {
namespace test {
namespace {

constexpr char kUnreadable[] =
    "[ERROR] Get response data failed: parse the data from client failed!";
constexpr char kNoJson[] = "[INFO] find '{' failed.";

class ClientFaults : public FaultTable {};

TEST_P(ClientFaults, AreToldAndTheNextSubmissionSucceeds) {
    meetAndMend();
}

// A client with other options.
Fault Client(const char* name, const wchar_t* options, unsigned textId, const char* logLine) {
    Fault fault(name);
    fault.before = [options](FaultTable& flow) { flow.startClient(options); };
    fault.textId = textId;
    fault.logName = L"rud_http";
    fault.logLine = logLine;
    return fault;
}

// A client that answers with these bytes.
Fault Reply(const char* name, const std::string& bytes, unsigned textId, const char* logLine) {
    Fault fault(name);
    fault.before = [bytes](FaultTable& flow) { flow.startClientThatAnswers(bytes); };
    fault.textId = textId;
    fault.logName = L"rud_http";
    fault.logLine = logLine;
    return fault;
}

std::string Response(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

// A newer client's code: it has shown its own words, the log tells that an answer came.
Fault UnknownCode() {
    Fault fault = Reply("ACodeThatNobodyKnows", Response("{\"ret\":12345}"), 0,
                        "[INFO] tcp read data successfully.");
    fault.silent = true;
    return fault;
}

INSTANTIATE_TEST_SUITE_P(Connection, ClientFaults,
                         ::testing::Values(Client("CloseWithoutReply", L"--close-without-reply", 0,
                                                  "[ERROR] "),
                                           Client("CloseAtOnce", L"--close-at-once", 0, "[ERROR] "),
                                           Client("TooLongAReply", L"--oversized", 0, "[ERROR] "),
                                           Client("CutBeforeTheBody", L"--split before-body",
                                                  IDS_REPLY_WITHOUT_JSON, kNoJson),
                                           Client("CutInsideTheBody", L"--split inside-body",
                                                  IDS_REPLY_UNREADABLE, kUnreadable)),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Bytes, ClientFaults,
    ::testing::Values(
        Reply("OneByte", "H", IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("HalfAStatusLine", "HTTP/1.1 2", IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("HalfTheHeaders", "HTTP/1.1 200 OK\r\nContent-Le", IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("HeadersWithoutTheirEnd", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n",
              IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("NoBody", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n", IDS_REPLY_WITHOUT_JSON,
              kNoJson),
        Reply("HalfABody", "HTTP/1.1 200 OK\r\nContent-Length: 13\r\n\r\n{\"ret\":",
              IDS_REPLY_UNREADABLE, kUnreadable),
        Reply("Garbage", std::string("\0\xFF\xFE{\"\0}\r\n\r\n{", 12), IDS_REPLY_WITHOUT_JSON,
              kNoJson),
        Reply("AnotherProtocol", "SSH-2.0-OpenSSH_9.2\r\n", IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("AnotherStatus", "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n",
              IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("ABodyThatIsNoObject", Response("[10001]"), IDS_REPLY_WITHOUT_JSON, kNoJson),
        Reply("ACodeThatIsAText", Response("{\"ret\":\"10001\"}"), IDS_REPLY_UNREADABLE,
              kUnreadable),
        Reply("NoCode", Response("{}"), IDS_REPLY_UNREADABLE, kUnreadable), UnknownCode(),
        Reply("ACodeBeyondAllNumbers", Response("{\"ret\":99999999999999999999}"),
              IDS_REPLY_UNREADABLE, kUnreadable),
        Reply("DeepNesting", Response(std::string(900, '[')), IDS_REPLY_WITHOUT_JSON, kNoJson)),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
