// What the client's reply means for the user and for the log.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

class ModuleLog;

// Reply code of a job that the client took.
constexpr int kReplyAccepted = 10001;
// Reply code of a refusal that the client words itself, in member "err".
constexpr int kReplyOwnWords = 10010;

// Stands for the code of an exchange that brought none.
constexpr int kNoReply = -1;

// One known reply code.
struct ReplyCode {
    int code;
    const char* severity; // level word of the log line
    unsigned textId;      // the message; 0 for the client's own words
    const char* logText;  // the log line; null for the client's own words
};

// The table's row for a code, null for a code that means nothing to the plug-in.
const ReplyCode* FindReplyCode(int code);

// A reply, read.
struct Reply {
    bool readable = false; // the text is a JSON object whose "ret" is a number
    int code = 0;
    bool hasOwnWords = false; // "err" is a text
    std::string ownWords;     // "err", UTF-8
};

// Reads a reply. Whatever the text holds, no exception leaves: what cannot be read is not readable.
Reply ReadReply(const std::string& replyText);

// Shows the message of the reply over `ownerWindow` (may be null), writes its line to `log` and
// returns its code. A code without a row shows and logs nothing. A reply that cannot be read gives
// kNoReply.
int ReplyCodeMessage(const std::string& replyText, HWND ownerWindow, ModuleLog& log);

} // namespace orv
