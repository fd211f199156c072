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

// Parses a report (UTF-8). False when it is not JSON or is nested deeper than JsonCpp follows,
// which is 1000 levels. Comments are kept with the values, unless there are more than a hundred in
// a row. The offsets of the values are those in `json`. Throws only when memory runs out.
bool ParseReportJson(const std::string& json, Json::Value& report);

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

// The name of the first required member that is missing or is not a text, such as
// "cameras[2].name", in the order of the steps that read them; empty when the report can be read.
// Then `paths` are filled: visiting hundreds of thousands of entries once is enough. Members that
// no step reads, because the report has no cameras, are not required.
std::string FindMissingMember(const Json::Value& report, ReportPaths& paths);

// The readers below accept any type, so that code that reads an unchecked report cannot fail.

// `member` of `object`; the null value when it is missing or `object` is not an object.
const Json::Value& MemberOf(const Json::Value& object, const char* member);

// `member` of `object` when it is a list, otherwise the null value, which has no entries.
const Json::Value& EntriesOf(const Json::Value& object, const char* member);

// A string, number or boolean as text; empty for everything else.
std::string TextOf(const Json::Value& value);

// The same as C sees it: up to its first zero character.
std::string CTextOf(const Json::Value& value);

} // namespace orv
