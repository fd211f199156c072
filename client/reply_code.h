// The client's reply codes, with their messages and log lines.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

class ModuleLog;

// Reply code of an accepted job.
constexpr int kReplyAccepted = 10001;
// Reply code of a refusal whose message is the member "err".
constexpr int kReplyOwnWords = 10010;

// Result of an exchange without a reply code.
constexpr int kNoReply = -1;

// One known reply code.
struct ReplyCode {
    int code;
    const char* severity; // level word of the log line
    unsigned textId;      // the message; 0 for the text of "err"
    const char* logText;  // the log line; null for the text of "err"
};

// The table's row for a code, null for an unknown code.
const ReplyCode* FindReplyCode(int code);

// A reply, read.
struct Reply {
    bool readable = false; // the text is a JSON object whose "ret" is a number
    int code = 0;
    bool hasOwnWords = false; // "err" is a text
    std::string ownWords;     // "err", UTF-8
};

// Parses a reply. Never throws: malformed text gives a reply that is not readable.
Reply ReadReply(const std::string& replyText);

// Shows the message of the reply over `ownerWindow` (may be null), writes its line to `log` and
// returns its code. Unknown codes show and log nothing. Returns kNoReply for an unreadable reply.
int ReplyCodeMessage(const std::string& replyText, HWND ownerWindow, ModuleLog& log);

} // namespace orv
