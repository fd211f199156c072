#include "client/winsock_session.h"

#include "base/windows.h"

namespace orv {

namespace {

bool Start() {
    WSADATA data{};
    if (::WSAStartup(MAKEWORD(2, 2), &data) != 0)
        return false;
    if (data.wVersion == MAKEWORD(2, 2))
        return true;
    ::WSACleanup(); // an older version was started in its place
    return false;
}

} // namespace

WinsockSession::WinsockSession() : started_(Start()) {}

WinsockSession::~WinsockSession() {
    if (started_)
        ::WSACleanup();
}

} // namespace orv
