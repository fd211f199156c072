// Reading a report: the image, the cameras and what follows them.
#include "tests/unit/analysis/report_reader_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace orv {
namespace test {
namespace {

using ::testing::IsEmpty;

TEST_F(ReportReader, UpperCasesTheFormatAndAdvisesOnTiff) {
    struct {
        const char* json;
        const wchar_t* format;
        std::vector<unsigned> tips;
    } const cases[] = {
        {"\"jpg\"", L"JPG", {}},
        {"\"Tif\"", L"TIF", {IDS_TIP_TIFF}},
        {"\"TIFF\"", L"TIFF", {IDS_TIP_TIFF}},
        {"\"tiff \"", L"TIFF ", {}},
        {"true", L"TRUE", {}},
        {"null", L"", {}},
    };
    for (const auto& image : cases) {
        report_["image_format"] = ParseJson(std::string("[") + image.json + "]")[0];
        read();
        EXPECT_EQ(onlyCamera().imageFormat, image.format);
        EXPECT_EQ(analysis_.tips, TipList(image.tips)) << image.json;
    }
}

TEST_F(ReportReader, ReadsVRaySettings) {
    report_["vray_setting"] = ParseJson(R"({"imagesampler_type": "3", "gi_irradmap_preset": "2",
        "gi_irradmap_minRate": "-3", "gi_irradmap_maxRate": "-1"})");
    read();
    EXPECT_EQ(analysis_.imageSamplerType, 3);
    EXPECT_EQ(analysis_.irradmapPreset, 2);
    EXPECT_EQ(analysis_.irradmapMinRate, -3);
    EXPECT_EQ(analysis_.irradmapMaxRate, -1);
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_IMAGE_SAMPLER}));

    report_["vray_setting"] = ParseJson(R"({"imagesampler_type": null})");
    read();
    EXPECT_EQ(analysis_.imageSamplerType, 0);
    EXPECT_EQ(analysis_.irradmapMinRate, 0);
    EXPECT_THAT(analysis_.tips, IsEmpty());
}

struct SphericalCase {
    const char* vray;
    bool isSpherical;
};

TEST_F(ReportReader, KnowsASphericalCamera) {
    const SphericalCase cases[] = {
        {R"({"camera_override_fov": true, "camera_fov": "360.0", "is_spherical": "true"})", true},
        {R"({"camera_override_fov": 1, "camera_fov": "360", "is_spherical": "true"})", true},
        {R"({"camera_override_fov": true, "is_spherical": "true"})", true},
        {R"({"camera_override_fov": true, "camera_fov": "359.9", "is_spherical": "true"})", false},
        {R"({"camera_override_fov": true, "camera_fov": "360.0", "is_spherical": "True"})", false},
        {R"({"camera_override_fov": true, "camera_fov": "360.0", "is_spherical": "true "})", false},
        {R"({"camera_override_fov": false, "camera_fov": "360.0", "is_spherical": "true"})", false},
        {R"({"camera_override_fov": 0, "camera_fov": "360.0", "is_spherical": "true"})", false},
        {R"({"camera_fov": "360.0", "is_spherical": "true"})", false},
        {R"({"camera_override_fov": true, "camera_fov": "360.0"})", false},
        {"null", false},
    };
    for (const SphericalCase& spherical : cases) {
        report_["vray_setting"] = ParseJson(spherical.vray);
        read();
        EXPECT_EQ(onlyCamera().isSpherical, spherical.isSpherical) << spherical.vray;
    }
}

struct SizeCase {
    const char* ownSize; // of the camera, in JSON
    std::int32_t width;
};

TEST_F(ReportReader, ReadsACamerasOwnSizeAsFarAsItIsANumber) {
    const SizeCase cases[] = {
        {"\"640\"", 640},   {"\" 640\"", 640}, {"\"640px\"", 640},      {"\"640.9\"", 640},
        {"\"-640\"", -640}, {"\"0\"", 1920},   {"\"0px\"", 1920},       {"\"\"", 1920},
        {"\"wide\"", 1920}, {"null", 1920},    {"\"\xEF\xBC\x96\"", 6}, {"\"6\\u00004\"", 6},
    };
    for (const SizeCase& size : cases) {
        report_["cameras"][0]["camWidth"] = ParseJson(std::string("[") + size.ownSize + "]")[0];
        read();
        EXPECT_EQ(onlyCamera().width, size.width) << size.ownSize;
        EXPECT_EQ(onlyCamera().height, 1080) << size.ownSize;
    }
}

TEST_F(ReportReader, TakesATextForEndedAtAZeroCharacter) {
    report_["renderer_full_name"] = std::string("Missing_Renderer\0 not", 20);
    report_["is_region"] = std::string("true\0 not", 9);
    report_["cameras"][0]["name"] = std::string("Cam\0:", 5);
    report_["missing_file"] = ParseJson(R"([{"path": "a\u0000b"}])");
    report_["gamma_out"] = std::string("2\0"
                                       "5",
                                       3);
    read();
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_RENDERER_MISSING, IDS_TIP_REGION}));
    EXPECT_EQ(analysis_.isRegion, "true");
    EXPECT_EQ(analysis_.cameras.begin()->first, L"Cam");
    EXPECT_EQ(analysis_.problemFiles.back(), ResourceText(IDS_MISSING_FILE_PREFIX) + L"a");
    EXPECT_EQ(analysis_.gammaOut, 2.0F);
}

TEST_F(ReportReader, PrefersACamerasOwnSize) {
    report_["cameras"] = ParseJson(R"([{"name": "a", "camWidth": "640", "camHeight": "480"},
        {"name": "b", "camWidth": "0", "camHeight": "0"}, {"name": "c", "camWidth": "800"}])");
    read();
    const CameraMap& cameras = analysis_.cameras;
    EXPECT_EQ(cameras.at(L"a").width, 640);
    EXPECT_EQ(cameras.at(L"a").height, 480);
    EXPECT_EQ(cameras.at(L"b").width, 1920);
    EXPECT_EQ(cameras.at(L"b").height, 1080);
    EXPECT_EQ(cameras.at(L"c").width, 800);
    EXPECT_EQ(cameras.at(L"c").height, 1080);
}

struct CameraNameCase {
    const char* name;
    std::wstring key;
    std::wstring outputName;
    int warnings;
};

TEST_F(ReportReader, CleansCameraNames) {
    const CameraNameCase cases[] = {
        {"Camera01", L"Camera01", L"Camera01", 0},
        {"cam%1", L"cam%1", L"cam%1", 1},
        {"a:b", L"a:b", L"ab", 1},
        {"a\\/:*?\"<>|%b", L"a\\/:*?\"<>|%b", L"a%b", 1},
        {"\xE7\x9B\xB8\xE6\x9C\xBA 1", L"\x76F8\x673A 1", L"\x76F8\x673A 1", 0},
        {"\xF0\x9F\x8E\xA5", L"\xD83C\xDFA5", L"\xD83C\xDFA5", 0},
        {"", L"", L"", 0},
    };
    for (const CameraNameCase& camera : cases) {
        report_["cameras"][0]["name"] = camera.name;
        read();
        ASSERT_EQ(analysis_.cameras.size(), 1U);
        EXPECT_TRUE(analysis_.cameras.begin()->first == camera.key) << camera.name;
        EXPECT_TRUE(onlyCamera().name == camera.outputName) << camera.name;
        const Texts messages = MessageTexts(analysis_);
        EXPECT_EQ(std::count(messages.begin(), messages.end(), kCameraName), camera.warnings);
    }
}

TEST_F(ReportReader, TakesANameBeyondTheBufferForNone) {
    for (const std::size_t length : {std::size_t{259}, std::size_t{260}}) {
        report_["cameras"][0]["name"] = std::string(length, 'c');
        read();
        EXPECT_EQ(analysis_.cameras.begin()->first.size(), length == 259 ? 259U : 0U);
    }
}

TEST_F(ReportReader, KeepsTheFirstOfTwoCamerasWithOneName) {
    report_["cameras"] =
        ParseJson(R"([{"name": "a", "camWidth": "1"}, {"name": "a", "camWidth": "2"}])");
    read();
    EXPECT_EQ(analysis_.cameras.size(), 1U);
    EXPECT_EQ(onlyCamera().width, 1);
}

TEST_F(ReportReader, AdvisesOnEachError107) {
    report_["errors"] = ParseJson(
        R"({"error_code": [{"code": "107"}, {"code": "12"}, {"code": "107 again"}, {"code": ""}]})");
    read();
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_SCENE_ERROR, IDS_TIP_SCENE_ERROR}));
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kClosing}));
    report_["errors"] = Json::Value(Json::objectValue);
    read();
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kClosing})) << "errors without members are no news";
}

TEST_F(ReportReader, NamesDuplicateCamerasAndOmitsTheClosingMessage) {
    report_["dupl_cameras"] = ParseJson(R"([{"name": " A "}, {"name": "B"}])");
    read();
    EXPECT_EQ(result_, kReportDuplicateCameras);
    EXPECT_EQ(analysis_.duplicateCameraNames, L"A,B");
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors}));
    report_["dupl_cameras"] = Json::Value(Json::arrayValue);
    read();
    EXPECT_EQ(result_, kReportRead);
}

} // namespace
} // namespace test
} // namespace orv
