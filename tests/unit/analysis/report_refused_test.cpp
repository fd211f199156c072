// Reports that lack a required member, or have it in another type than a text.
#include "analysis/report_reader.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/product_folder.h"
#include "tests/unit/analysis/message_text.h"
#include "tests/unit/analysis/sample_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

struct RefusedCase {
    const char* member;  // of the top level
    const char* json;    // its value; null when the member is taken away
    const char* missing; // the member that the message names
};

// In the order in which the reader needs them.
const RefusedCase kBeforeCameras[] = {
    {"is_region", nullptr, "is_region"},
    {"is_region", "null", "is_region"},
    {"is_region", "true", "is_region"},
    {"reference_file", "[{\"path\": \"a\"}, \"a.png\"]", "reference_file[1].path"},
    {"reference_file", "[{}]", "reference_file[0].path"},
    {"reference_file", "[{\"path\": 7}]", "reference_file[0].path"},
    {"missing_file", "[{\"path\": null}]", "missing_file[0].path"},
};

const RefusedCase kWithCameras[] = {
    {"image_width", nullptr, "image_width"},
    {"image_width", "1920", "image_width"},
    {"image_height", "null", "image_height"},
    {"start_frame", "[]", "start_frame"},
    {"cameras", "[{\"name\": \"a\"}, 5]", "cameras[1].name"},
    {"cameras", "[{\"nom\": \"a\"}]", "cameras[0].name"},
    {"cameras", "[{\"name\": 5}]", "cameras[0].name"},
    {"errors", "{\"error_code\": [{\"code\": \"1\"}, {\"code\": 107}]}",
     "errors.error_code[1].code"},
    {"errors", "{\"error_code\": [107]}", "errors.error_code[0].code"},
    {"dupl_cameras", "[{\"name\": false}]", "dupl_cameras[0].name"},
};

void Break(const RefusedCase& refused, Json::Value& report) {
    if (refused.json == nullptr)
        report.removeMember(refused.member);
    else
        report[refused.member] = ParseJson(std::string("[") + refused.json + "]")[0];
}

std::string RefusalOf(const std::string& member) {
    return "The analysis report cannot be used: \"" + member + "\" is missing or is not a text.";
}

class RefusedReport : public ::testing::Test {
protected:
    static void expectRefusal(const RefusedCase& refused) {
        SCOPED_TRACE(refused.missing);
        const TestProductFolder product;
        Json::Value report = SampleReport();
        report["is_region"] = "true"; // would leave a warning if anything were read
        Break(refused, report);
        int result = -1;
        const SceneAnalysis analysis = ReadReport(report, result);
        const std::string text = RefusalOf(refused.missing);
        EXPECT_EQ(result, kReportRefused);
        EXPECT_EQ(MessageTexts(analysis), std::vector<std::string>{"ERROR " + text});
        EXPECT_TRUE(analysis.cameras.empty());
        EXPECT_TRUE(analysis.tips.empty());
        EXPECT_TRUE(analysis.isRegion.empty());
        EXPECT_NE(product.log(L"rud_data").find("[ERROR] " + text), std::string::npos);
    }
};

TEST_F(RefusedReport, IsTakenNowhereAndNamesTheMember) {
    for (const RefusedCase& refused : kBeforeCameras)
        expectRefusal(refused);
    for (const RefusedCase& refused : kWithCameras)
        expectRefusal(refused);
}

TEST_F(RefusedReport, NamesTheFirstMemberThatTheStepsNeed) {
    std::vector<std::string> named;
    for (const char* member : {"is_region", "reference_file[0].path", "missing_file[0].path",
                               "image_width", "image_height", "start_frame", "cameras[0].name",
                               "errors.error_code[0].code", "dupl_cameras[0].name"})
        named.push_back("ERROR " + RefusalOf(member));
    const Json::Value whole = ParseJson(R"({
        "is_region": "", "reference_file": [{"path": "a"}], "missing_file": [{"path": "a"}],
        "image_width": "1", "image_height": "1", "start_frame": "1", "cameras": [{"name": "a"}],
        "errors": {"error_code": [{"code": "1"}]}, "dupl_cameras": [{"name": "a"}]
    })");
    Json::Value report = ParseJson(R"({
        "is_region": 1, "reference_file": [1], "missing_file": [1], "image_width": 1,
        "image_height": 1, "start_frame": 1, "cameras": [1], "errors": {"error_code": [1]},
        "dupl_cameras": [1]
    })");
    std::vector<std::string> seen;
    for (const char* repaired : {"", "is_region", "reference_file", "missing_file", "image_width",
                                 "image_height", "start_frame", "cameras", "errors"}) {
        if (*repaired != '\0')
            report[repaired] = whole[repaired];
        int result = -1;
        const SceneAnalysis analysis = ReadReport(report, result);
        EXPECT_EQ(result, kReportRefused);
        seen.push_back(MessageTexts(analysis).at(0));
    }
    EXPECT_EQ(seen, named);
}

// What is read after the cameras cannot stop a report that ends at them.
TEST_F(RefusedReport, IsNotOneThatEndsBeforeTheMemberIsRead) {
    for (const char* cameras : {"[]", "{}", "null", "{\"a\": {\"name\": \"a\"}}", "5", "\"a\""}) {
        SCOPED_TRACE(cameras);
        for (const RefusedCase& later : kWithCameras) {
            Json::Value report = SampleReport();
            Break(later, report);
            report["cameras"] = ParseJson(std::string("[") + cameras + "]")[0];
            int result = -1;
            const SceneAnalysis analysis = ReadReport(report, result);
            EXPECT_EQ(result, kReportNoCameras) << later.missing;
            EXPECT_EQ(MessageTexts(analysis), std::vector<std::string>{"ERROR No cameras!"});
        }
        for (const RefusedCase& earlier : kBeforeCameras) {
            Json::Value report = SampleReport();
            Break(earlier, report);
            report["cameras"] = ParseJson(std::string("[") + cameras + "]")[0];
            int result = -1;
            ReadReport(report, result);
            EXPECT_EQ(result, kReportRefused) << earlier.missing;
        }
    }
}

TEST_F(RefusedReport, IsWhatIsNoObjectAtAll) {
    for (const wchar_t* text :
         {L"[]", L"5", L"\"text\"", L"null", L"true", L"[{\"cameras\": []}]"}) {
        SceneAnalysis analysis;
        analysis.reportText = text;
        EXPECT_EQ(ReadAnalysisReport(analysis), kReportRefused);
        EXPECT_EQ(MessageTexts(analysis),
                  std::vector<std::string>{"ERROR " + RefusalOf("is_region")});
    }
}

} // namespace
} // namespace test
} // namespace orv
