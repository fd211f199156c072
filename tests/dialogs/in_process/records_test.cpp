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
    data.analysis.messages.push_back({kWarn, "Something new"});
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
