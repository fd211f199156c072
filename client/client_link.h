// The exchange with the farm's client application on this machine: one HTTP request, one reply.
#pragma once

#include "base/windows.h"
#include "client/http_text.h"
#include "client/reply_code.h"

#include <string>

namespace orv {

// Sends `requestBody` (UTF-8 JSON) to the client, waits for one reply of at most 2048 bytes, shows
// its message over `ownerWindow` (may be null) and returns its code, or kNoReply after a message
// that says what went wrong. Winsock must be started (see WinsockSession). Blocks for as long as
// the system's own time-outs and as its message is open: call it from a worker thread. Logs to
// "rud_http". The connection is closed before any message is shown. `PluginData::endSubmission`
// ends the wait for the reply: then the result is kNoReply, a line in the log says so, and nothing
// is shown.
int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow);

} // namespace orv
