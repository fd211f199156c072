// Job files and requests to the byte: each submission below against golden/<name>.json and
// golden/<name>.request.json. golden/check.py reads the same files with another JSON reader.
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "submit/job_description.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/unit/submit/test_dialog.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kJobName[] = L"0F8FAD5B-D9CB-469F-A165-70867728950E";

// What a submission is made of.
struct Given {
    SceneAnalysis analysis;
    JobPaths paths;
    bool savesSceneFirst = true;
};

struct Submission {
    const char* name;
    void (*arrange)(Given& given);
};

void PrintTo(const Submission& submission, std::ostream* stream) {
    *stream << submission.name;
}

CameraInfo Camera(const std::wstring& outputName, bool isChecked = true) {
    CameraInfo camera;
    camera.name = outputName;
    camera.width = 1920;
    camera.height = 1080;
    camera.startFrame = 12;
    camera.imageFormat = L"PNG";
    camera.selected = isChecked;
    return camera;
}

void SetReport(Given& given, const char* json) {
    given.analysis.reportText = Utf8ToWide(json);
}

// A camera, and nothing switched on.
void Plain(Given& given) {
    SetReport(given, u8R"({
        "name": "D:\\scenes\\room.max", "version": "2019", "app_version": "2019",
        "renderer_full_name": "V_Ray_Adv_4_10_03", "start_frame": "12", "end_frame": "20",
        "image_width": "1920", "image_height": "1080", "image_format": "png", "gamma_out": "2.2",
        "is_region": "false", "errors": {"error_code": []}, "missing_file": [], "same_file": [],
        "cameras": [{"name": "Wide"}], "reference_file": []})");
    given.analysis.sceneFilePath = "D:\\scenes\\room.max";
    given.analysis.cameras[L"Wide"] = Camera(L"Wide");
    given.paths.scenePath = "D:\\scenes\\shot.max";
    given.paths.archivePath = "D:\\scenes\\shot_plugin_output/compress/shot_aZ09bq.7z";
    given.paths.giScaleText = "100%";
}

void SetGi(Given& given, std::int32_t index, const char* scale) {
    given.analysis.giChannel = true;
    given.analysis.irradmapPreset = 4;
    given.analysis.irradmapMinRate = -3;
    given.analysis.irradmapMaxRate = -1;
    given.paths.giScaleIndex = index;
    given.paths.giScaleText = scale;
}

void SetCorona(Given& given) {
    given.analysis.useCorona = true;
    given.analysis.coronaPassLimit = 100;
    given.analysis.coronaTimeLimitSeconds = 5400;
    given.analysis.coronaNoiseLimit = 5.0;
}

const Submission kSubmissions[] = {
    {"plain", [](Given&) {}},
    {"no_camera",
     [](Given& given) {
         given.analysis.cameras[L"Wide"].selected = false;
         given.savesSceneFirst = false;
     }},
    {"cameras",
     [](Given& given) {
         CameraMap& cameras = given.analysis.cameras;
         cameras[L"b: \"detail\" \\1"] = Camera(L"b detail 1");
         cameras[L"Z"] = Camera(L"Z", false);
         cameras[L"\u5BA2\u5385"] = Camera(L"\u5BA2\u5385");
         cameras[L"\xD83C\xDFA5"] = Camera(L"\xD83C\xDFA5");
         cameras[L"Dome"] = Camera(L"Dome");
         cameras[L"Dome"].isSpherical = true;
         cameras[L"Dome"].width = 2147483647;
         cameras[L"Dome"].startFrame = -2147483647;
         cameras[L"Dome"].imageFormat = L"";
     }},
    {"references",
     [](Given& given) {
         SetReport(given, u8R"({"app_version": "2019", "reference_file": [
             {"path": "D:\\maps\\oak.jpg", "size": 5, "kind": {"is": "bitmap"}},
             {"path": "D:\\scenes\\room.max", "kind": "scene"},
             {"path": "D:/scenes/room.max"}, {"path": "d:\\scenes\\room.max"},
             {"path": "D:\\scenes\\room.max2"}, {"path": "D:\\贴图\\木 纹.png"}]})");
     }},
    {"references_none_left",
     [](Given& given) {
         SetReport(given, R"({"app_version": "2019", "reference_file": [
             {"path": "D:\\scenes\\room.max"}, {"path": "D:\\scenes\\room.max"}]})");
     }},
    {"blocks_three", [](Given& given) { given.analysis.blockMode = 10; }},
    {"blocks_six", [](Given& given) { given.analysis.blockMode = 64; }},
    {"blocks_distributed",
     [](Given& given) {
         given.analysis.blockMode = 1010;
         given.analysis.blockCount = 7;
     }},
    {"blocks_odd", [](Given& given) { given.analysis.blockMode = 4; }},
    {"gi_off",
     [](Given& given) {
         SetGi(given, 2, "33%");
         given.analysis.giChannel = false;
     }},
    {"gi_100", [](Given& given) { SetGi(given, 0, "100%"); }},
    {"gi_50", [](Given& given) { SetGi(given, 1, "50%"); }},
    {"gi_33", [](Given& given) { SetGi(given, 2, "33%"); }},
    {"gi_25", [](Given& given) { SetGi(given, 3, "25%"); }},
    {"gi_no_selection", [](Given& given) { SetGi(given, -1, "100%"); }},
    {"ao",
     [](Given& given) {
         given.analysis.aoChannel = true;
         given.analysis.aoRadius = 12.5;
         given.analysis.aoSubdivs = 24;
         given.analysis.gamma = 1.8F;
     }},
    {"corona", SetCorona},
    {"passed_through",
     [](Given& given) {
         SetReport(given,
                   u8R"({"app_version": 21000, "errors": null, "Zebra": 1, "apple": 2, "_": 3,
             "numbers": [9007199254740993, 18446744073709551615, -9223372036854775808, 0, -1,
                         0.1, 2.5, 1e100, 1e-7, 123456789.125, 1.0],
             "texts": ["场景 🎥 é", "quote \" back \\ slash / tab \t line \n", "\u0001\u007f", ""],
             "empty": {"list": [], "object": {}}, "truth": [true, false, null],
             "start_frame": 12, "end_frame": "20", "deep": [[[[{"a": [1, [2, [3]]]}]]]],
             "nothing": null, "a very long list of texts": ["0123456789012345678901234567890",
             "0123456789012345678901234567890", "0123456789012345678901234567890"]})");
     }},
    {"everything",
     [](Given& given) {
         SetCorona(given);
         SetGi(given, 1, "50%");
         SceneAnalysis& analysis = given.analysis;
         analysis.blockMode = 1010;
         analysis.blockCount = 2;
         analysis.colorChannel = true;
         analysis.aoChannel = true;
         analysis.materialChannel = true;
         analysis.psdChannel = true;
         analysis.gamma = 1.0F;
         given.paths.scenePath = "D:\\\xE5\x9C\xBA\xE6\x99\xAF one\\it's \"quoted\".max";
     }},
};

// Windows' own line ends in the repository's files are part of what is compared.
std::string Golden(const std::string& file) {
    const std::wstring folder = Utf8ToWide(ORV_GOLDEN_FOLDER);
    return ReadFileBytes(folder + L"/" + Utf8ToWide(file));
}

class GoldenJob : public ::testing::TestWithParam<Submission> {
protected:
    // Compares, and leaves the text in folder "golden-actual" beside the test when it differs.
    static void expectGolden(const std::string& file, const std::string& text) {
        const std::string golden =
            PathExists(Utf8ToWide(ORV_GOLDEN_FOLDER "/" + file)) ? Golden(file) : std::string();
        if (golden != text)
            WriteFileBytes(L"golden-actual/" + Utf8ToWide(file), text);
        EXPECT_TRUE(golden == text) << file << ": see golden-actual/" << file;
    }

    // The folder is the same on every machine, so that the request's paths are.
    TestProductFolder product_;
    TestDialog dialog_;
};

TEST_P(GoldenJob, IsExactToTheByte) {
    Given given;
    Plain(given);
    GetParam().arrange(given);
    given.paths.jsonDir = product_.path(L"/json");
    dialog_.check(IDC_SAVE_SCENE_FILE, given.savesSceneFirst ? BST_CHECKED : BST_UNCHECKED);
    std::string request;
    ASSERT_TRUE(
        WriteJobDescription(given.analysis, dialog_.handle(), given.paths, kJobName, request));
    const std::string name = GetParam().name;
    expectGolden(name + ".json", ReadFileBytes(given.paths.jsonDir));
    expectGolden(name + ".request.json", request);
}

INSTANTIATE_TEST_SUITE_P(OfSubmissions, GoldenJob, ::testing::ValuesIn(kSubmissions),
                         [](const auto& submission) { return std::string(submission.param.name); });

} // namespace
} // namespace test
} // namespace orv
