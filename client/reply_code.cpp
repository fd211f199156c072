#include "client/reply_code.h"

#include "analysis/text/text_convert.h"
#include "config/submission_windows.h"
#include "log/log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <json/json.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>

namespace orv {
namespace {

// The wording of the log lines is what the farm's support searches for: it stays letter for letter,
// slips included.
const ReplyCode kReplyCodes[] = {
    {kReplyAccepted, kInfo, IDS_REPLY_ACCEPTED, "Submit successfully."},
    {10002, kError, IDS_REPLY_NOT_A_MAX_PROJECT,
     "The client's current project is not a 3ds max render project, please set it up again!"},
    {10003, kError, IDS_REPLY_RENDER_VERSION, "The client rendering version is not match!"},
    {10004, kError, IDS_REPLY_NOT_A_STILL_PROJECT,
     "The current project is not an design sketch project!"},
    {10005, kError, IDS_REPLY_SCENE_MISSING, "The scene file is not exist!"},
    {10006, kError, IDS_REPLY_JOB_FILE_MISSING, "he Analysis file is not exist!"},
    {10007, kError, IDS_REPLY_JOB_FILE_UNREADABLE, "Parse the analysis file failed!"},
    {10008, kError, IDS_REPLY_SCENE_SUFFIX,
     "The current submission of the scene suffix is wrong, please check for confirmation!"},
    {10009, kError, IDS_REPLY_SUBMITTED_BEFORE,
     "The current submission scenario already exists, please do not repeat the submission!"},
    {kReplyOwnWords, kError, 0, nullptr},
    {11000, kError, IDS_REPLY_INTERNAL_ERROR,
     "An internal error occurred. Please restart 3ds max and re-operate!"},
    {11010, kError, IDS_CAMERA_NAMES_UNUSABLE,
     "Camera name can not have special characters, please modify and re-submit!"},
};

// JsonCpp returns false for malformed text. It throws for excessive nesting, for a reply that is no
// object, and for a "ret" that it cannot convert.
Reply ReadReplyOrThrow(const std::string& replyText) {
    Reply reply;
    Json::Reader reader;
    Json::Value root;
    if (!reader.parse(replyText, root))
        return reply;
    reply.code = root["ret"].asInt();
    const Json::Value& words = root["err"];
    if (words.isString()) {
        reply.hasOwnWords = true;
        reply.ownWords = words.asString();
    }
    reply.readable = true;
    return reply;
}

} // namespace

const ReplyCode* FindReplyCode(int code) {
    const auto* const found =
        std::find_if(std::begin(kReplyCodes), std::end(kReplyCodes),
                     [code](const ReplyCode& known) { return known.code == code; });
    return found == std::end(kReplyCodes) ? nullptr : found;
}

Reply ReadReply(const std::string& replyText) {
    try {
        return ReadReplyOrThrow(replyText);
    } catch (const std::exception&) {
        return {};
    }
}

int ReplyCodeMessage(const std::string& replyText, HWND ownerWindow) {
    ExchangeLog log;
    const std::wstring caption = ResourceText(IDS_CAPTION);
    const std::wstring marker = ResourceText(IDS_LANGUAGE_MARKER);
    const auto report = [&](const std::wstring& text, const char* severity,
                            const std::string& logText) {
        ShowSubmissionMessage(ownerWindow, text, caption, MB_OK, marker);
        WriteLog(log, severity, logText);
    };

    const Reply reply = ReadReply(replyText);
    if (!reply.readable) {
        std::printf("Error %lu in WinHttpReadData.\n", ::GetLastError());
        std::fflush(stdout);
        report(ResourceText(IDS_REPLY_UNREADABLE), kError,
               "Get response data failed: parse the data from client failed!");
        return kNoReply;
    }

    const ReplyCode* const known = FindReplyCode(reply.code);
    if (known == nullptr)
        return reply.code;
    if (known->textId != 0) {
        report(ResourceText(known->textId), known->severity, known->logText);
    } else {
        const std::wstring words =
            reply.hasOwnWords ? Utf8ToWide(reply.ownWords) : ResourceText(IDS_REPLY_UNREADABLE);
        report(words, known->severity, reply.ownWords);
    }
    return reply.code;
}

} // namespace orv
