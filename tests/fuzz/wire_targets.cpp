// Replies of the farm's client, or of another program on its port.
#include "analysis/text/text_convert.h"
#include "client/reply_code.h"
#include "client/wire_text.h"
#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"

#include <vector>

namespace orv {
namespace fuzz {
namespace {

std::string HostileReply(Random& random) {
    static const std::vector<std::string> heads = {
        "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 13\r\n\r\n",
        "HTTP/1.1 500 Internal Server Error\r\n\r\n",
        "HTTP/1.0 200\n\n",
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nd\r\n",
        "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n\r\n",
        "",
    };
    static const std::vector<std::string> bodies = {
        R"({"ret":10001})",
        R"({"ret":10010,"err":"disk full"})",
        R"({"ret":10010,"err":"\u78c1\u76d8\u5df2\u6ee1 \ud83d\udcbe"})",
        R"({"ret":"10001","err":7})",
    };
    std::string head = random.oneOf(heads);
    if (random.oneIn(4))
        head = MutateBytes(head, random);
    const std::string reply = head + HostileJson(random.oneOf(bodies), random);
    return reply.substr(0, 2048); // the product never reads more
}

void ReadHostileReply(const std::string& bytes) {
    const std::string json = JsonInReply(bytes);
    Require(json.empty() || json.front() == '{', "a reply's JSON begins with its brace");
    const Reply reply = ReadReply(json);
    Require(reply.readable || (reply.code == 0 && !reply.hasOwnWords), "unreadable means nothing");
    const ReplyCode* const known = FindReplyCode(reply.code);
    Require(known == nullptr || known->code == reply.code, "a code has its own row");
    Utf8ToWide(reply.ownWords);
}

std::string HostileBody(Random& random) {
    return HostileJson(R"({"scenePath":"D:/scenes/room.max","filePath":"D:/scenes/job.json"})",
                       random);
}

void WriteRequest(const std::string& bytes) {
    const ClientLink link{L"127.0.0.1", static_cast<std::int32_t>(bytes.size())};
    const std::string request = HttpRequest(link, bytes);
    const std::size_t end = request.find("\r\n\r\n");
    Require(end != std::string::npos && request.substr(end + 4) == bytes,
            "the body stands behind the head as it is");
    Require(request.find("Content-Length: " + std::to_string(bytes.size()) + "\r\n") < end,
            "its length is its own");
}

} // namespace

std::vector<Target> WireTargets() {
    return {{"reply", HostileReply, ReadHostileReply}, {"request", HostileBody, WriteRequest}};
}

} // namespace fuzz
} // namespace orv
