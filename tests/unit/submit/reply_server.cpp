#include "tests/unit/submit/reply_server.h"

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr char kLengthHeader[] = "Content-Length: ";

std::string BodyOf(const std::string& request) {
    const std::size_t end = request.find("\r\n\r\n");
    return end == std::string::npos ? std::string() : request.substr(end + 4);
}

bool IsWhole(const std::string& request) {
    const std::size_t header = request.find(kLengthHeader);
    if (header == std::string::npos || request.find("\r\n\r\n") == std::string::npos)
        return false;
    const int length = std::atoi(request.c_str() + header + sizeof(kLengthHeader) - 1);
    return BodyOf(request).size() >= static_cast<std::size_t>(length);
}

} // namespace

ReplyServer::ReplyServer(std::string body, std::chrono::seconds deadline)
    : body_(std::move(body)), deadline_(deadline), listener_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener_.get(), generic, size) != 0 || ::listen(listener_.get(), 1) != 0 ||
        ::getsockname(listener_.get(), generic, &size) != 0)
        throw std::runtime_error("no port to listen on");
    port_ = ::ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
}

ReplyServer::~ReplyServer() {
    if (thread_.joinable())
        thread_.join();
}

std::string ReplyServer::requestBody() {
    if (thread_.joinable())
        thread_.join();
    return BodyOf(request_);
}

void ReplyServer::serve() {
    if (!isReadable(listener_.get()))
        return;
    const SocketHandle connection(::accept(listener_.get(), nullptr, nullptr));
    request_ = receiveRequest(connection.get());
    const std::string reply =
        "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body_.size()) + "\r\n\r\n" + body_;
    ::send(connection.get(), reply.data(), static_cast<int>(reply.size()), 0);
    ::shutdown(connection.get(), SD_SEND);
}

bool ReplyServer::isReadable(SOCKET socket) const {
    fd_set sockets;
    FD_ZERO(&sockets);
    FD_SET(socket, &sockets);
    timeval deadline{};
    deadline.tv_sec = static_cast<long>(deadline_.count());
    return ::select(0, &sockets, nullptr, nullptr, &deadline) == 1;
}

std::string ReplyServer::receiveRequest(SOCKET connection) const {
    std::string request;
    std::array<char, 4096> buffer{};
    while (!IsWhole(request) && isReadable(connection)) {
        const int count = ::recv(connection, buffer.data(), static_cast<int>(buffer.size()), 0);
        if (count <= 0)
            break;
        request.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return request;
}

} // namespace test
} // namespace orv
