// The exchange with the farm's client application on this machine: one HTTP request, one reply.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>

namespace orv {

// Reply code of a job that the client took.
constexpr int kReplyAccepted = 10001;
// Result of PostToClient when the exchange ended before a reply code was known.
constexpr int kNoReply = -1;

struct ClientLink {
    std::wstring host; // dotted IPv4 address
    std::int32_t port = 0;
};

// Sends `requestBody` (UTF-8 JSON) to the client, waits for one reply of at most 2048 bytes, shows its
// message over `ownerWindow` and returns its code, or kNoReply. Winsock must be started. Blocks for as
// long as the system's own time-outs: call it from a worker thread. Logs to "rud_http".
int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow);

} // namespace orv
