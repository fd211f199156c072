// The bytes on the wire between the plug-in and the farm's client.
#pragma once

#include <cstdint>
#include <string>

namespace orv {

// Where the client listens.
struct ClientLink {
    std::wstring host;     // dotted IPv4 address
    std::int32_t port = 0; // 1 to 65535
};

// The request that carries `body` (UTF-8 JSON, taken as it is) to the client.
std::string HttpRequest(const ClientLink& link, const std::string& body);

// The JSON text in the client's reply: from its first "{" to its end, or to a zero byte. Ignores
// the status line and the headers. Empty when the reply has no "{".
std::string JsonInReply(const std::string& reply);

} // namespace orv
