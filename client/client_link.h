// The exchange with the farm's client application on this machine: one HTTP request, one reply.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "base/windows.h"
#include "client/reply_code.h"
#include "client/wire_text.h"

#include <string>

namespace orv {

// Keeps Windows Sockets 2.2 started for this process while it lives. The main dialog holds one from
// its opening to its end; PostToClient needs it.
class WinsockSession : private rud_Noncopyable {
public:
    WinsockSession();
    ~WinsockSession();

    // False when the system has no Windows Sockets 2.2.
    bool started() const { return started_; }

private:
    bool started_;
};

// A step that failed: the line for the log, and the code that the system gave for it.
struct ExchangeFailure {
    std::string logText;
    DWORD code = 0;
};

bool OpenSocket(SocketHandle& socket, ExchangeFailure& failure);

// Connects to where the client listens. A port outside 1 to 65535 is refused here with the code for
// an address that cannot be had.
bool Connect(SOCKET socket, const ClientLink& link, ExchangeFailure& failure);

// Sends all bytes, in as many steps as the system wants.
bool SendAll(SOCKET socket, const std::string& bytes, ExchangeFailure& failure);

// Waits for the first bytes of the other side and takes what has come by then, 2048 bytes at most.
// A connection that ends without a byte is a failure with code 0. So is a wait that `endEvent` (may
// be null) ends by being signalled.
bool ReceiveOnce(SOCKET socket, std::string& reply, ExchangeFailure& failure,
                 HANDLE endEvent = nullptr);

// Sends `requestBody` (UTF-8 JSON) to the client, receives one reply of at most 2048 bytes, shows
// its message over `ownerWindow` (may be null) and returns its code. On a failure it shows an error
// message and returns kNoReply. Requires a WinsockSession. Blocks until the system's time-outs end
// and its message is closed: for worker threads. Logs to "rud_http". Closes the connection before
// it shows a message. `PluginData::endSubmission` ends the wait for the reply: then it logs that,
// shows nothing and returns kNoReply.
int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow);

} // namespace orv
