#include "tests/support/loopback.h"

#include <stdexcept>

namespace orv {
namespace test {

namespace {

sockaddr_in AddressOf(std::uint16_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    address.sin_port = ::htons(port);
    return address;
}

} // namespace

LoopbackListener::LoopbackListener() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = AddressOf(0);
    int size = sizeof(address);
    if (::bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(socket_.get(), 1) != 0 ||
        ::getsockname(socket_.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("no port to listen on");
    port_ = ::ntohs(address.sin_port);
}

SocketHandle LoopbackListener::accept() const {
    return SocketHandle(::accept(socket_.get(), nullptr, nullptr));
}

SocketHandle ConnectTo(std::uint16_t port) {
    SocketHandle socket(::socket(AF_INET, SOCK_STREAM, 0));
    const sockaddr_in address = AddressOf(port);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
        socket.reset();
    return socket;
}

std::uint16_t UnusedPort() {
    return LoopbackListener().port();
}

std::string ReceiveAll(SOCKET socket) {
    std::string bytes;
    char buffer[4096];
    for (;;) {
        const int received = ::recv(socket, buffer, sizeof(buffer), 0);
        if (received <= 0)
            return bytes;
        bytes.append(buffer, static_cast<std::size_t>(received));
    }
}

} // namespace test
} // namespace orv
