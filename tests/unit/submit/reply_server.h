// A client of the farm for unit tests: takes one request on 127.0.0.1 and answers it.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"

#include <string>
#include <thread>

namespace orv {
namespace test {

class ReplyServer : private rud_Noncopyable {
public:
    // Answers with an HTTP head and `body`.
    explicit ReplyServer(std::string body);
    ~ReplyServer();

    int port() const { return port_; }

    // The request's body, after the exchange is over; empty when nobody came within the deadline.
    std::string requestBody();

private:
    void serve();
    std::string receiveRequest(SOCKET connection) const;

    const std::string body_;
    SocketHandle listener_;
    int port_ = 0;
    std::string request_;
    std::thread thread_;
};

} // namespace test
} // namespace orv
