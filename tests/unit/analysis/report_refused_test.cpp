// Reports that lack what is needed, or have it in another type.
#include "analysis/report_reader.h"
#include "tests/support/product_folder.h"
#include "tests/unit/analysis/message_text.h"
#include "tests/unit/analysis/sample_report.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

struct RefusedCase {
    const char* member; // of the top level
    const char* json;   // its value; null when the member is taken away
    const char* reason;
};

const RefusedCase kCases[] = {
    {"is_region", nullptr, "\"is_region\" is missing or is not a text"},
    {"is_region", "true", "\"is_region\" is missing or is not a text"},
    {"image_width", nullptr, "\"image_width\" is missing or is not a text"},
    {"image_width", "1920", "\"image_width\" is missing or is not a text"},
    {"image_height", nullptr, "\"image_height\" is missing or is not a text"},
    {"start_frame", "[]", "\"start_frame\" is missing or is not a text"},
    {"image_format", "5", "\"image_format\" is neither a text nor true or false"},
    {"version", "2019", "\"version\" is neither a text nor true or false"},
    {"gamma_out", "2.2", "\"gamma_out\" is not a text"},
    {"renderer_full_name", "7", "\"renderer_full_name\" is not a text"},
    {"cameras", "{\"a\": 1}", "\"cameras\" is not a list"},
    {"cameras", "[{\"name\": \"a\"}, 5]", "\"cameras[1]\" is not an object"},
    {"cameras", "[{\"nom\": \"a\"}]", "\"cameras[0].name\" is missing or is not a text"},
    {"cameras", "[{\"name\": 5}]", "\"cameras[0].name\" is missing or is not a text"},
    {"cameras", "[{\"name\": \"a\", \"camWidth\": 640}]", "\"cameras[0].camWidth\" is not a text"},
    {"cameras", "[{\"name\": \"a\", \"camHeight\": {}}]", "\"cameras[0].camHeight\" is not a text"},
    {"reference_file", "\"a.png\"", "\"reference_file\" is not a list"},
    {"reference_file", "[\"a.png\"]", "\"reference_file[0]\" is not an object"},
    {"reference_file", "[{}]", "\"reference_file[0].path\" is missing or is not a text"},
    {"missing_file", "{}", "\"missing_file\" is not a list"},
    {"missing_file", "[{\"path\": null}]", "\"missing_file[0].path\" is missing or is not a text"},
    {"same_file", "\"a\"", "\"same_file\" is not a list"},
    {"dupl_cameras", "[{\"name\": false}]", "\"dupl_cameras[0].name\" is missing or is not a text"},
    {"corona_setting", "[]", "\"corona_setting\" is not an object"},
    {"corona_setting", "{\"pass_limit\": 0}", "\"corona_setting.pass_limit\" is not a text"},
    {"vray_setting", "\"x\"", "\"vray_setting\" is not an object"},
    {"vray_setting", "{\"imagesampler_type\": 3}",
     "\"vray_setting.imagesampler_type\" is not a text"},
    {"vray_setting", "{\"camera_override_fov\": \"true\"}",
     "\"vray_setting.camera_override_fov\" is neither true or false nor a number"},
    {"vray_setting", "{\"is_spherical\": true}", "\"vray_setting.is_spherical\" is not a text"},
    {"errors", "[]", "\"errors\" is not an object"},
    {"errors", "{\"error_code\": {}}", "\"errors.error_code\" is not a list"},
    {"errors", "{\"error_code\": [{\"code\": 107}]}",
     "\"errors.error_code[0].code\" is missing or is not a text"},
};

Json::Value Broken(const RefusedCase& refused) {
    Json::Value report = SampleReport();
    report["is_region"] = "true"; // would leave a warning if anything were read
    if (refused.json == nullptr)
        report.removeMember(refused.member);
    else
        report[refused.member] = ParseJson(std::string("[") + refused.json + "]")[0];
    return report;
}

TEST(RefusedReport, IsTakenNowhereAndNamesTheMember) {
    const TestProductFolder product;
    for (const RefusedCase& refused : kCases) {
        int result = -1;
        const SceneAnalysis analysis = ReadReport(Broken(refused), result);
        const std::string text =
            std::string("The analysis report cannot be used: ") + refused.reason + ".";
        EXPECT_EQ(result, kReportRefused) << refused.reason;
        EXPECT_EQ(MessageTexts(analysis), std::vector<std::string>{"ERROR " + text});
        EXPECT_TRUE(analysis.cameras.empty()) << refused.reason;
        EXPECT_TRUE(analysis.tips.empty()) << refused.reason;
        EXPECT_TRUE(analysis.isRegion.empty()) << refused.reason;
        EXPECT_NE(product.log(L"rud_data").find("[ERROR] " + text), std::string::npos)
            << refused.reason;
    }
}

TEST(RefusedReport, IsWhatIsNoObjectAtAll) {
    for (const wchar_t* text :
         {L"[]", L"5", L"\"text\"", L"null", L"true", L"[{\"cameras\": []}]"}) {
        SceneAnalysis analysis;
        analysis.reportText = text;
        EXPECT_EQ(ReadAnalysisReport(analysis), kReportRefused);
        EXPECT_EQ(analysis.messages.size(), 1U);
    }
}

} // namespace
} // namespace test
} // namespace orv
