// Optional members that are empty or of another type than the parser writes: they never refuse a
// report.
#include "tests/unit/analysis/report_reader_fixture.h"

#include <gmock/gmock.h>

namespace orv {
namespace test {
namespace {

using ::testing::IsEmpty;

class OptionalMember : public ReportReader {
protected:
    // Reads the sample with this value of a top-level member.
    void readWith(const char* member, const std::string& json) {
        report_ = SampleReport();
        report_[member] = ParseJson("[" + json + "]")[0];
        read();
    }
};

TEST_F(OptionalMember, WithoutEntriesCountsAsZero) {
    for (const char* list : {"missing_file", "same_file", "reference_file", "dupl_cameras"}) {
        for (const char* json : {"null", "[]", "{}", "\"a.png\"", "5", "true", "{\"a\": 1}"}) {
            readWith(list, json);
            EXPECT_EQ(result_, kReportRead) << list << json;
            EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing})) << list << json;
            EXPECT_THAT(analysis_.problemFiles, IsEmpty()) << list << json;
            EXPECT_EQ(analysis_.duplicateCameraNames, L"");
        }
    }
}

TEST_F(OptionalMember, WithErrorsThatHaveNoMembersIsNoNews) {
    for (const char* json : {"[]", "{}", "0", "\"\"", "false", "[{\"code\": \"107\"}]",
                             "{\"error_code\": {}}", "{\"error_code\": \"107\"}"}) {
        readWith("errors", json);
        EXPECT_EQ(MessageTexts(analysis_), Texts{kClosing}) << json;
        EXPECT_THAT(analysis_.tips, IsEmpty()) << json;
    }
}

TEST_F(OptionalMember, WithoutOneOfItsCoronaLimitsHasNone) {
    for (const char* json : {"{}", "[]", "\"0\"", "0", "{\"pass_limit\": \"0\"}",
                             "{\"pass_limit\": null, \"time_limit\": \"0\", "
                             "\"noise_level_limit\": \"0\"}"}) {
        readWith("corona_setting", json);
        EXPECT_EQ(analysis_.coronaState, CoronaLimitState::NoLimits) << json;
        EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing})) << json;
    }
}

TEST_F(OptionalMember, OfNumbersReadsAsTheirTexts) {
    readWith("corona_setting",
             R"({"pass_limit": 7, "time_limit": 1999, "noise_level_limit": 0.5})");
    EXPECT_EQ(analysis_.coronaState, CoronaLimitState::Limited);
    EXPECT_EQ(analysis_.coronaPassLimit, 7);
    EXPECT_EQ(analysis_.coronaTimeLimitSeconds, 1);
    EXPECT_EQ(analysis_.coronaNoiseLimit, 0.5);
    readWith("corona_setting", R"({"pass_limit": 0, "time_limit": 0, "noise_level_limit": 0})");
    EXPECT_EQ(analysis_.coronaState, CoronaLimitState::NothingLimited);

    readWith("cameras", R"([{"name": "a", "camWidth": 640, "camHeight": {}}])");
    EXPECT_EQ(onlyCamera().width, 640);
    EXPECT_EQ(onlyCamera().height, 1080);
    readWith("cameras", R"([{"name": "a", "camWidth": [640], "camHeight": true}])");
    EXPECT_EQ(onlyCamera().width, 1920);
    EXPECT_EQ(onlyCamera().height, 1080);

    readWith("vray_setting", R"({"imagesampler_type": 3, "gi_irradmap_minRate": -3,
                                 "gi_irradmap_maxRate": [], "gi_irradmap_preset": 2})");
    EXPECT_EQ(analysis_.imageSamplerType, 3);
    EXPECT_EQ(analysis_.irradmapMinRate, -3);
    EXPECT_EQ(analysis_.irradmapMaxRate, 0);
    EXPECT_EQ(analysis_.irradmapPreset, 2);
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_IMAGE_SAMPLER}));

    readWith("gamma_out", "1.8");
    EXPECT_EQ(analysis_.gammaOut, 1.8F);
    readWith("version", "2019");
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing}));
    readWith("image_format", "5");
    EXPECT_EQ(onlyCamera().imageFormat, L"5");
}

TEST_F(OptionalMember, OfAnyOtherTypeReadsAsNothing) {
    for (const char* json : {"[]", "{\"a\": 1}", "[\"tif\"]"}) {
        readWith("image_format", json);
        EXPECT_EQ(onlyCamera().imageFormat, L"") << json;
        EXPECT_THAT(analysis_.tips, IsEmpty()) << json;
        readWith("renderer_full_name", json);
        EXPECT_THAT(analysis_.tips, IsEmpty()) << json;
        readWith("version", json);
        EXPECT_EQ(analysis_.messages.back().text,
                  "Get analysis information successfully. Current 3ds Max version is :");
        readWith("gamma_out", json);
        EXPECT_EQ(analysis_.gammaOut, 0.0F) << json;
        readWith("vray_setting", json);
        EXPECT_EQ(analysis_.imageSamplerType, 0) << json;
        EXPECT_FALSE(onlyCamera().isSpherical) << json;
        EXPECT_EQ(result_, kReportRead) << json;
    }
}

struct SphericalCase {
    const char* vray;
    bool isSpherical;
};

TEST_F(OptionalMember, OfVRayDecidesWhetherTheCamerasAreSpherical) {
    const SphericalCase cases[] = {
        {R"({"camera_override_fov": true, "is_spherical": true})", true},
        {R"({"camera_override_fov": true, "is_spherical": false})", false},
        {R"({"camera_override_fov": true, "is_spherical": 1})", false},
        {R"({"camera_override_fov": true, "is_spherical": "true\u0000"})", false},
        {R"({"camera_override_fov": true, "is_spherical": ["true"]})", false},
        {R"({"camera_override_fov": 0.5, "is_spherical": "true"})", true},
        {R"({"camera_override_fov": "true", "is_spherical": "true"})", false},
        {R"({"camera_override_fov": [true], "is_spherical": "true"})", false},
        {R"({"camera_override_fov": true, "camera_fov": 360, "is_spherical": "true"})", true},
        {R"({"camera_override_fov": true, "camera_fov": 359.9, "is_spherical": "true"})", false},
        {R"({"camera_override_fov": true, "camera_fov": {}, "is_spherical": "true"})", false},
    };
    for (const SphericalCase& spherical : cases) {
        readWith("vray_setting", spherical.vray);
        EXPECT_EQ(result_, kReportRead) << spherical.vray;
        EXPECT_EQ(onlyCamera().isSpherical, spherical.isSpherical) << spherical.vray;
    }
}

} // namespace
} // namespace test
} // namespace orv
