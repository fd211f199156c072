// What the user reads of a finding, beside what the record has of it.
#include "analysis/text/text_convert.h"
#include "tests/support/module_scope.h"
#include "tests/unit/analysis/report_reader_fixture.h"

#include <algorithm>
#include <set>

namespace orv {
namespace test {
namespace {

void Add(const SceneAnalysis& analysis, std::vector<AnalysisMessage>& findings) {
    findings.insert(findings.end(), analysis.messages.begin(), analysis.messages.end());
}

// Every message that an analysis can have, some of them more than once.
std::vector<AnalysisMessage> AllFindings() {
    std::vector<AnalysisMessage> findings;
    Json::Value report = SampleReport();
    report["is_region"] = "true";
    report["cameras"] = ParseJson(R"([{"name": "a?"}])");
    report["reference_file"] = ParseJson("[{\"path\": \"\xD0\xB4\"}]");
    for (const char* time : {"0", "1000"}) {
        report["corona_setting"] = ParseJson(R"({"pass_limit": "0", "noise_level_limit": "0"})");
        report["corona_setting"]["time_limit"] = time;
        int result = -1;
        Add(ReadReport(report, result), findings);
    }
    for (const wchar_t* text : {LR"({"is_region": ""})", L"{}", L"no JSON"}) {
        SceneAnalysis analysis;
        analysis.reportText = text;
        ReadAnalysisReport(analysis);
        InitSceneName(analysis);
        Add(analysis, findings);
    }
    return findings;
}

bool IsForTheRecordAlone(const AnalysisMessage& message) {
    return message.severity == "INFO";
}

TEST(ShownText, IsTheRecordedTextWhereTheUserReadsEnglish) {
    std::set<std::string> recorded;
    for (const AnalysisMessage& message : AllFindings()) {
        EXPECT_EQ(WideToUtf8(message.shown), IsForTheRecordAlone(message) ? "" : message.text);
        if (!IsForTheRecordAlone(message))
            recorded.insert(message.severity + " " + message.text);
    }
    EXPECT_EQ(
        recorded,
        (std::set<std::string>{
            kUnlimited, kTimeOnly, kRegion, kRussian, kIllegal, kCameraName, "ERROR No cameras!",
            "WARN Parse failed in initing scene name!", "WARN The scene name is empty!",
            "ERROR The analysis report cannot be used: \"is_region\" is missing or is not a "
            "text."}));
}

TEST(ShownText, IsChineseWhereTheUserReadsChinese) {
    const std::vector<AnalysisMessage> english = AllFindings();
    const LanguageScope scope(kChineseLanguage);
    const std::vector<AnalysisMessage> chinese = AllFindings();
    ASSERT_EQ(chinese.size(), english.size());
    for (std::size_t i = 0; i < chinese.size(); ++i) {
        EXPECT_EQ(chinese[i].text, english[i].text) << "the record is English in every language";
        const std::wstring& shown = chinese[i].shown;
        const bool hasChinese = std::any_of(shown.begin(), shown.end(), [](wchar_t character) {
            return character >= L'\x4E00' && character <= L'\x9FFF';
        });
        EXPECT_EQ(hasChinese, !IsForTheRecordAlone(chinese[i])) << chinese[i].text;
    }
}

} // namespace
} // namespace test
} // namespace orv
