#include "analysis/report_json.h"
#include "analysis/report_reader.h"
#include "tests/unit/analysis/sample_report.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(ReportOf, IsTheDocumentOfTheAnalysis) {
    int result = -1;
    SceneAnalysis analysis = ReadReport(SampleReport(), result);
    const std::shared_ptr<const ReportDocument> read = analysis.report;
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(ReportOf(analysis), read);
    EXPECT_EQ(ReportOf(analysis)->root, SampleReport());
}

TEST(ReportOf, ParsesATextThatNobodyHasParsed) {
    SceneAnalysis analysis;
    analysis.reportText = L"{\"name\": \"D:/a.max\"}";
    const std::shared_ptr<const ReportDocument> document = ReportOf(analysis);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->root["name"].asString(), "D:/a.max");
    EXPECT_EQ(ReportOf(analysis), document) << "once";
}

TEST(ReportOf, DoesNotAnswerWithTheDocumentOfAnotherText) {
    int result = -1;
    SceneAnalysis analysis = ReadReport(SampleReport(), result);
    analysis.reportText = L"{\"name\": \"D:/other.max\"}";
    EXPECT_EQ(InitSceneName(analysis), "other.max");
    analysis.reportText = L"no JSON";
    EXPECT_EQ(ReportOf(analysis), nullptr);
    EXPECT_EQ(analysis.report, nullptr);
    EXPECT_EQ(InitSceneName(analysis), "");
}

// A document that says something else than its text shows which of the two is read.
TEST(InitSceneName, DoesNotParseTheReportOfTheAnalysisAgain) {
    int result = -1;
    SceneAnalysis analysis = ReadReport(SampleReport(), result);
    ReportDocument other = *analysis.report;
    other.root["name"] = "D:/document.max";
    analysis.report = std::make_shared<const ReportDocument>(other);
    EXPECT_EQ(InitSceneName(analysis), "document.max");
}

TEST(ReadAnalysisReport, LeavesNoDocumentOfAReportThatItRefuses) {
    int result = -1;
    SceneAnalysis analysis = ReadReport(SampleReport(), result);
    analysis.reportText = L"{}";
    EXPECT_EQ(ReadAnalysisReport(analysis), kReportRefused);
    EXPECT_EQ(analysis.report, nullptr);
}

} // namespace
} // namespace test
} // namespace orv
