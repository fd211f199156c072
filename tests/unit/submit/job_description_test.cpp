#include "submit/job_description.h"

#include "analysis/report_json.h"
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/test_dialog.h"

#include <gtest/gtest.h>

#include <json/reader.h>
#include <json/writer.h>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kJobName[] = L"0F8FAD5B-D9CB-469F-A165-70867728950E";

const char kReport[] = R"({
    "name": "D:/scenes/room.max", "app_version": 21000, "start_frame": "5", "end_frame": "7",
    "errors": {"error_code": []},
    "cameras": [{"name": "from the report"}],
    "reference_file": [{"path": "D:/a.png", "size": 5}, {"path": "D:/scenes/room.max"}],
    "zoo": {"nested": [1, 2.5, null, true]}, "Upper": "first"
})";

// The whole file for the settings of JobDescription, with the line ends that it is written with.
const char kGolden[] = R"({
   "Upper" : "first",
   "app_version" : 21000,
   "cameras" : [
      {
         "camera_height" : 1080,
         "camera_width" : 1920,
         "frame_to_render" : 5,
         "img_output_format" : "PNG",
         "img_output_name" : "ab",
         "is_spherical" : true,
         "name" : "a:b",
         "renderable" : "1"
      }
   ],
   "corona_options" : {
      "CoronaNoiseLevelLimit" : 0.050000000000000003,
      "CoronaPassLimit" : 100,
      "CoronaTimeLimit" : 3600,
      "useCorona" : true
   },
   "distributed_render" : 0,
   "enable_blocking" : 1,
   "end_frame" : "7",
   "max_options" : {
      "ao_channel" : true,
      "ao_radius" : 12.5,
      "ao_subdivs" : 16,
      "color_channel" : true,
      "gamma_out" : 2.2000000476837158,
      "gi_channel" : "1",
      "gi_image_scale" : "33%",
      "gi_irradmap_maxRate" : -3,
      "gi_irradmap_minRate" : -5,
      "gi_irradmap_preset" : 4,
      "mtl_channel" : true,
      "psd_channel" : "1"
   },
   "name" : "D:\\scenes\\shot.max",
   "num_blocks" : 4,
   "reference_file" : [
      {
         "path" : "D:/a.png"
      }
   ],
   "start_frame" : "5",
   "zoo" : {
      "nested" : [ 1, 2.5, null, true ]
   }
}
)";

std::string WithCrLf(const std::string& text) {
    std::string lines;
    for (const char character : text)
        lines += character == '\n' ? std::string("\r\n") : std::string(1, character);
    return lines;
}

Json::Value Parsed(const std::string& text) {
    Json::Value value;
    EXPECT_TRUE(Json::Reader().parse(text, value)) << text;
    return value;
}

class JobDescription : public ::testing::Test {
protected:
    JobDescription() {
        analysis_.reportText = Utf8ToWide(kReport);
        analysis_.sceneFilePath = "D:/scenes/room.max";
        analysis_.cameras[L"a:b"] = camera(L"ab", true);
        analysis_.cameras[L"c"] = camera(L"c", false);
        paths_.jsonDir = folder_.path() + L"/json";
        paths_.scenePath = "D:\\scenes\\shot.max";
        paths_.archivePath = "D:\\scenes/compress/shot_abcdef.7z";
        paths_.giScaleText = "100%";
    }

    static CameraInfo camera(const std::wstring& name, bool isSelected) {
        CameraInfo info;
        info.name = name;
        info.width = 1920;
        info.height = 1080;
        info.startFrame = 5;
        info.imageFormat = L"PNG";
        info.isSpherical = true;
        info.selected = isSelected;
        return info;
    }

    void switchEverythingOn() {
        analysis_.blockMode = 4;
        analysis_.coronaNoiseLimit = 5;
        analysis_.coronaPassLimit = 100;
        analysis_.coronaTimeLimitSeconds = 3600;
        analysis_.useCorona = true;
        analysis_.colorChannel = true;
        analysis_.aoChannel = true;
        analysis_.aoRadius = 12.5;
        analysis_.materialChannel = true;
        analysis_.giChannel = true;
        analysis_.psdChannel = true;
        analysis_.irradmapPreset = 4;
        analysis_.irradmapMinRate = -3;
        analysis_.irradmapMaxRate = -1;
        paths_.giScaleIndex = 2;
        paths_.giScaleText = "33%";
    }

    bool write() {
        return WriteJobDescription(analysis_, dialog_.handle(), paths_, kJobName, request_);
    }

    std::wstring jobFile() const { return folder_.path() + L"/json/" + kJobName + L".json"; }
    std::string jobBytes() const { return ReadFileBytes(jobFile()); }

    // Writes the file and reads it back.
    Json::Value job() {
        paths_.jsonDir = folder_.path() + L"/json";
        EXPECT_TRUE(write());
        return Parsed(jobBytes());
    }

    TestProductFolder product_;
    TemporaryFolder folder_{L"\x5BA2\x5385 job"};
    TestDialog dialog_;
    SceneAnalysis analysis_;
    JobPaths paths_;
    std::string request_;
};

TEST_F(JobDescription, IsExactToTheByte) {
    switchEverythingOn();
    ASSERT_TRUE(write());
    EXPECT_EQ(jobBytes(), WithCrLf(kGolden));
}

// A document that says something else than its text shows which of the two is read.
TEST_F(JobDescription, DoesNotParseTheReportOfTheAnalysisAgain) {
    ReportDocument document;
    document.root["app_version"] = "of the document";
    document.textHash = HashOfReport(analysis_.reportText);
    analysis_.report = std::make_shared<const ReportDocument>(document);
    EXPECT_EQ(job()["app_version"].asString(), "of the document");
    EXPECT_EQ(analysis_.report->root, document.root) << "and leaves it as it is, for the next job";
    analysis_.reportText = Utf8ToWide(R"({"app_version": "of the text"})");
    EXPECT_EQ(job()["app_version"].asString(), "of the text");
}

TEST_F(JobDescription, KeepsTheCommentsOfTheReport) {
    analysis_.reportText = L"// by the parser\n{\"a\": 1, // of a\n\"b\": 2}\n// the end\n";
    job();
    const std::string bytes = jobBytes();
    EXPECT_NE(bytes.find("// by the parser"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\"a\" : 1, // of a"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("// the end"), std::string::npos) << bytes;
}

TEST_F(JobDescription, CarriesPlainOptions) {
    const Json::Value options = job()["max_options"];
    EXPECT_EQ(
        options,
        Parsed(R"({"ao_channel": false, "color_channel": false, "gamma_out": 2.2000000476837158,
        "gi_channel": "0", "gi_irradmap_maxRate": 0, "gi_irradmap_minRate": 0, "gi_irradmap_preset": 0,
        "mtl_channel": false, "psd_channel": "0"})"));
    EXPECT_FALSE(job().isMember("corona_options"));
}

TEST_F(JobDescription, HasNoCamerasWhenNoneIsChecked) {
    analysis_.cameras[L"a:b"].selected = false;
    EXPECT_FALSE(job().isMember("cameras"));
}

TEST_F(JobDescription, ListsCheckedCamerasByTheirNames) {
    analysis_.cameras[L"\x76F8\x673A"] = camera(L"\x76F8\x673A", true);
    analysis_.cameras[L"B"] = camera(L"B", true);
    const Json::Value cameras = job()["cameras"];
    ASSERT_EQ(cameras.size(), 3U);
    EXPECT_EQ(cameras[0]["name"].asString(), "B");
    EXPECT_EQ(cameras[1]["name"].asString(), "a:b");
    EXPECT_EQ(cameras[2]["name"].asString(), "\xE7\x9B\xB8\xE6\x9C\xBA");
}

TEST_F(JobDescription, OmitsReferencesWhenNoneIsLeft) {
    for (const wchar_t* report : {L"{\"reference_file\": [{\"path\": \"D:/scenes/room.max\"}]}",
                                  L"{\"reference_file\": []}", L"{}", L"{\"reference_file\": null}",
                                  L"{\"reference_file\": 5}"}) {
        analysis_.reportText = report;
        EXPECT_FALSE(job().isMember("reference_file"));
    }
}

TEST_F(JobDescription, ComparesReferencesByteForByte) {
    analysis_.reportText = L"{\"reference_file\": [{\"path\": \"d:/scenes/room.max\"}, {\"path\": "
                           L"\"D:/scenes/room.max2\"}]}";
    EXPECT_EQ(job()["reference_file"].size(), 2U);
}

TEST_F(JobDescription, AddsNothingThatTheReportDoesNotHave) {
    analysis_.reportText = L"{}";
    const Json::Value written = job();
    for (const char* member : {"errors", "start_frame", "end_frame", "reference_file"})
        EXPECT_FALSE(written.isMember(member)) << member;
}

struct BlockCase {
    std::int32_t mode;
    int enabled;
    int blocks;
    int distributed;
};

TEST_F(JobDescription, TellsTheBlocks) {
    analysis_.blockCount = 7;
    for (const BlockCase& block :
         {BlockCase{1, 0, 0, 0}, BlockCase{1010, 0, 0, 7}, BlockCase{4, 1, 4, 0},
          BlockCase{10, 1, 10, 0}, BlockCase{64, 1, 64, 0}}) {
        analysis_.blockMode = block.mode;
        const Json::Value written = job();
        EXPECT_EQ(written["enable_blocking"].asInt(), block.enabled) << block.mode;
        EXPECT_EQ(written["num_blocks"].asInt(), block.blocks) << block.mode;
        EXPECT_EQ(written["distributed_render"].asInt(), block.distributed) << block.mode;
    }
}

struct RateCase {
    bool giChannel;
    std::int32_t index;
    int minRate;
    int maxRate;
};

TEST_F(JobDescription, LowersTheRatesByTheScaleOnlyForTheGiChannel) {
    analysis_.irradmapMinRate = -3;
    analysis_.irradmapMaxRate = 0;
    for (const RateCase& rate : {RateCase{false, 2, -3, 0}, RateCase{true, 0, -3, 0},
                                 RateCase{true, 2, -5, -2}, RateCase{true, -1, -2, 1}}) {
        analysis_.giChannel = rate.giChannel;
        paths_.giScaleIndex = rate.index;
        const Json::Value options = job()["max_options"];
        EXPECT_EQ(options["gi_irradmap_minRate"].asInt(), rate.minRate) << rate.index;
        EXPECT_EQ(options["gi_irradmap_maxRate"].asInt(), rate.maxRate) << rate.index;
        EXPECT_EQ(options.isMember("gi_image_scale"), rate.giChannel);
    }
}

TEST_F(JobDescription, LeavesItsPathAndTheRequest) {
    dialog_.check(IDC_SAVE_SCENE_FILE);
    ASSERT_TRUE(write());
    EXPECT_EQ(paths_.jsonDir, jobFile());
    const std::string jobFileJson = Json::valueToQuotedString(WideToUtf8(jobFile()).c_str());
    EXPECT_EQ(request_, "{\n"
                        "   \"PLUGIN_SAVE_SCENE_FILE\" : 1,\n"
                        "   \"compressPath\" : \"D:\\\\scenes/compress/shot_abcdef.7z\",\n"
                        "   \"filePath\" : " +
                            jobFileJson +
                            ",\n"
                            "   \"maxVersion\" : \"3ds Max 21000\",\n"
                            "   \"scenePath\" : \"D:\\\\scenes\\\\shot.max\"\n"
                            "}\n");
    EXPECT_NE(product_.log(L"rud_data")
                  .find("[INFO] Write json file at: " + WideToUtf8(jobFile()) + " successfully."),
              std::string::npos);
}

TEST_F(JobDescription, TakesAVersionThatIsATextOrMissing) {
    analysis_.reportText = L"{\"app_version\": \"2019 sp3\"}";
    job();
    EXPECT_EQ(Parsed(request_)["maxVersion"].asString(), "3ds Max 2019 sp3");
    analysis_.reportText = L"{}";
    job();
    EXPECT_EQ(Parsed(request_)["maxVersion"].asString(), "3ds Max ");
    EXPECT_EQ(Parsed(request_)["PLUGIN_SAVE_SCENE_FILE"].asUInt(), 0U);
}

TEST_F(JobDescription, CanBeReadAndWrittenByOthersMeanwhile) {
    ASSERT_TRUE(write());
    const FileHandle reader(::CreateFileW(jobFile().c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    paths_.jsonDir = folder_.path() + L"/json";
    EXPECT_TRUE(write());
}

class FailedJobDescription : public JobDescription {
protected:
    void expectFailure(const char* logLine) {
        MessageBoxWatcher watcher(ResourceText(IDS_CAPTION));
        EXPECT_FALSE(write());
        const std::vector<SeenMessageBox> boxes = watcher.stop();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].text, ResourceText(IDS_JOB_NOT_WRITTEN));
        EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
        EXPECT_EQ(boxes[0].owner, dialog_.handle());
        EXPECT_TRUE(request_.empty());
        EXPECT_NE(product_.log(L"rud_data").find(logLine), std::string::npos);
    }
};

TEST_F(FailedJobDescription, TellsOfAReportThatIsNotJson) {
    analysis_.reportText = L"no JSON";
    expectFailure("[ERROR] Parse failed in writing json file when submiting!");
    EXPECT_FALSE(PathExists(jobFile()));
}

TEST_F(FailedJobDescription, TellsOfAFolderThatCannotBeMade) {
    WriteFileBytes(folder_.path() + L"/json", "a file where the folder should be");
    expectFailure("[ERROR] Open json file failed when write it!");
    EXPECT_EQ(paths_.jsonDir, folder_.path() + L"/json");
}

TEST_F(FailedJobDescription, TellsOfAPathThatIsTooLong) {
    paths_.jsonDir = folder_.path() + L"/" + std::wstring(250, L'n');
    expectFailure("[ERROR] Open json file failed when write it!");
}

} // namespace
} // namespace test
} // namespace orv
