// A submission from the dialog to the client, with the real archiver and real sockets.
#include "tests/unit/submit/submission_test.h"

#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "config/dialog_choices.h"
#include "submit/scene_archive.h"
#include "tests/support/message_box_watcher.h"
#include "tests/unit/submit/reply_server.h"

#include <gmock/gmock.h>
#include <json/reader.h>

#include <cstdio>
#include <regex>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Json::Value Parsed(const std::string& text) {
    Json::Value value;
    EXPECT_TRUE(Json::Reader().parse(text, value)) << text;
    return value;
}

class SubmitJobTest : public SubmissionTest {
protected:
    // Submits to a client that answers with this code; the request that it got is left in
    // `request_`.
    std::int32_t submitAnswered(int code) {
        ReplyServer client("{\"ret\":" + std::to_string(code) + "}");
        usePort(client.port());
        MessageBoxWatcher watcher;
        const std::int32_t result = submit();
        boxes_ = watcher.stop();
        request_ = Parsed(client.requestBody());
        return result;
    }

    std::wstring requestPath(const char* member) const {
        return Utf8ToWide(request_[member].asString());
    }
    Json::Value job() const { return Parsed(ReadFileBytes(requestPath("filePath"))); }

    Json::Value request_;
    std::vector<SeenMessageBox> boxes_;
};

TEST_F(SubmitJobTest, HandsTheSceneToTheClientAndClosesTheDialog) {
    InstallArchiver();
    EXPECT_EQ(submitAnswered(10001), kSubmitEnded);
    EXPECT_EQ(boxes_.size(), 1U) << "the client's answer";
    EXPECT_TRUE(dialog_.waitForEnd());
    EXPECT_EQ(dialog_.result(), 0);
    EXPECT_THAT(host_.savedPaths(), ElementsAre(folder_.file(L"shot.max")));

    EXPECT_EQ(requestPath("scenePath"), folder_.file(L"shot.max"));
    EXPECT_EQ(FolderPart(requestPath("filePath")), outputFolder() + L"/json/");
    EXPECT_EQ(FolderPart(requestPath("compressPath")), outputFolder() + L"/compress/");
    EXPECT_EQ(request_["maxVersion"].asString(), "3ds Max 21000");

    const TemporaryFolder out;
    ASSERT_TRUE(Unpack(requestPath("compressPath"), ArchivePassword("shot"), out.path()));
    EXPECT_EQ(ReadFileBytes(out.file(L"shot.max")), kSceneBytes);
}

// When the line of the log that has this text was written, in milliseconds.
std::int64_t TimeOfLine(const std::string& log, const std::string& text) {
    const std::size_t found = log.find(text);
    EXPECT_NE(found, std::string::npos) << text;
    const std::size_t begin = log.rfind('\n', found) + 1; // of a first line, too: 0
    int part[7] = {};
    std::sscanf(log.c_str() + begin, "%d-%d-%d %d:%d:%d:%d", &part[0], &part[1], &part[2], &part[3],
                &part[4], &part[5], &part[6]);
    SYSTEMTIME time = {};
    time.wYear = static_cast<WORD>(part[0]);
    time.wMonth = static_cast<WORD>(part[1]);
    time.wDay = static_cast<WORD>(part[2]);
    time.wHour = static_cast<WORD>(part[3]);
    time.wMinute = static_cast<WORD>(part[4]);
    time.wSecond = static_cast<WORD>(part[5]);
    time.wMilliseconds = static_cast<WORD>(part[6]);
    ULARGE_INTEGER count = {};
    FILETIME file = {};
    EXPECT_TRUE(::SystemTimeToFileTime(&time, &file));
    count.LowPart = file.dwLowDateTime;
    count.HighPart = file.dwHighDateTime;
    return static_cast<std::int64_t>(count.QuadPart / 10000);
}

// A virus scanner may hold a new archive for a moment.
TEST_F(SubmitJobTest, DescribesTheJobASecondAfterItsArchive) {
    constexpr std::int64_t kClockStep = 20; // what a stamp and the end of a wait may be off
    InstallArchiver();
    submitAnswered(10001);
    const std::string lines = log();
    EXPECT_GE(TimeOfLine(lines, "Write json file at: ") - TimeOfLine(lines, "Scene packed into "),
              1000 - kClockStep);
}

TEST_F(SubmitJobTest, NamesTheJobByAGuid) {
    submitAnswered(10001);
    const std::wstring path = requestPath("filePath");
    EXPECT_TRUE(std::regex_match(path.substr(FolderPart(path).size()),
                                 std::wregex(L"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[.]json")))
        << request_["filePath"].asString();
}

TEST_F(SubmitJobTest, PutsItsFolderBehindTheLaterSeparator) {
    dialog_.setText(IDC_SCENE_NAME, L"");
    for (const wchar_t* folder : {L"\\a/b\\", L"\\a\\b/"}) {
        const std::wstring sceneFolder = folder_.path() + folder;
        host_.sceneFilePath = sceneFolder + L"room.max";
        WriteFileBytes(host_.sceneFilePath, kSceneBytes);
        submitAnswered(10009);
        EXPECT_EQ(FolderPart(requestPath("filePath")), sceneFolder + L"room_plugin_output/json/");
    }
}

TEST_F(SubmitJobTest, DescribesTheCheckedCameras) {
    submitAnswered(10001);
    const Json::Value cameras = job()["cameras"];
    ASSERT_EQ(cameras.size(), 2U);
    EXPECT_EQ(cameras[0]["name"].asString(), "Cam");
    EXPECT_EQ(cameras[1]["name"].asString(), "\xE7\x9B\xB8\xE6\x9C\xBA");
}

TEST_F(SubmitJobTest, CollectsTheOptionsOfTheDialog) {
    for (const int box : {IDC_COLOR_CHANNEL, IDC_AO_CHANNEL, IDC_MATERIAL_CHANNEL, IDC_GI_CHANNEL,
                          IDC_PSD_CHANNEL, IDC_SAVE_SCENE_FILE})
        dialog_.check(box);
    dialog_.setText(IDC_AO_RADIUS, L"12.5");
    dialog_.setText(IDC_AO_SUBDIVS, L"24.9");
    dialog_.setText(IDC_GAMMA, L"1.5");
    dialog_.select(IDC_GI_SCALE, 2);
    data_.analysis.irradmapMinRate = -3;
    submitAnswered(10001);
    const Json::Value options = job()["max_options"];
    EXPECT_TRUE(options["color_channel"].asBool());
    EXPECT_TRUE(options["mtl_channel"].asBool());
    EXPECT_EQ(options["psd_channel"].asString(), "1");
    EXPECT_EQ(options["ao_radius"].asDouble(), 12.5);
    EXPECT_EQ(options["ao_subdivs"].asInt(), 24);
    EXPECT_EQ(options["gamma_out"].asDouble(), 1.5);
    EXPECT_EQ(options["gi_image_scale"].asString(), "33%");
    EXPECT_EQ(options["gi_irradmap_minRate"].asInt(), -5);
    EXPECT_EQ(request_["PLUGIN_SAVE_SCENE_FILE"].asUInt(), 1U);
}

TEST_F(SubmitJobTest, TakesNoSelectedScaleForTheWholeSize) {
    dialog_.check(IDC_GI_CHANNEL);
    submitAnswered(10001);
    const Json::Value options = job()["max_options"];
    EXPECT_EQ(options["gi_image_scale"].asString(), "100%");
    EXPECT_EQ(options["gi_irradmap_minRate"].asInt(), 1) << "the index -1 raises the rates";
}

TEST_F(SubmitJobTest, TakesTheCoronaLimitsOfTheDialog) {
    data_.analysis.coronaState = CoronaLimitState::NothingLimited;
    dialog_.setText(IDC_PASS_LIMIT, L"12.9");
    dialog_.setText(IDC_TIME_LIMIT, L"1.5");
    dialog_.setText(IDC_NOISE_LEVEL, L"5");
    submitAnswered(10001);
    const Json::Value corona = job()["corona_options"];
    EXPECT_EQ(corona["CoronaPassLimit"].asInt(), 12);
    EXPECT_EQ(corona["CoronaTimeLimit"].asInt(), 5400);
    EXPECT_DOUBLE_EQ(corona["CoronaNoiseLevelLimit"].asDouble(), 0.05);
    EXPECT_DOUBLE_EQ(data_.analysis.coronaTimeLimitHours, 1.5);
}

TEST_F(SubmitJobTest, KeepsTheAnalysedCoronaLimitsWhenTheDialogHasNone) {
    data_.analysis.coronaState = CoronaLimitState::Limited;
    data_.analysis.coronaPassLimit = 77;
    submitAnswered(10001);
    EXPECT_EQ(job()["corona_options"]["CoronaPassLimit"].asInt(), 77);
    EXPECT_TRUE(data_.analysis.useCorona);
}

TEST_F(SubmitJobTest, KeepsWhatTheAnalysisFoundWhereTheDialogHasNoControl) {
    for (const int control : {IDC_GAMMA, IDC_AO_RADIUS, IDC_AO_SUBDIVS, IDC_PASS_LIMIT,
                              IDC_TIME_LIMIT, IDC_NOISE_LEVEL, IDC_GI_SCALE})
        dialog_.takeAway(control);
    dialog_.check(IDC_AO_CHANNEL);
    dialog_.check(IDC_GI_CHANNEL);
    SceneAnalysis& analysis = data_.analysis;
    analysis.gammaOut = 1.8F;
    analysis.coronaState = CoronaLimitState::Limited;
    analysis.coronaPassLimit = 77;
    analysis.coronaTimeLimitHours = 3610.0 / 3600.0;
    analysis.coronaTimeLimitSeconds = 3610;
    analysis.coronaNoiseLimit = 5.0;
    submitAnswered(10001);
    const Json::Value options = job()["max_options"];
    EXPECT_FLOAT_EQ(options["gamma_out"].asFloat(), 1.8F);
    EXPECT_EQ(options["ao_radius"].asDouble(), 1000.0);
    EXPECT_EQ(options["ao_subdivs"].asInt(), 16);
    EXPECT_EQ(options["gi_image_scale"].asString(), "100%");
    const Json::Value corona = job()["corona_options"];
    EXPECT_EQ(corona["CoronaPassLimit"].asInt(), 77);
    EXPECT_EQ(corona["CoronaTimeLimit"].asInt(), 3610);
    EXPECT_DOUBLE_EQ(corona["CoronaNoiseLevelLimit"].asDouble(), 0.05);
}

TEST_F(SubmitJobTest, KeepsItsOwnGammaWhenNeitherReportNorDialogHasOne) {
    dialog_.takeAway(IDC_GAMMA);
    submitAnswered(10001);
    EXPECT_FLOAT_EQ(job()["max_options"]["gamma_out"].asFloat(), 2.2F);
}

TEST_F(SubmitJobTest, KeepsTheScenesNameWhenNoneIsTyped) {
    dialog_.setText(IDC_SCENE_NAME, L"");
    submitAnswered(10001);
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
    EXPECT_EQ(requestPath("scenePath"), folder_.file(L"room.max"));
    EXPECT_EQ(FolderPart(requestPath("filePath")), folder_.file(L"room_plugin_output") + L"/json/");
}

TEST_F(SubmitJobTest, TakesATypedExtensionForTheScenesOwn) {
    dialog_.setText(IDC_SCENE_NAME, L"shot.MAX");
    submitAnswered(10001);
    EXPECT_EQ(requestPath("scenePath"), folder_.file(L"shot.max"));
}

TEST_F(SubmitJobTest, BacksTheSceneUpForTheLengthOfItsCleaning) {
    dialog_.check(IDC_BACK_UP_SCENE);
    std::vector<std::size_t> filesDuringScripts;
    host_.onScript = [&](const std::wstring&) {
        filesDuringScripts.push_back(ListFolder(folder_.path()).size());
        return 1;
    };
    submitAnswered(10001);
    // room.max, shot.max, the output folder and the backup
    EXPECT_THAT(filesDuringScripts, ElementsAre(4U, 4U, 4U));
    EXPECT_EQ(ListFolder(folder_.path()).size(), 3U);
    EXPECT_NE(log().find(" Success!"), std::string::npos);
}

TEST_F(SubmitJobTest, CleansTheSceneThatItCouldNotBackUp) {
    dialog_.check(IDC_BACK_UP_SCENE);
    host_.onSaveTo = [this](const std::wstring& path) {
        ::DeleteFileW(host_.sceneFilePath.c_str()); // the backup is one of the former file
        WriteFileBytes(path, kSceneBytes);
        return true;
    };
    submitAnswered(10001);
    EXPECT_NE(log().find(" Error! Code is 2"), std::string::npos);
    EXPECT_EQ(host_.scripts().size(), 3U);
}

TEST_F(SubmitJobTest, LeavesNoBackupOfAWriteProtectedScene) {
    dialog_.check(IDC_BACK_UP_SCENE);
    dialog_.setText(IDC_SCENE_NAME, L"");
    ::SetFileAttributesW(host_.sceneFilePath.c_str(), FILE_ATTRIBUTE_READONLY);
    submitAnswered(10001);
    EXPECT_EQ(ListFolder(folder_.path()).size(), 2U) << "the scene and the output folder";
    ::SetFileAttributesW(host_.sceneFilePath.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(SubmitJobTest, RunsNoCleaningScriptsWithoutBeingAsked) {
    submitAnswered(10001);
    EXPECT_THAT(host_.scripts(), IsEmpty());
    EXPECT_EQ(log().find("Backup file"), std::string::npos);
}

TEST_F(SubmitJobTest, TellsTheDialogToShowItsCamerasAnew) {
    submitAnswered(10001);
    EXPECT_EQ(dialog_.rebuilds(), 1);
}

// What was chosen is what is sent, whatever becomes of the dialog and of the analysis.
TEST_F(SubmitJobTest, SendsWhatWasChosenAlthoughTheDialogIsGone) {
    dialog_.setText(IDC_GAMMA, L"1.5");
    dialog_.check(IDC_COLOR_CHANNEL);
    dialog_.check(IDC_SAVE_SCENE_FILE);
    data_.analysis.blockMode = 10;
    SubmissionChoices choices;
    ASSERT_TRUE(TakeChoices(dialog_.handle(), choices));
    choices.analysis = data_.analysis;
    ::PostMessageW(dialog_.handle(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(dialog_.waitForEnd());
    data_.analysis = SceneAnalysis(); // of another scene

    ReplyServer client("{\"ret\":10001}");
    usePort(client.port());
    MessageBoxWatcher watcher;
    EXPECT_EQ(SubmitJob(choices, dialog_.handle(), kTestCaption, L"", L"0"), kSubmitEnded);
    watcher.stop();
    request_ = Parsed(client.requestBody());
    EXPECT_EQ(requestPath("scenePath"), folder_.file(L"shot.max"));
    EXPECT_EQ(request_["PLUGIN_SAVE_SCENE_FILE"].asUInt(), 1U);
    const Json::Value sent = job();
    ASSERT_EQ(sent["cameras"].size(), 2U);
    EXPECT_EQ(sent["cameras"][0]["name"].asString(), "Cam");
    EXPECT_EQ(sent["app_version"].asString(), "21000");
    EXPECT_EQ(sent["num_blocks"].asInt(), 10);
    EXPECT_EQ(sent["max_options"]["gamma_out"].asDouble(), 1.5);
    EXPECT_TRUE(sent["max_options"]["color_channel"].asBool());
}

TEST_F(SubmitJobTest, SavesNothingUnderTheNameThatTheAnalysisFound) {
    data_.analysis.recordedSceneName = "room.max";
    dialog_.setText(IDC_SCENE_NAME, L"room");
    submitAnswered(10001);
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
    EXPECT_EQ(requestPath("scenePath"), folder_.file(L"room.max"));
    EXPECT_EQ(request_["PLUGIN_SAVE_SCENE_FILE"].asUInt(), 0U);
}

TEST_F(SubmitJobTest, KeepsWithinThe32BitsOfAWholeNumber) {
    data_.analysis.coronaState = CoronaLimitState::Limited;
    dialog_.setText(IDC_PASS_LIMIT, L"1e300");
    dialog_.setText(IDC_TIME_LIMIT, L"-1e300");
    submitAnswered(10001);
    const Json::Value corona = job()["corona_options"];
    EXPECT_EQ(corona["CoronaPassLimit"].asInt(), 2147483647);
    EXPECT_EQ(corona["CoronaTimeLimit"].asInt(), -2147483647 - 1);
}

} // namespace
} // namespace test
} // namespace orv
