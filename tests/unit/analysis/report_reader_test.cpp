#include "analysis/report_reader.h"

#include "analysis/report_json.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/unit/analysis/message_text.h"
#include "tests/unit/analysis/sample_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;
using Tips = std::vector<std::wstring>;

const char kNoErrors[] = "INFO No errors!";
const char kClosing[] =
    "INFO Get analysis information successfully. Current 3ds Max version is :2019";
const char kUnlimited[] =
    "ERROR The progressive pass, time and noise level are not limited in Corona! Please "
    "revise and submit again!";
const char kTimeOnly[] =
    "WARN Block rendering is not recommended in Corona. Please limit progressive pass "
    "and noise level if you still want to use block rendering.";
const char kRegion[] =
    "WARN Region rendering is used in your scene file. Please ignore this message if you "
    "confirm to use block rendering.";
const char kRussian[] = "WARN The name of reference file have Russian characters.";
const char kIllegal[] = "WARN The name of reference file have illegal characters.";
const char kCameraName[] = "WARN The original camera name contain invalid characters!";

// The list of advice with these texts: empty, or the heading and the texts.
Tips TipList(const std::vector<unsigned>& textIds) {
    Tips tips;
    if (!textIds.empty())
        tips.push_back(ResourceText(IDS_TIPS_HEADING));
    for (const unsigned id : textIds)
        tips.push_back(ResourceText(id));
    return tips;
}

class ReportReader : public ::testing::Test {
protected:
    void read() { analysis_ = ReadReport(report_, result_); }

    const CameraInfo& onlyCamera() const { return analysis_.cameras.begin()->second; }

    Json::Value report_ = SampleReport();
    SceneAnalysis analysis_;
    int result_ = -1;
};

TEST_F(ReportReader, ReadsAPlainScene) {
    report_["gamma_out"] = "2.2";
    read();
    EXPECT_EQ(result_, kReportRead);
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing}));
    EXPECT_THAT(analysis_.tips, IsEmpty());
    EXPECT_THAT(analysis_.problemFiles, IsEmpty());
    EXPECT_EQ(analysis_.isRegion, "false");
    EXPECT_EQ(analysis_.gammaOut, 2.2F);
    EXPECT_EQ(analysis_.coronaState, CoronaLimitState::NoLimits);
    ASSERT_EQ(analysis_.cameras.size(), 1U);
    EXPECT_EQ(analysis_.cameras.begin()->first, L"Cam");
    EXPECT_EQ(onlyCamera().name, L"Cam");
    EXPECT_EQ(onlyCamera().width, 1920);
    EXPECT_EQ(onlyCamera().height, 1080);
    EXPECT_EQ(onlyCamera().startFrame, 5);
    EXPECT_EQ(onlyCamera().imageFormat, L"PNG");
    EXPECT_FALSE(onlyCamera().isSpherical);
    EXPECT_FALSE(onlyCamera().selected);
}

TEST_F(ReportReader, TakesTextThatIsNotJsonForAReportWithoutAnything) {
    for (const wchar_t* text : {L"", L"no", L"{\"cameras\":"}) {
        SceneAnalysis analysis;
        analysis.reportText = text;
        analysis.tips = {L"from before"};
        analysis.problemFiles = {L"from before"};
        analysis.duplicateCameraNames = L"from before";
        EXPECT_EQ(ReadAnalysisReport(analysis), kReportRead);
        EXPECT_EQ(
            MessageTexts(analysis),
            (Texts{"INFO Get analysis information successfully. Current 3ds Max version is :"}));
        EXPECT_THAT(analysis.tips, IsEmpty());
        EXPECT_THAT(analysis.problemFiles, IsEmpty());
        EXPECT_EQ(analysis.duplicateCameraNames, L"");
        EXPECT_THAT(analysis.cameras, IsEmpty());
    }
}

TEST_F(ReportReader, StopsAtMissingCameras) {
    for (const char* cameras : {"[]", "null"}) {
        report_["cameras"] = ParseJson(cameras);
        report_["is_region"] = "true";
        report_["gamma_out"] = "2.2";
        read();
        EXPECT_EQ(result_, kReportNoCameras);
        EXPECT_EQ(MessageTexts(analysis_), (Texts{kRegion, "ERROR No cameras!"}));
        EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_REGION})) << "tips gathered so far stay";
        EXPECT_EQ(analysis_.gammaOut, 0.0F) << "nothing later is read";
    }
}

TEST_F(ReportReader, NeedsNoImageWithoutCameras) {
    report_ = ParseJson(R"({"is_region": "false"})");
    read();
    EXPECT_EQ(result_, kReportNoCameras);
    EXPECT_EQ(MessageTexts(analysis_), (Texts{"ERROR No cameras!"}));
}

TEST_F(ReportReader, AppendsMessagesAndBeginsTheListsAnew) {
    report_["is_region"] = "true";
    read();
    analysis_.reportText = ReportText(report_);
    EXPECT_EQ(ReadAnalysisReport(analysis_), kReportRead);
    EXPECT_EQ(MessageTexts(analysis_),
              (Texts{kRegion, kNoErrors, kClosing, kRegion, kNoErrors, kClosing}));
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_REGION}));
    EXPECT_EQ(analysis_.cameras.size(), 1U);
}

TEST_F(ReportReader, AdvisesOnAMissingRenderer) {
    for (const char* name : {"missing_renderer", "Missing_Renderer ", "Missing_Rendere", ""}) {
        report_["renderer_full_name"] = name;
        read();
        EXPECT_THAT(analysis_.tips, IsEmpty()) << name;
    }
    report_["renderer_full_name"] = "Missing_Renderer";
    read();
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_RENDERER_MISSING}));
}

struct CoronaCase {
    const char* pass;
    const char* milliseconds;
    const char* noise;
    CoronaLimitState state;
    std::int32_t seconds;
    Texts messages;
    std::vector<unsigned> tips;
};

TEST_F(ReportReader, JudgesCoronaLimits) {
    const CoronaCase cases[] = {
        {"0", "0", "0", CoronaLimitState::NothingLimited, 0, {kUnlimited}, {}},
        {"0",
         "3600000",
         "0",
         CoronaLimitState::OnlyTimeLimited,
         3600,
         {kTimeOnly},
         {IDS_TIP_CORONA_BLOCKS}},
        {"0.0", "0", "0", CoronaLimitState::Limited, 0, {}, {}},
        {"0", "0", "0.0", CoronaLimitState::Limited, 0, {}, {}},
        {"100", "0", "5", CoronaLimitState::Limited, 0, {}, {}},
        {"0", "1999", "3", CoronaLimitState::Limited, 1, {}, {}},
        {"0", "-1999", "3", CoronaLimitState::Limited, -1, {}, {}},
        {"0",
         "999",
         "0",
         CoronaLimitState::OnlyTimeLimited,
         0,
         {kTimeOnly},
         {IDS_TIP_CORONA_BLOCKS}},
    };
    for (const CoronaCase& corona : cases) {
        report_["corona_setting"]["pass_limit"] = corona.pass;
        report_["corona_setting"]["time_limit"] = corona.milliseconds;
        report_["corona_setting"]["noise_level_limit"] = corona.noise;
        read();
        Texts messages = corona.messages;
        messages.insert(messages.end(), {kNoErrors, kClosing});
        EXPECT_EQ(analysis_.coronaState, corona.state) << corona.milliseconds;
        EXPECT_EQ(analysis_.coronaTimeLimitSeconds, corona.seconds);
        EXPECT_DOUBLE_EQ(analysis_.coronaTimeLimitHours, corona.seconds / 3600.0);
        EXPECT_EQ(analysis_.coronaPassLimit, WholeNumber(corona.pass));
        EXPECT_DOUBLE_EQ(analysis_.coronaNoiseLimit, DecimalNumber(corona.noise));
        EXPECT_EQ(MessageTexts(analysis_), messages);
        EXPECT_EQ(analysis_.tips, TipList(corona.tips));
    }
}

TEST_F(ReportReader, FindsNoCoronaLimitsWhereOneIsMissing) {
    for (const char* missing : {"pass_limit", "time_limit", "noise_level_limit"}) {
        report_["corona_setting"] =
            ParseJson(R"({"pass_limit": "0", "time_limit": "0", "noise_level_limit": "0"})");
        report_["corona_setting"].removeMember(missing);
        read();
        EXPECT_EQ(analysis_.coronaState, CoronaLimitState::NoLimits) << missing;
        EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing}));
    }
}

TEST_F(ReportReader, WarnsOfRegionRendering) {
    for (const char* region : {"True", "TRUE", "true ", ""}) {
        report_["is_region"] = region;
        read();
        EXPECT_EQ(MessageTexts(analysis_), (Texts{kNoErrors, kClosing})) << region;
        EXPECT_EQ(analysis_.isRegion, region);
    }
    report_["is_region"] = "true";
    read();
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kRegion, kNoErrors, kClosing}));
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_REGION}));
}

TEST_F(ReportReader, KeepsTheReportTextWhenAllReferencesAreLegal) {
    report_["reference_file"] = ParseJson(R"([{"path": "D:\\tex\\wood.png"}])");
    read();
    EXPECT_EQ(analysis_.reportText, ReportText(report_));
    EXPECT_FALSE(analysis_.hasIllegalReference);
}

TEST_F(ReportReader, TakesIllegalReferencesOutOfTheReport) {
    report_["reference_file"] =
        ParseJson(R"([{"path": "a%.png"}, {"path": "D:/b.png", "kept": 1}, {"path": "<c>.png"}])");
    read();
    EXPECT_TRUE(analysis_.hasIllegalReference);
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kIllegal, kNoErrors, kClosing}));
    EXPECT_THAT(analysis_.problemFiles,
                ElementsAre(ResourceText(IDS_ILLEGAL_REFERENCES_HEADING), L"a%.png", L"<c>.png"));
    Json::Value rewritten;
    ASSERT_TRUE(ParseReport(analysis_.reportText, rewritten));
    EXPECT_EQ(rewritten["reference_file"], ParseJson(R"([{"path": "D:/b.png", "kept": 1}])"));
    report_.removeMember("reference_file");
    rewritten.removeMember("reference_file");
    EXPECT_EQ(rewritten, report_) << "everything else stays";
}

TEST_F(ReportReader, KeepsCharactersOfTheReportThatItRewrites) {
    report_["reference_file"] = ParseJson(R"([{"path": "%"}])");
    report_["other"] = "\xE5\xAE\xA2\xE5\x8E\x85 \xF0\x9F\x8E\xA5";
    read();
    Json::Value rewritten;
    ASSERT_TRUE(ParseReport(analysis_.reportText, rewritten));
    EXPECT_EQ(rewritten["other"], report_["other"]);
    EXPECT_EQ(rewritten["reference_file"], Json::Value(Json::arrayValue));
}

TEST_F(ReportReader, WarnsOnceOfCyrillicAndTakesTheEntryOut) {
    report_["reference_file"] =
        ParseJson("[{\"path\": \"D:/\xD0\xB4.png\"}, {\"path\": \"D:/\xD0\xB6.png\"}]");
    read();
    EXPECT_EQ(MessageTexts(analysis_), (Texts{kRussian, kIllegal, kNoErrors, kClosing}));
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_CYRILLIC_REFERENCE}));
    EXPECT_EQ(analysis_.problemFiles.size(), 3U);
    Json::Value rewritten;
    ASSERT_TRUE(ParseReport(analysis_.reportText, rewritten));
    EXPECT_TRUE(rewritten["reference_file"].empty());
}

TEST_F(ReportReader, ListsProblemFilesInThreeBlocks) {
    report_["reference_file"] = ParseJson(R"([{"path": "%"}])");
    report_["missing_file"] = ParseJson("[{\"path\": \"m1\"}, {\"path\": \"\xE7\xBC\xBA\"}]");
    report_["same_file"] =
        ParseJson(R"([{"path": "s1"}, {"other": "x"}, {"path": 5}, 7, {"path": "s2"}])");
    read();
    const std::wstring missing = ResourceText(IDS_MISSING_FILE_PREFIX);
    const std::wstring same = ResourceText(IDS_SAME_FILE_PREFIX);
    EXPECT_THAT(analysis_.problemFiles,
                ElementsAre(ResourceText(IDS_ILLEGAL_REFERENCES_HEADING), L"%",
                            ResourceText(IDS_MISSING_FILES_HEADING), missing + L"m1",
                            missing + L"\x7F3A", ResourceText(IDS_SAME_FILES_HEADING), same + L"s1",
                            same + L"s2"));
}

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

TEST_F(ReportReader, GivesMessagesAndTipsInTheOrderOfItsSteps) {
    report_ = ParseJson(R"({
        "renderer_full_name": "Missing_Renderer", "is_region": "true", "version": true,
        "corona_setting": {"pass_limit": "0", "time_limit": "1000", "noise_level_limit": "0"},
        "image_width": "1", "image_height": "1", "start_frame": "0", "image_format": "tif",
        "vray_setting": {"imagesampler_type": "3"},
        "cameras": [{"name": "a?"}, {"name": "b%"}],
        "errors": {"error_code": [{"code": "107"}]}
    })");
    report_["reference_file"] = ParseJson("[{\"path\": \"\xD0\xB4\"}]");
    read();
    EXPECT_EQ(
        MessageTexts(analysis_),
        (Texts{kTimeOnly, kRegion, kRussian, kIllegal, kCameraName, kCameraName,
               "INFO Get analysis information successfully. Current 3ds Max version is :true"}));
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_RENDERER_MISSING, IDS_TIP_CORONA_BLOCKS,
                                       IDS_TIP_REGION, IDS_TIP_CYRILLIC_REFERENCE, IDS_TIP_TIFF,
                                       IDS_TIP_IMAGE_SAMPLER, IDS_TIP_SCENE_ERROR}));
}

} // namespace
} // namespace test
} // namespace orv
