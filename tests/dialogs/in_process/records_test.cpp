// The dialog and the camera records that it shares with the submission.
#include "config/dialog_choices.h"
#include "config/plugin_data.h"
#include "log/log.h"
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/dialogs/in_process/open_dialog.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"
#include "ui/main_dialog/main_dialog.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

class Cameras : public ::testing::Test {
protected:
    void SetUp() override {
        window_ = dialog_.window();
        ASSERT_NE(window_, nullptr);
    }
    std::string ticks() const { return Ticks(window_, IDC_CAMERAS); }

    HostWithScene scene_;
    const OpenDialog dialog_;
    HWND window_ = nullptr;
};

TEST_F(Cameras, AreRebuiltFromTheRecordsWhenTheSubmissionSaysSo) {
    PluginData& data = PluginData::instance();
    data.analysis.cameras.erase(L"Door");
    data.analysis.cameras[L"Camera 01"].startFrame = 99;
    data.analysis.messages.push_back({kWarn, "Something new", L"Something new"});
    ::SendMessageW(window_, kRebuildCameraTable, 0, 0);

    const std::vector<TableRow> rows = Rows(window_, IDC_CAMERAS);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].cells[3], L"99");
    EXPECT_EQ(Lines(window_, IDC_WARNINGS)[0], L"Something new");
    EXPECT_NE(scene_.product.log(L"rud_ui").find("[INFO] Update camera table successfully."),
              std::string::npos);
}

TEST_F(Cameras, AreTheOnesOfTheSceneAsItIsNowWhenItIsAnalysedAgain) {
    ClickCheckBox(window_, IDC_CAMERAS, 0); // "Camera 01"
    ClickCheckBox(window_, IDC_CAMERAS, 2); // "Door"
    std::string report = SampleReport();
    const std::size_t door = report.find("\"Door\"");
    report.replace(door, 6, "\"Attic\"");
    report.replace(report.find("1920"), 4, "640");
    scene_.setReport(report);
    Press(window_, IDC_ANALYSE_AGAIN);

    ASSERT_TRUE(WaitUntil([this] { return scene_.host.scripts().size() == 2; }));
    ASSERT_TRUE(WaitUntil([this] { return ticks() == "010"; }));
    const std::vector<TableRow> rows = Rows(window_, IDC_CAMERAS);
    EXPECT_EQ(rows[0].cells[0], L"Attic");
    EXPECT_EQ(rows[1].cells[0], L"Camera 01");
    EXPECT_EQ(rows[1].cells[1], L"640");
    EXPECT_EQ(Lines(window_, IDC_WARNINGS).size(), 3U); // not the earlier ones once more
    EXPECT_EQ(static_cast<int>(
                  ::SendMessageW(reinterpret_cast<HWND>(::SendMessageW(
                                     ::GetDlgItem(window_, IDC_CAMERAS), LVM_GETHEADER, 0, 0)),
                                 HDM_GETITEMCOUNT, 0, 0)),
              7);
}

// As applying the render options does.
TEST_F(Cameras, KeepWhatWasEditedWhenTheSceneIsAnalysedAgain) {
    CameraInfo& hall = PluginData::instance().analysis.cameras[L"Camera \u5BA2\u5385"];
    hall.name = L"Hall";
    hall.startFrame = 77;
    std::string report = SampleReport();
    report.replace(report.find("4096"), 4, "1000");
    report.replace(report.find("\"12\""), 4, "\"34\""); // the frame
    scene_.setReport(report);
    for (int time = 1; time <= 2; ++time) {
        Press(window_, IDC_ANALYSE_AGAIN);
        const std::vector<TableRow> rows = Rows(window_, IDC_CAMERAS);
        ASSERT_EQ(rows.size(), 3U);
        const std::vector<std::wstring> edited = {
            L"Camera \u5BA2\u5385", L"1000", L"2048", L"77", L"Normal", L"PNG", L"Hall"};
        EXPECT_EQ(rows[1].cells, edited) << time;
        EXPECT_EQ(rows[0].cells[3], L"34") << time;
    }
    EXPECT_EQ(scene_.host.scripts().size(), 3U);
}

// A scene with everything that the dialog warns of or shows apart, with Corona.
const char kTroubledReport[] = R"({
    "version": "2019", "name": "C:\\scenes\\Old.max", "renderer_full_name": "Missing_Renderer",
    "is_region": "true", "image_width": "10", "image_height": "20", "start_frame": "3",
    "image_format": "tif", "gamma_out": "1.8", "errors": {"error_code": [{"code": "107"}]},
    "corona_setting": {"pass_limit": "0", "time_limit": "0", "noise_level_limit": "0"},
    "missing_file": [{"path": "D:\\a.jpg"}], "same_file": [{"path": "D:\\b.jpg"}],
    "reference_file": [{"path": "D:\\100%.max"}], "cameras": [{"name": "Old:1"}, {"name": "Old 2"}]})";

std::string PlainReport() {
    return R"({
    "version": "2019", "name": "C:\\scenes\\New.max", "renderer_full_name": "V_Ray_Adv",
    "is_region": "false", "image_width": "1920", "image_height": "1080", "start_frame": "12",
    "image_format": "png", "errors": null, "same_file": [], "reference_file": [],
    "missing_file": [], "cameras": [{"name": "New"}]})";
}

void ExpectPlainScene(HWND window) {
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Lines(window, IDC_WARNINGS), std::vector<std::wstring>());
    EXPECT_TRUE(IsShown(window, IDC_NO_WARNINGS));
    const std::vector<TableRow> rows = Rows(window, IDC_CAMERAS);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].cells, (std::vector<std::wstring>{L"New", L"1920", L"1080", L"12", L"Normal",
                                                        L"PNG", L"New"}));
    EXPECT_EQ(Text(window, IDC_SCENE_NAME), L"New");
    EXPECT_EQ(Text(window, IDC_GAMMA), L"2.2");
    EXPECT_FALSE(IsShown(window, IDC_PASS_LIMIT));
    EXPECT_TRUE(IsShown(window, IDC_NO_LIMITS));
    EXPECT_TRUE(IsShown(window, IDC_GI_CHANNEL));
    EXPECT_FALSE(PluginData::instance().confirmationRequired);
    EXPECT_FALSE(PluginData::instance().analysis.hasIllegalReference);
    EXPECT_EQ(PluginData::instance().analysis.cameras.size(), 1U);
}

void ExpectTroubledScene(HWND window) {
    ASSERT_NE(window, nullptr);
    EXPECT_GT(Lines(window, IDC_WARNINGS).size(), 10U);
    EXPECT_EQ(Rows(window, IDC_CAMERAS).size(), 2U);
    EXPECT_EQ(Text(window, IDC_GAMMA), L"1.8");
    EXPECT_TRUE(IsShown(window, IDC_PASS_LIMIT));
    EXPECT_FALSE(IsShown(window, IDC_GI_CHANNEL));
    EXPECT_TRUE(PluginData::instance().confirmationRequired);
}

TEST(AnEarlierScene, LeavesNothingInTheNextAnalysis) {
    HostWithScene scene;
    scene.setReport(kTroubledReport);
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NO_FATAL_FAILURE(ExpectTroubledScene(window));
    scene.setReport(PlainReport());
    Press(window, IDC_ANALYSE_AGAIN);
    ExpectPlainScene(window);
    scene.setReport(kTroubledReport);
    Press(window, IDC_ANALYSE_AGAIN);
    ExpectTroubledScene(window);
}

TEST(AnEarlierScene, LeavesNothingInTheNextDialog) {
    HostWithScene scene;
    scene.setReport(kTroubledReport);
    {
        const OpenDialog dialog;
        ASSERT_NO_FATAL_FAILURE(ExpectTroubledScene(dialog.window()));
    }
    scene.setReport(PlainReport());
    const OpenDialog dialog;
    ExpectPlainScene(dialog.window());
}

TEST_F(Cameras, LetGoOfTheParsedReportWhenTheDialogEnds) {
    EXPECT_NE(PluginData::instance().analysis.report, nullptr);
    Press(window_, IDCANCEL);
    EXPECT_TRUE(dialog_.waitForEnd());
    EXPECT_EQ(PluginData::instance().analysis.report, nullptr);
    EXPECT_FALSE(PluginData::instance().analysis.reportText.empty());
}

TEST_F(Cameras, EndTheDialogWhenAnalysingAgainFails) {
    MessageBoxWatcher watcher(L"Orv Rendering");
    scene_.setScriptResult(0);
    Press(window_, IDC_ANALYSE_AGAIN);
    EXPECT_TRUE(dialog_.waitForEnd());
    ASSERT_EQ(watcher.stop().size(), 1U);
}

} // namespace
} // namespace test
} // namespace orv
