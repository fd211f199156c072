#include "client/client_link.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "log/module_log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace orv {

namespace {

// The client's whole reply, status line and headers included. It answers in a few hundred bytes.
constexpr int kReplySize = 2048;

// A step of the exchange that failed: the line for the log and the code that the system gave.
struct Failure {
    std::string logText;
    DWORD code = 0;
};

Failure FailureOf(const std::string& logText, DWORD code) {
    return {logText + std::to_string(code), code};
}

bool Connect(SOCKET socket, const ClientLink& link, Failure& failure) {
    constexpr char kText[] = "connect error, Error Code is: ";
    // Cut to sixteen bits, such a number would name the port of some other program.
    if (link.port < 1 || link.port > (std::numeric_limits<std::uint16_t>::max)()) {
        failure = FailureOf(kText, WSAEADDRNOTAVAIL);
        return false;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::inet_addr(WideToUtf8(link.host).c_str());
    address.sin_port = ::htons(static_cast<u_short>(link.port));
    const int result =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    const DWORD code = ::GetLastError();
    if (result == 0)
        return true;
    failure = FailureOf(kText, code);
    return false;
}

bool SendAll(SOCKET socket, const std::string& request, Failure& failure) {
    constexpr std::size_t kLargestStep = (std::numeric_limits<int>::max)();
    std::size_t sent = 0;
    do {
        const std::size_t step = (std::min)(request.size() - sent, kLargestStep);
        ::SetLastError(0); // so that the code of a step that sends nothing is not an older one
        const int result = ::send(socket, request.data() + sent, static_cast<int>(step), 0);
        const DWORD code = ::GetLastError();
        if (result <= 0) {
            failure = FailureOf("send error send_size:" + std::to_string(sent) + " total_size:" +
                                    std::to_string(request.size()) + ", Error Code is: ",
                                code);
            return false;
        }
        sent += static_cast<std::size_t>(result);
    } while (sent < request.size());
    return true;
}

// One read and no more: the client sends its reply in one piece, and nothing in it is relied upon
// to tell where it ends.
bool ReceiveOnce(SOCKET socket, std::string& reply, Failure& failure) {
    const std::unique_ptr<char[]> buffer(new char[kReplySize]);
    ::SetLastError(0); // a connection that was closed in order sets no code of its own
    const int received = ::recv(socket, buffer.get(), kReplySize, 0);
    const DWORD code = ::GetLastError();
    if (received <= 0) {
        failure = FailureOf("connect error, Error Code is: ", code);
        return false;
    }
    reply.assign(buffer.get(), static_cast<std::size_t>(received));
    return true;
}

bool Exchange(const ClientLink& link, const std::string& requestBody, std::string& reply,
              Failure& failure) {
    const SocketHandle socket(::socket(AF_INET, SOCK_STREAM, 0));
    const DWORD code = ::GetLastError();
    if (!socket) {
        failure = FailureOf("Create socket error, Error Code is: ", code);
        return false;
    }
    return Connect(socket.get(), link, failure) &&
           SendAll(socket.get(), HttpRequest(link, requestBody), failure) &&
           ReceiveOnce(socket.get(), reply, failure);
}

} // namespace

int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow) {
    ModuleLog log("rud_http", 2, 5, 0);
    const std::wstring caption = ResourceText(IDS_CAPTION);
    const std::wstring marker = ResourceText(IDS_LANGUAGE_MARKER);

    std::string reply;
    Failure failure;
    if (!Exchange(link, requestBody, reply, failure)) {
        log.write(failure.logText, kError);
        ShowMessage(ownerWindow,
                    ResourceText(IDS_CLIENT_UNREACHABLE) + std::to_wstring(failure.code), caption,
                    MB_OK, marker);
        return kNoReply;
    }
    log.write("tcp read data successfully.", kInfo);

    const std::string json = JsonInReply(reply);
    if (json.empty()) {
        // An answer that is not the client's is no fault of this program, hence the level.
        log.write("find '{' failed.", kInfo);
        ShowMessage(ownerWindow, ResourceText(IDS_REPLY_WITHOUT_JSON), caption, MB_OK, marker);
        return kNoReply;
    }
    return ReplyCodeMessage(json, ownerWindow, log);
}

} // namespace orv
