// A client of the farm for unit tests: takes one request on 127.0.0.1 and answers it.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"

#include <chrono>
#include <string>
#include <thread>

namespace orv {
namespace test {

class ReplyServer : private rud_Noncopyable {
public:
    // Answers with an HTTP head and `body`. Waits at most `deadline` for the request.
    explicit ReplyServer(std::string body,
                         std::chrono::seconds deadline = std::chrono::seconds(30));
    ~ReplyServer();

    int port() const { return port_; }

    // The request's body, after the exchange is over; empty when nobody came within the deadline.
    std::string requestBody();

private:
    void serve();
    bool isReadable(SOCKET socket) const;
    std::string receiveRequest(SOCKET connection) const;

    const std::string body_;
    const std::chrono::seconds deadline_;
    SocketHandle listener_;
    int port_ = 0;
    std::string request_;
    std::thread thread_;
};

} // namespace test
} // namespace orv
