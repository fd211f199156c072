// The client's reply codes, with their messages and log lines.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

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
    bool readable = false; // the text is JSON, and its "ret" can be taken as a whole number
    int code = 0;
    bool hasOwnWords = false; // "err" is a text
    std::string ownWords;     // "err", UTF-8
};

// Parses a reply. Its code is "ret" as JsonCpp's asInt converts it: a missing or null "ret" is 0, a
// fraction is cut off, true is 1. Never throws: malformed text, and a "ret" that is a text, a list,
// an object or beyond 32 bits, give a reply that is not readable.
Reply ReadReply(const std::string& replyText);

// Shows the message of the reply over `ownerWindow` (may be null), then writes its line to
// "rud_http", and returns its code. Unknown codes show and log nothing. Returns kNoReply for an
// unreadable reply. No other ExchangeLog of the caller may be open: two prevent each other from
// renaming the file.
int ReplyCodeMessage(const std::string& replyText, HWND ownerWindow);

} // namespace orv
