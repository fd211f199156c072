// One request, read from a connection and checked strictly.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace standin {

struct Request {
    std::string raw;                                          // all bytes that came
    std::string requestLine;                                  // without its line end
    std::vector<std::pair<std::string, std::string>> headers; // in the order of the request
    std::string body;
    std::vector<std::string> problems; // what is not as the plug-in's requests are; empty: nothing
};

// Reads the bytes of one request: the head up to its empty line, then as many bytes as it announces
// and whatever else is already there. Ends early when the other side closes or says nothing for ten
// seconds.
std::string ReceiveRequest(SOCKET connection);

// Takes a request to pieces and compares it with what the plug-in sends to a client on `port`: each
// byte of the head, the length of the body. What the body says is not looked at.
Request ParseRequest(const std::string& raw, std::uint16_t port);

} // namespace standin
