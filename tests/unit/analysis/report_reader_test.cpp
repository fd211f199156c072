// Reading a report: the scene as a whole.
#include "analysis/report_json.h"
#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "tests/unit/analysis/report_reader_fixture.h"

#include <gmock/gmock.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

struct CutCase {
    const char* references;
    const char* kept;
};

TEST_F(ReportReader, CutsIllegalReferencesOutOfTheTextAsItStands) {
    const CutCase cases[] = {
        {R"([{"path":"%"}])", R"([])"},
        {R"([ {"path":"%"} , {"path":"?"} ])", R"([])"},
        {R"([{"path":"%"},{"path":"a"}])", R"([{"path":"a"}])"},
        {R"([{"path":"a"},{"path":"%"}])", R"([{"path":"a"}])"},
        {"[ { \"path\" : \"a\" } ,\n {\"path\":\"%\"},\t{\"path\":\"b\"}]",
         "[{ \"path\" : \"a\" },{\"path\":\"b\"}]"},
        {R"([{"path":"a","x":[{"path":"%"},"],[}"]},{"path":"%","x":[{}]},{"path":"b"}])",
         R"([{"path":"a","x":[{"path":"%"},"],[}"]},{"path":"b"}])"},
        {"[ {\"path\":\"a\",\"x\":\"\xF0\x9F\x8E\xA5\xE5\xAE\xA2\xC3\xA4\"}, {\"path\":\"%\"}]",
         "[{\"path\":\"a\",\"x\":\"\xF0\x9F\x8E\xA5\xE5\xAE\xA2\xC3\xA4\"}]"},
        {R"([{"path":"\u0025"},{"path":"\u0061"}])", R"([{"path":"\u0061"}])"},
        {"[{\"path\":\"%\"}, // gone\n {\"path\":\"a\"} /* gone */]", R"([{"path":"a"}])"},
    };
    const std::string front =
        "{ // \xF0\x9F\x8E\xA5 \xE5\xAE\xA2\n \"is_region\":\"\",\"reference_file\" : ";
    const std::string back = " ,\n\t\"last\": \"\xE5\xAE\xA2\xF0\x9F\x8E\xA5\"} // end";
    for (const CutCase& cut : cases) {
        SceneAnalysis analysis;
        analysis.reportText = Utf8ToWide(front + cut.references + back);
        ReadAnalysisReport(analysis);
        EXPECT_EQ(WideToUtf8(analysis.reportText), front + cut.kept + back);
    }
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

// A report that sets off everything: each step leaves its message, its
// advice and its problem files behind those of the step before.
Json::Value ReportOfEverything() {
    Json::Value report = ParseJson(R"({
        "dupl_cameras": [], "errors": {"error_code": [{"code": "12"}, {"code": "107"}]},
        "cameras": [{"name": "a?"}, {"name": "plain"}, {"name": "b%"}],
        "vray_setting": {"imagesampler_type": "3"}, "image_format": "tif",
        "image_width": "1", "image_height": "1", "start_frame": "0",
        "same_file": [{"path": "s"}], "missing_file": [{"path": "m"}], "is_region": "true",
        "corona_setting": {"pass_limit": "0", "time_limit": "1000", "noise_level_limit": "0"},
        "renderer_full_name": "Missing_Renderer", "version": true
    })");
    report["reference_file"] = ParseJson("[{\"path\": \"%\"}, {\"path\": \"\xD0\xB4\"}]");
    return report;
}

TEST_F(ReportReader, GivesEverythingInTheOrderOfItsSteps) {
    report_ = ReportOfEverything();
    read();
    EXPECT_EQ(result_, kReportRead);
    EXPECT_EQ(
        MessageTexts(analysis_),
        (Texts{kTimeOnly, kRegion, kRussian, kIllegal, kCameraName, kCameraName,
               "INFO Get analysis information successfully. Current 3ds Max version is :true"}));
    EXPECT_EQ(analysis_.tips, TipList({IDS_TIP_RENDERER_MISSING, IDS_TIP_CORONA_BLOCKS,
                                       IDS_TIP_REGION, IDS_TIP_CYRILLIC_REFERENCE, IDS_TIP_TIFF,
                                       IDS_TIP_IMAGE_SAMPLER, IDS_TIP_SCENE_ERROR}));
    EXPECT_THAT(analysis_.problemFiles,
                ElementsAre(ResourceText(IDS_ILLEGAL_REFERENCES_HEADING), L"%", L"\x0434",
                            ResourceText(IDS_MISSING_FILES_HEADING),
                            ResourceText(IDS_MISSING_FILE_PREFIX) + L"m",
                            ResourceText(IDS_SAME_FILES_HEADING),
                            ResourceText(IDS_SAME_FILE_PREFIX) + L"s"));
}

TEST_F(ReportReader, EndsWithTheDuplicateCamerasOrWithoutCameras) {
    const Texts beforeCameras = {kUnlimited, kRegion, kRussian, kIllegal};
    report_ = ReportOfEverything();
    report_["corona_setting"]["time_limit"] = "0";
    report_["dupl_cameras"] = ParseJson(R"([{"name": "A"}])");
    report_.removeMember("errors");
    read();
    EXPECT_EQ(result_, kReportDuplicateCameras);
    Texts expected = beforeCameras;
    expected.insert(expected.end(), {kCameraName, kCameraName, kNoErrors});
    EXPECT_EQ(MessageTexts(analysis_), expected);

    report_.removeMember("cameras");
    read();
    EXPECT_EQ(result_, kReportNoCameras);
    expected = beforeCameras;
    expected.emplace_back("ERROR No cameras!");
    EXPECT_EQ(MessageTexts(analysis_), expected);
    EXPECT_EQ(analysis_.problemFiles.size(), 7U);
}

} // namespace
} // namespace test
} // namespace orv
