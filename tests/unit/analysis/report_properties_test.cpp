// What holds for every report, whatever is in it.
#include "analysis/report_json.h"
#include "analysis/text/text_convert.h"
#include "tests/unit/analysis/generated_report.h"
#include "tests/unit/analysis/report_reader_fixture.h"

#include <algorithm>
#include <iostream>

namespace orv {
namespace test {
namespace {

constexpr unsigned kFirstSeed = 1;
constexpr unsigned kLastSeed = 500;

// The same questions as the reader's, asked of the JSON in another way: the generator's paths are
// made of parts, and these are the parts that may not be or are Cyrillic.
bool Has(const Json::Value& text, std::initializer_list<const char*> parts) {
    return std::any_of(parts.begin(), parts.end(), [&text](const char* part) {
        return text.asString().find(part) != std::string::npos;
    });
}

bool IsIllegal(const Json::Value& entry) {
    return Has(entry["path"], {"%", "\"", "\xD0\x94", "\xC3\xA4", "\xF0\x9F\x8E\xA5", "\xD4\xB0",
                               "\xE4\xB7\xBF", "\t"});
}

bool IsCyrillic(const Json::Value& entry) {
    return Has(entry["path"], {"\xD0\x94\xD0\xBE\xD0\xBC"});
}

template<typename Predicate>
std::size_t Count(const Json::Value& list, Predicate predicate) {
    return static_cast<std::size_t>(std::count_if(list.begin(), list.end(), predicate));
}

std::size_t CoronaMessages(const Json::Value& corona) {
    const bool isWhole = corona["pass_limit"].isString() && corona["time_limit"].isString() &&
                         corona["noise_level_limit"].isString();
    return isWhole && corona["pass_limit"] == "0" && corona["noise_level_limit"] == "0" ? 1 : 0;
}

std::size_t ExpectedMessages(const Json::Value& report) {
    std::size_t count = CoronaMessages(report["corona_setting"]);
    count += report["is_region"] == "true" ? 1 : 0;
    count += Count(report["reference_file"], IsCyrillic) > 0 ? 1 : 0;
    count += Count(report["reference_file"], IsIllegal) > 0 ? 1 : 0;
    if (report["cameras"].empty())
        return count + 1; // "No cameras!", and nothing behind it
    count += Count(report["cameras"], [](const Json::Value& camera) {
        return Has(camera["name"], {":", "%", "<"});
    });
    count += report["errors"].isNull() ? 1 : 0;
    count += report["dupl_cameras"].empty() ? 1 : 0; // the closing message
    return count;
}

// Calls `check(report)` with the report of each seed.
template<typename Check>
void ForEachReport(const char* property, Check check) {
    std::cout << property << ": seeds " << kFirstSeed << " to " << kLastSeed << "\n";
    for (unsigned seed = kFirstSeed; seed <= kLastSeed; ++seed) {
        SCOPED_TRACE(seed);
        check(GeneratedReport(seed));
        if (::testing::Test::HasFailure())
            return;
    }
}

TEST(EveryReport, IsReadTheSameWayTwice) {
    ForEachReport("read twice", [](const Json::Value& report) {
        int first = -1;
        int second = -1;
        const SceneAnalysis one = ReadReport(report, first);
        const SceneAnalysis other = ReadReport(report, second);
        EXPECT_NE(first, kReportRefused);
        EXPECT_EQ(first, second);
        EXPECT_EQ(Described(one), Described(other));
    });
}

TEST(EveryReport, KeepsItsLegalReferencesAndEverythingElse) {
    ForEachReport("references kept", [](const Json::Value& report) {
        int result = -1;
        const SceneAnalysis analysis = ReadReport(report, result);
        Json::Value expected = report;
        if (report["reference_file"].isArray()) {
            expected["reference_file"] = Json::Value(Json::arrayValue);
            for (const Json::Value& entry : report["reference_file"]) {
                if (!IsIllegal(entry))
                    expected["reference_file"].append(entry);
            }
        }
        Json::Value kept;
        ASSERT_TRUE(ParseReport(analysis.reportText, kept));
        EXPECT_EQ(kept, expected);
        ASSERT_NE(analysis.report, nullptr);
        EXPECT_EQ(analysis.report->root, expected);
        EXPECT_EQ(analysis.report->textHash, HashOfReport(analysis.reportText));
        if (Count(report["reference_file"], IsIllegal) == 0) {
            EXPECT_EQ(analysis.reportText, ReportText(report)) << "to the last character";
        }
    });
}

TEST(EveryReport, HasEachFailingPathOnceInTheProblemList) {
    ForEachReport("failing paths", [](const Json::Value& report) {
        int result = -1;
        const SceneAnalysis analysis = ReadReport(report, result);
        std::vector<std::wstring> expected;
        for (const Json::Value& entry : report["reference_file"]) {
            if (IsIllegal(entry))
                expected.push_back(Utf8ToWide(entry["path"].asString()));
        }
        for (const std::wstring& path : expected)
            EXPECT_EQ(std::count(analysis.problemFiles.begin(), analysis.problemFiles.end(), path),
                      1);
        EXPECT_EQ(analysis.hasIllegalReference, !expected.empty());
        const std::size_t blocks =
            (expected.empty() ? 0U : 1U + expected.size()) +
            (report["missing_file"].empty() ? 0U : 1U) + report["missing_file"].size() +
            (report["same_file"].empty() ? 0U : 1U) + report["same_file"].size();
        EXPECT_EQ(analysis.problemFiles.size(), blocks);
    });
}

TEST(EveryReport, GivesAsManyMessagesAsItsJsonSays) {
    ForEachReport("messages", [](const Json::Value& report) {
        int result = -1;
        const SceneAnalysis analysis = ReadReport(report, result);
        EXPECT_EQ(analysis.messages.size(), ExpectedMessages(report));
    });
}

TEST(EveryReport, ReadsWithoutItsIllegalReferencesAsItDidBefore) {
    ForEachReport("read again", [](const Json::Value& report) {
        int result = -1;
        SceneAnalysis analysis = ReadReport(report, result);
        SceneAnalysis again;
        again.reportText = analysis.reportText;
        EXPECT_EQ(ReadAnalysisReport(again), result);
        EXPECT_FALSE(again.hasIllegalReference);
        EXPECT_EQ(again.cameras.size(), analysis.cameras.size());
        EXPECT_EQ(again.reportText, analysis.reportText);
    });
}

} // namespace
} // namespace test
} // namespace orv
