#include "client/client_link.h"

#include "analysis/text/text_convert.h"
#include "base/windows.h"
#include "config/plugin_data.h"
#include "config/submission_windows.h"
#include "log/log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace orv {
namespace {

bool Start() {
    WSADATA data = {};
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

namespace {

// The client's whole reply, status line and headers included. It answers in a few hundred bytes.
constexpr int kReplySize = 2048;

// Failures of connecting and of receiving share this log text.
constexpr char kConnectError[] = "connect error, Error Code is: ";

ExchangeFailure FailureOf(const std::string& logText, DWORD code) {
    ExchangeFailure failure;
    failure.logText = logText + std::to_string(code);
    failure.code = code;
    return failure;
}

// Waits until the socket has something to read, its end included, or `endEvent` is signalled, for
// which it answers false. Where the system has no event left, it waits for the socket alone. From
// here on the socket does not block.
bool WaitForReply(SOCKET socket, HANDLE endEvent) {
    const EventHandle readable(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!readable || ::WSAEventSelect(socket, readable.get(), FD_READ | FD_CLOSE) != 0)
        return true;
    const HANDLE either[] = {readable.get(), endEvent};
    return ::WaitForMultipleObjects(2, either, FALSE, INFINITE) != WAIT_OBJECT_0 + 1;
}

} // namespace

bool OpenSocket(SocketHandle& socket, ExchangeFailure& failure) {
    socket.reset(::socket(AF_INET, SOCK_STREAM, 0));
    const DWORD code = ::GetLastError();
    if (socket)
        return true;
    failure = FailureOf("Create socket error, Error Code is: ", code);
    return false;
}

bool Connect(SOCKET socket, const ClientLink& link, ExchangeFailure& failure) {
    // Cut to sixteen bits, such a number would name the port of some other program.
    if (link.port < 1 || link.port > (std::numeric_limits<std::uint16_t>::max)()) {
        failure = FailureOf(kConnectError, WSAEADDRNOTAVAIL);
        return false;
    }
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::inet_addr(WideToUtf8(link.host).c_str());
    address.sin_port = ::htons(static_cast<u_short>(link.port));
    const int result =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    const DWORD code = ::GetLastError();
    if (result == 0)
        return true;
    failure = FailureOf(kConnectError, code);
    return false;
}

bool SendAll(SOCKET socket, const std::string& bytes, ExchangeFailure& failure) {
    constexpr std::size_t kLargestStep = (std::numeric_limits<int>::max)();
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const std::size_t step = (std::min)(bytes.size() - sent, kLargestStep);
        ::SetLastError(0); // so that the code of a step that sends nothing is not an older one
        const int result = ::send(socket, bytes.data() + sent, static_cast<int>(step), 0);
        const DWORD code = ::GetLastError();
        if (result <= 0) {
            failure = FailureOf("send error send_size:" + std::to_string(sent) + " total_size:" +
                                    std::to_string(bytes.size()) + ", Error Code is: ",
                                code);
            return false;
        }
        sent += static_cast<std::size_t>(result);
    }
    return true;
}

// Reads once: the client sends its reply in one piece, and its length is not taken from its
// headers.
bool ReceiveOnce(SOCKET socket, std::string& reply, ExchangeFailure& failure, HANDLE endEvent) {
    if (endEvent != nullptr && !WaitForReply(socket, endEvent)) {
        failure = FailureOf("receive ended by request, Error Code is: ", 0);
        return false;
    }
    const std::unique_ptr<char[]> buffer(new char[kReplySize]);
    ::SetLastError(0); // an orderly close sets no error code
    const int received = ::recv(socket, buffer.get(), kReplySize, 0);
    const DWORD code = ::GetLastError();
    if (received <= 0) {
        failure = FailureOf(kConnectError, code);
        return false;
    }
    reply.assign(buffer.get(), static_cast<std::size_t>(received));
    return true;
}

namespace {

// The socket is closed when this returns: no message keeps the client's connection open.
bool Exchange(const ClientLink& link, const std::string& requestBody, HANDLE endEvent,
              std::string& reply, ExchangeFailure& failure) {
    SocketHandle socket;
    return OpenSocket(socket, failure) && Connect(socket.get(), link, failure) &&
           SendAll(socket.get(), HttpRequest(link, requestBody), failure) &&
           ReceiveOnce(socket.get(), reply, failure, endEvent);
}

// Sends the request and returns the JSON text of the reply. Without one it reports what failed and
// returns an empty text.
std::string ReplyTo(const ClientLink& link, const std::string& requestBody, HWND ownerWindow) {
    ExchangeLog log;
    const std::wstring caption = ResourceText(IDS_CAPTION);
    const std::wstring marker = ResourceText(IDS_LANGUAGE_MARKER);

    const EndRequest& endRequest = PluginData::instance().endSubmission;
    std::string reply;
    ExchangeFailure failure;
    if (!Exchange(link, requestBody, endRequest.event(), reply, failure)) {
        if (endRequest.isMade()) {
            WriteLog(log, kWarn, "The exchange was ended by request. The client may have the job.");
            return {};
        }
        ShowSubmissionMessage(ownerWindow,
                              ResourceText(IDS_CLIENT_UNREACHABLE) + std::to_wstring(failure.code),
                              caption, MB_OK, marker);
        WriteLog(log, kError, failure.logText);
        return {};
    }
    WriteLog(log, kInfo, "tcp read data successfully.");

    std::string json = JsonInReply(reply);
    if (json.empty()) {
        ShowSubmissionMessage(ownerWindow, ResourceText(IDS_REPLY_WITHOUT_JSON), caption, MB_OK,
                              marker);
        // INFO, because a reply of another program is not an error of the plug-in.
        WriteLog(log, kInfo, "find '{' failed.");
    }
    return json;
}

} // namespace

int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow) {
    const std::string reply = ReplyTo(link, requestBody, ownerWindow);
    return reply.empty() ? kNoReply : ReplyCodeMessage(reply, ownerWindow);
}

} // namespace orv
