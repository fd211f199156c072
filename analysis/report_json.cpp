#include "analysis/report_json.h"

#include "analysis/comment_run.h"
#include "analysis/text/text_convert.h"

#include <json/reader.h>

namespace orv {

ParseOutcome ParseReportJson(const std::string& json, Json::Value& report) {
    try {
        Json::Reader reader;
        const char* const begin = json.data(); // from here, JsonCpp makes no copy of the text
        const bool isJson =
            reader.parse(begin, begin + json.size(), report, !HasLongCommentRun(json));
        return isJson ? ParseOutcome::Parsed : ParseOutcome::NotJson;
    } catch (const Json::RuntimeError&) { // how JsonCpp says that it went deep enough
        return ParseOutcome::TooDeep;
    } catch (const Json::Exception&) {
        return ParseOutcome::NotJson;
    }
}

bool ParseReport(const std::wstring& reportText, Json::Value& report) {
    return ParseReportJson(WideToUtf8(reportText), report) == ParseOutcome::Parsed;
}

const Json::Value& MemberOf(const Json::Value& object, const char* member) {
    return object.isObject() ? object[member] : Json::Value::nullSingleton();
}

std::string TextOf(const Json::Value& value) {
    return value.isArray() || value.isObject() ? std::string() : value.asString();
}

const char* RawText(const Json::Value& value) {
    return value.isString() ? value.asCString() : "";
}

} // namespace orv
