// The report as JSON, and the reading of its members.
#pragma once

#include "config/scene_analysis.h"

#include <json/value.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orv {

// Whether a JSON text (UTF-8) has more than a hundred comments in a row, with nothing but blanks
// between them. JsonCpp, when it keeps comments, looks for each of them from the last value on,
// which takes minutes for a megabyte of comments. Such a text is parsed without them.
bool HasLongCommentRun(const std::string& json);

enum class ParseOutcome {
    Parsed,
    NotJson,
    TooDeep, // nested deeper than JsonCpp follows, which is 1000 levels
};

// Parses a report (UTF-8). Comments are kept with the values, unless there are more than a hundred
// in a row. The offsets of the values are those in `json`. Throws only when memory runs out.
ParseOutcome ParseReportJson(const std::string& json, Json::Value& report);

// A parsed report. The report of a large scene has many megabytes, and parsing takes longer than
// all other work on it: an analysis parses its report once.
struct ReportDocument {
    Json::Value root;
    std::size_t textHash = 0; // HashOfReport of its text
};

// std::hash of a report's text: identifies the text that a document was parsed from.
std::size_t HashOfReport(const std::wstring& reportText);

// The document of `analysis.reportText`. Returns `analysis.report` when it was parsed from that
// text; otherwise parses the text and stores the new document there. Null, with `analysis.report`
// null, when the text is not JSON or is nested too deeply.
std::shared_ptr<const ReportDocument> ReportOf(SceneAnalysis& analysis);

// The paths of the two long lists, each up to its first zero character; they point into the report.
struct ReportPaths {
    std::vector<const char*> missing;
    std::vector<const char*> referenced;
};

// The name of the first member that the reader needs and that is missing or of another type, such
// as "cameras[2].name", with what is expected of it; empty when the report can be read. Then
// `paths` are filled: visiting hundreds of thousands of entries once is enough.
std::string FindReportFault(const Json::Value& report, ReportPaths& paths);

// `member` of `object`; the null value when it is missing or `object` is not an object. The readers
// below accept any type, so that code that reads an unchecked report cannot fail.
const Json::Value& MemberOf(const Json::Value& object, const char* member);

// A string, number or boolean as text; empty for everything else.
std::string TextOf(const Json::Value& value);

// A string as C sees it: up to its first zero character; empty for any other value.
// Points into `value`.
const char* RawText(const Json::Value& value);

} // namespace orv
