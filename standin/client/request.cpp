#include "standin/client/request.h"

#include <algorithm>
#include <cctype>

namespace standin {

namespace {

constexpr char kEndOfHead[] = "\r\n\r\n";
constexpr std::size_t kLongestHead = std::size_t{64} * 1024;
constexpr std::size_t kLongestBody = std::size_t{64} * 1024 * 1024;
constexpr DWORD kSilenceMilliseconds = 10000;

// The length that the head announces, kLongestBody at most; 0 when it announces none.
std::size_t AnnouncedLength(const std::string& head) {
    constexpr char kName[] = "\r\nContent-Length:";
    const std::size_t found = head.find(kName);
    if (found == std::string::npos)
        return 0;
    std::size_t position = found + sizeof(kName) - 1;
    while (position < head.size() && head[position] == ' ')
        ++position;
    std::size_t length = 0;
    for (; position < head.size() && std::isdigit(static_cast<unsigned char>(head[position])) != 0;
         ++position) {
        length = length * 10 + static_cast<std::size_t>(head[position] - '0');
        if (length > kLongestBody)
            return kLongestBody;
    }
    return length;
}

bool ReceiveSome(SOCKET connection, std::string& bytes) {
    char buffer[16 * 1024];
    const int received = ::recv(connection, buffer, sizeof(buffer), 0);
    if (received <= 0)
        return false;
    bytes.append(buffer, static_cast<std::size_t>(received));
    return true;
}

// Splits the head at CR LF. A bare CR or LF stays in its line, where it is noticed.
std::vector<std::string> LinesOf(const std::string& head) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = head.find("\r\n", begin);
        lines.push_back(head.substr(begin, end - begin));
        if (end == std::string::npos)
            return lines;
        begin = end + 2;
    }
}

} // namespace

std::string ReceiveRequest(SOCKET connection) {
    ::setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO,
                 reinterpret_cast<const char*>(&kSilenceMilliseconds),
                 sizeof(kSilenceMilliseconds));
    std::string bytes;
    std::size_t end = std::string::npos;
    while (end == std::string::npos && bytes.size() < kLongestHead) {
        if (!ReceiveSome(connection, bytes))
            return bytes;
        end = bytes.find(kEndOfHead);
    }
    if (end == std::string::npos)
        return bytes;
    const std::size_t whole =
        end + sizeof(kEndOfHead) - 1 + AnnouncedLength(bytes.substr(0, end + 2));
    while (bytes.size() < whole && ReceiveSome(connection, bytes)) {
    }
    return bytes;
}

Request ParseRequest(const std::string& raw, std::uint16_t port) {
    Request request;
    request.raw = raw;
    const std::size_t end = raw.find(kEndOfHead);
    if (end == std::string::npos) {
        request.problems.emplace_back("the head has no end");
        return request;
    }
    request.body = raw.substr(end + sizeof(kEndOfHead) - 1);

    std::vector<std::string> lines = LinesOf(raw.substr(0, end));
    request.requestLine = lines.front();
    lines.erase(lines.begin());
    for (const std::string& line : lines) {
        const std::size_t colon = line.find(": ");
        if (colon == std::string::npos)
            request.problems.push_back("a header without \": \": " + line);
        else
            request.headers.emplace_back(line.substr(0, colon), line.substr(colon + 2));
    }

    // The plug-in always sends these, in this order, and nothing else.
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"Connection", "Keep-Alive"},
        {"Content-Type", "application/json;charset=utf-8"},
        {"User-Agent", "A WinHTTP Program For Tallowmere/1.0"},
        {"Content-Length", std::to_string(request.body.size())},
        {"Host", "127.0.0.1:" + std::to_string(port)},
    };
    if (request.requestLine != "POST / HTTP/1.1")
        request.problems.push_back("the request line is " + request.requestLine);
    if (request.headers.size() != expected.size())
        request.problems.push_back("there are " + std::to_string(request.headers.size()) +
                                   " headers, not " + std::to_string(expected.size()));
    for (std::size_t i = 0; i < (std::min)(request.headers.size(), expected.size()); ++i) {
        if (request.headers[i] != expected[i])
            request.problems.push_back("header " + std::to_string(i + 1) + " is " +
                                       request.headers[i].first + ": " + request.headers[i].second +
                                       ", not " + expected[i].first + ": " + expected[i].second);
    }
    return request;
}

} // namespace standin
