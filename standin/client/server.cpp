#include "standin/client/server.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "standin/client/answer.h"
#include "standin/client/job_check.h"
#include "standin/client/request.h"

#include <cstdio>
#include <memory>

namespace standin {

namespace {

void PrintLine(const Json::Value& value) {
    Json::StreamWriterBuilder format;
    format["indentation"] = "";
    format["emitUTF8"] = true;
    const std::string line = Json::writeString(format, value) + "\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
}

sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    address.sin_port = ::htons(port);
    return address;
}

std::uint16_t PortOf(SOCKET socket) {
    sockaddr_in address = {};
    int size = sizeof(address);
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ::ntohs(address.sin_port);
}

bool Listen(std::uint16_t port, orv::SocketHandle& listener, std::string& problem) {
    listener.reset(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    const BOOL exclusive = TRUE;
    ::setsockopt(listener.get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
                 reinterpret_cast<const char*>(&exclusive), sizeof(exclusive));
    const sockaddr_in address = Loopback(port);
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
        ::listen(listener.get(), SOMAXCONN) == 0)
        return true;
    problem = "Port " + std::to_string(port) + " cannot be listened on, error " +
              std::to_string(::WSAGetLastError()) + ".";
    return false;
}

void Record(const std::string& path, const std::string& bytes) {
    if (path.empty())
        return;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        ::_wfopen(orv::Utf8ToWide(path).c_str(), L"ab"), &std::fclose);
    if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        std::fprintf(stderr, "The request cannot be recorded in %s.\n", path.c_str());
}

std::string RemoteOf(SOCKET connection) {
    sockaddr_in address = {};
    int size = sizeof(address);
    if (::getpeername(connection, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return "unknown";
    const unsigned long ip = ::ntohl(address.sin_addr.s_addr);
    return std::to_string(ip >> 24) + "." + std::to_string(ip >> 16 & 0xFF) + "." +
           std::to_string(ip >> 8 & 0xFF) + "." + std::to_string(ip & 0xFF) + ":" +
           std::to_string(::ntohs(address.sin_port));
}

Json::Value Describe(const Request& request, const JobCheck& check) {
    Json::Value line;
    line["head"] = request.requestLine;
    line["headers"] = Json::arrayValue;
    for (const auto& header : request.headers)
        line["headers"].append(header.first + ": " + header.second);
    line["request_bytes"] = static_cast<Json::UInt64>(request.raw.size());
    line["body_bytes"] = static_cast<Json::UInt64>(request.body.size());
    line["body"] = check.body;
    line["scene"] = check.scene;
    line["job_file"] = check.jobFile;
    line["archive"] = check.archive;
    return line;
}

bool Send(SOCKET connection, const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const int result =
            ::send(connection, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (result <= 0)
            return false; // the other side has heard enough
        sent += static_cast<std::size_t>(result);
    }
    return true;
}

void Answer(SOCKET connection, const Options& options, const std::string& answer) {
    const BOOL noDelay = TRUE; // sends each piece as one segment
    ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&noDelay),
                 sizeof(noDelay));
    ::Sleep(static_cast<DWORD>(options.delayMilliseconds));
    const std::size_t split = SplitPosition(options, answer);
    if (!Send(connection, answer.substr(0, split)) || split == answer.size())
        return;
    ::Sleep(static_cast<DWORD>(options.pauseMilliseconds));
    Send(connection, answer.substr(split));
}

// Ends the connection in order and waits until the other side has ended it too, so that the answer
// is not lost on the way.
void Finish(SOCKET connection) {
    char rest[256];
    ::shutdown(connection, SD_SEND);
    while (::recv(connection, rest, sizeof(rest), 0) > 0) {
    }
}

void ServeOne(orv::SocketHandle connection, const Options& options, std::uint16_t port,
              int number) {
    Json::Value line;
    const std::string remote = RemoteOf(connection.get());
    if (options.closeAtOnce) {
        connection.reset();
        line["request"] = number;
        line["remote"] = remote;
        line["answer"] = "closed at once";
        PrintLine(line);
        return;
    }

    const Request request = ParseRequest(ReceiveRequest(connection.get()), port);
    Record(options.record, request.raw);
    const JobCheck check = CheckJob(request.body);
    std::vector<std::string> problems = request.problems;
    problems.insert(problems.end(), check.problems.begin(), check.problems.end());

    line = Describe(request, check);
    line["request"] = number;
    line["remote"] = remote;
    line["problems"] = Json::arrayValue;
    for (const std::string& problem : problems)
        line["problems"].append(problem);
    line["ok"] = problems.empty();
    if (options.closeWithoutReply) {
        line["answer"] = "closed without a reply";
        PrintLine(line);
        return;
    }

    const int code = request.problems.empty() ? check.replyCode : 10010;
    const std::string answer =
        BuildAnswer(options, code, problems.empty() ? std::string() : problems.front());
    line["answer"] = std::to_string(answer.size()) + " bytes";
    if (options.rawReply.empty())
        line["ret"] = options.replyCode != 0 ? options.replyCode : code;
    PrintLine(line);
    Answer(connection.get(), options, answer);
    Finish(connection.get());
}

} // namespace

bool Serve(const Options& options, std::string& problem) {
    orv::SocketHandle listener;
    if (!Listen(options.port, listener, problem))
        return false;
    const std::uint16_t port = PortOf(listener.get());
    Json::Value ready;
    ready["listening"] = port;
    PrintLine(ready);
    for (int number = 1; options.requests == 0 || number <= options.requests; ++number) {
        orv::SocketHandle connection(::accept(listener.get(), nullptr, nullptr));
        if (!connection) {
            problem =
                "No connection can be taken, error " + std::to_string(::WSAGetLastError()) + ".";
            return false;
        }
        ServeOne(std::move(connection), options, port, number);
    }
    return true;
}

} // namespace standin
