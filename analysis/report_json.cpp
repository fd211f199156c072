#include "analysis/report_json.h"

#include "analysis/text/text_convert.h"

#include <json/reader.h>

#include <algorithm>
#include <functional>

namespace orv {
namespace {

constexpr int kLongestRun = 100;

using Position = const char*;

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// All three take the position behind the opening characters.

Position SkipString(Position at, Position end) {
    while (at != end && *at != '"')
        at += *at == '\\' && at + 1 != end ? 2 : 1;
    return at == end ? end : at + 1;
}

Position SkipBlockComment(Position at, Position end) {
    constexpr char kClosing[] = {'*', '/'};
    at = std::search(at, end, kClosing, kClosing + 2);
    return at == end ? end : at + 2;
}

Position SkipLineComment(Position at, Position end) {
    return std::find_if(at, end,
                        [](char character) { return character == '\n' || character == '\r'; });
}

// How many times the text has characters that open a comment, those within strings included.
int PossibleComments(const std::string& json) {
    int count = 0;
    std::size_t at = json.find('/');
    while (at != std::string::npos && count <= kLongestRun) {
        const bool opens = at + 1 < json.size() && (json[at + 1] == '/' || json[at + 1] == '*');
        count += opens ? 1 : 0;
        at = json.find('/', at + 1);
    }
    return count;
}

} // namespace

bool HasLongCommentRun(const std::string& json) {
    if (PossibleComments(json) <= kLongestRun) // nearly every report; this is found out fast
        return false;
    const Position end = json.data() + json.size();
    int run = 0;
    for (Position at = json.data(); at != end;) {
        const char character = *at++;
        if (character == '/' && at != end) {
            at = *at == '*' ? SkipBlockComment(at + 1, end) : SkipLineComment(at, end);
            if (++run > kLongestRun)
                return true;
        } else if (character == '"') {
            at = SkipString(at, end);
            run = 0;
        } else if (!IsBlank(character)) {
            run = 0;
        }
    }
    return false;
}

bool ParseReportJson(const std::string& json, Json::Value& report) {
    try {
        Json::Reader reader;
        const char* const begin = json.data(); // from here, JsonCpp makes no copy of the text
        return reader.parse(begin, begin + json.size(), report, !HasLongCommentRun(json));
    } catch (const Json::Exception&) { // such as of a text that is nested too deeply
        return false;
    }
}

std::size_t HashOfReport(const std::wstring& reportText) {
    return std::hash<std::wstring>()(reportText);
}

std::shared_ptr<const ReportDocument> ReportOf(SceneAnalysis& analysis) {
    const std::size_t hash = HashOfReport(analysis.reportText);
    if (analysis.report != nullptr && analysis.report->textHash == hash)
        return analysis.report;
    analysis.report.reset();
    const auto document = std::make_shared<ReportDocument>();
    document->textHash = hash;
    if (ParseReportJson(WideToUtf8(analysis.reportText), document->root))
        analysis.report = document;
    return analysis.report;
}

const Json::Value& MemberOf(const Json::Value& object, const char* member) {
    return object.isObject() ? object[member] : Json::Value::nullSingleton();
}

const Json::Value& EntriesOf(const Json::Value& object, const char* member) {
    const Json::Value& value = MemberOf(object, member);
    return value.isArray() ? value : Json::Value::nullSingleton();
}

std::string TextOf(const Json::Value& value) {
    return value.isArray() || value.isObject() ? std::string() : value.asString();
}

std::string CTextOf(const Json::Value& value) {
    return value.isString() ? std::string(value.asCString()) : TextOf(value);
}

} // namespace orv
