// The steps of an exchange over a TCP connection. Each returns false with the reason in `failure`.
#pragma once

#include "base/handles.h"
#include "client/http_text.h"

#include <string>

namespace orv {

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

} // namespace orv
