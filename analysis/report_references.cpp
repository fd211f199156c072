// Steps of reading a report that concern the names of the files that the scene refers to.
#include "analysis/reference_names.h"
#include "analysis/report_json.h"
#include "analysis/report_steps.h"
#include "analysis/text/text_convert.h"
#include "log/module_log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <iterator>
#include <utility>

namespace orv {
namespace {

// Where a value stands in the text it was parsed from.
std::size_t Begin(const Json::Value& value) {
    return static_cast<std::size_t>(value.getOffsetStart());
}
std::size_t End(const Json::Value& value) {
    return static_cast<std::size_t>(value.getOffsetLimit());
}

// Drops parts of a text, in place and in one pass, by their offsets in the text's UTF-8 form. What
// is kept moves towards the front, so that no second text of the report's size is needed.
class TextShortener {
public:
    explicit TextShortener(std::wstring& text) : text_(text) {}

    void keepUntil(std::size_t utf8Offset) {
        while (utf8Offset_ < utf8Offset && read_ < text_.size()) {
            const wchar_t unit = text_[read_];
            step(); // looks at the units around, of which the next line may replace one
            text_[written_++] = unit;
        }
    }

    void dropUntil(std::size_t utf8Offset) {
        while (utf8Offset_ < utf8Offset && read_ < text_.size())
            step();
    }

    // In the place of something that was dropped.
    void put(wchar_t character) {
        if (written_ < read_)
            text_[written_++] = character;
    }

    void keepRest() { text_.erase(written_, read_ - written_); }

private:
    void step() {
        utf8Offset_ += Utf8SizeAt(text_, read_);
        ++read_;
    }

    std::wstring& text_;
    std::size_t read_ = 0;
    std::size_t written_ = 0;
    std::size_t utf8Offset_ = 0;
};

} // namespace

ReferenceFindings CheckReferences(const std::vector<const char*>& paths) {
    ReferenceFindings findings;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (IsLegalReferenceName(paths[i]))
            continue;
        std::wstring path = Utf8ToWide(paths[i]);
        findings.hasCyrillic = findings.hasCyrillic || HasCyrillic(path); // which are not legal
        findings.illegalPaths.push_back(std::move(path));
        findings.illegalEntries.push_back(i);
    }
    return findings;
}

void WarnOfCyrillicReferences(const ReferenceFindings& findings, SceneAnalysis& analysis) {
    if (!findings.hasCyrillic)
        return;
    AddTip(analysis, IDS_TIP_CYRILLIC_REFERENCE);
    AddMessage(analysis, kWarn, "The name of reference file have Russian characters.");
}

void ListIllegalReferences(ReferenceFindings& findings, SceneAnalysis& analysis) {
    if (findings.illegalPaths.empty())
        return;
    analysis.hasIllegalReference = true;
    analysis.problemFiles.push_back(ResourceText(IDS_ILLEGAL_REFERENCES_HEADING));
    AddMessage(analysis, kWarn, "The name of reference file have illegal characters.");
    analysis.problemFiles.insert(analysis.problemFiles.end(),
                                 std::make_move_iterator(findings.illegalPaths.begin()),
                                 std::make_move_iterator(findings.illegalPaths.end()));
}

void RemoveIllegalReferences(const Json::Value& report, const ReferenceFindings& findings,
                             std::wstring& text) {
    if (findings.illegalEntries.empty())
        return;
    const Json::Value& references = MemberOf(report, "reference_file");
    TextShortener shortener(text);
    shortener.keepUntil(Begin(references) + 1); // with the opening bracket
    std::size_t index = 0;
    auto illegal = findings.illegalEntries.begin();
    bool isFirst = true;
    for (const Json::Value& entry : references) {
        const bool isIllegal = illegal != findings.illegalEntries.end() && *illegal == index;
        ++index;
        if (isIllegal) {
            ++illegal;
            continue;
        }
        shortener.dropUntil(Begin(entry));
        if (!isFirst)
            shortener.put(L',');
        isFirst = false;
        shortener.keepUntil(End(entry));
    }
    shortener.dropUntil(End(references) - 1); // up to the closing bracket
    shortener.keepRest();
}

} // namespace orv
