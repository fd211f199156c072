#include "client/client_link.h"

#include "client/tcp_exchange.h"
#include "config/plugin_data.h"
#include "config/submission_message.h"
#include "log/module_log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {

namespace {

// The socket is closed when this returns: no message keeps the client's connection open.
bool Exchange(const ClientLink& link, const std::string& requestBody, HANDLE endEvent,
              std::string& reply, ExchangeFailure& failure) {
    SocketHandle socket;
    return OpenSocket(socket, failure) && Connect(socket.get(), link, failure) &&
           SendAll(socket.get(), HttpRequest(link, requestBody), failure) &&
           ReceiveOnce(socket.get(), reply, failure, endEvent);
}

} // namespace

int PostToClient(const ClientLink& link, const std::string& requestBody, HWND ownerWindow) {
    ModuleLog log("rud_http", 2, 5, 0);
    const std::wstring caption = ResourceText(IDS_CAPTION);
    const std::wstring marker = ResourceText(IDS_LANGUAGE_MARKER);

    const EndRequest& endRequest = PluginData::instance().endSubmission;
    std::string reply;
    ExchangeFailure failure;
    if (!Exchange(link, requestBody, endRequest.event(), reply, failure)) {
        if (endRequest.isMade()) {
            log.write("The exchange was ended by request. The client may have the job.", kWarn);
            return kNoReply;
        }
        log.write(failure.logText, kError);
        ShowSubmissionMessage(ownerWindow,
                              ResourceText(IDS_CLIENT_UNREACHABLE) + std::to_wstring(failure.code),
                              caption, MB_OK, marker);
        return kNoReply;
    }
    log.write("tcp read data successfully.", kInfo);

    const std::string json = JsonInReply(reply);
    if (json.empty()) {
        // An answer that is not the client's is no fault of this program, hence the level.
        log.write("find '{' failed.", kInfo);
        ShowSubmissionMessage(ownerWindow, ResourceText(IDS_REPLY_WITHOUT_JSON), caption, MB_OK,
                              marker);
        return kNoReply;
    }
    return ReplyCodeMessage(json, ownerWindow, log);
}

} // namespace orv
