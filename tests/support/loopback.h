// Sockets of this machine, for tests that are one side of a connection themselves.
#pragma once

#include "base/handles.h"

#include <cstdint>
#include <string>

namespace orv {
namespace test {

// Listens on a free port of 127.0.0.1. Winsock must be started.
class LoopbackListener {
public:
    LoopbackListener();

    std::uint16_t port() const { return port_; }

    // Waits for the next connection.
    SocketHandle accept() const;

private:
    SocketHandle socket_;
    std::uint16_t port_ = 0;
};

// A connection to a port of 127.0.0.1; empty when it is refused.
SocketHandle ConnectTo(std::uint16_t port);

// A port without a listener: it was free a moment ago.
std::uint16_t UnusedPort();

// All bytes that come until the other side ends the connection.
std::string ReceiveAll(SOCKET socket);

} // namespace test
} // namespace orv
