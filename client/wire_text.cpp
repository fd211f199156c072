#include "client/wire_text.h"

#include "analysis/text/text_convert.h"

#include <cstring>

namespace orv {
namespace {

// The client knows its plug-ins by these very bytes.
constexpr char kFixedHead[] = "POST / HTTP/1.1\r\n"
                              "Connection: Keep-Alive\r\n"
                              "Content-Type: application/json;charset=utf-8\r\n"
                              "User-Agent: A WinHTTP Program For Tallowmere/1.0\r\n"
                              "Content-Length: ";

} // namespace

std::string HttpRequest(const ClientLink& link, const std::string& body) {
    return kFixedHead + std::to_string(body.size()) + "\r\nHost: " + WideToUtf8(link.host) + ":" +
           std::to_string(link.port) + "\r\n\r\n" + body;
}

std::string JsonInReply(const std::string& reply) {
    const char* const begin = std::strchr(reply.c_str(), '{');
    return begin == nullptr ? std::string() : std::string(begin);
}

} // namespace orv
