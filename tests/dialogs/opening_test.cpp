// Opening the main dialog: what is checked, what is shown.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/dialogs/open_dialog.h"
#include "tests/support/message_box_watcher.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

class Opening : public ::testing::Test {
protected:
    // Opens the dialog, answers its message boxes and returns them; the dialog has to end by
    // itself.
    std::vector<SeenMessageBox> openAndBeRefused(LANGID language = kEnglishLanguage) {
        MessageBoxWatcher watcher(L"Orv Rendering");
        const OpenDialog dialog(language);
        EXPECT_TRUE(dialog.waitForEnd());
        return watcher.stop();
    }
    void expectRefusal(const std::wstring& beginning) {
        const std::vector<SeenMessageBox> boxes = openAndBeRefused();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].text.substr(0, beginning.size()), beginning);
        EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
    }

    HostWithScene scene_;
};

TEST_F(Opening, ShowsTheScenesCamerasNameAndWarnings) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);

    EXPECT_EQ(Text(window, IDC_SCENE_NAME), L"Living room");
    const std::vector<TableRow> rows = Rows(window, IDC_CAMERAS);
    ASSERT_EQ(rows.size(), 3U);
    const std::vector<std::wstring> chinese = {
        L"Camera \u5BA2\u5385", L"4096", L"2048", L"12", L"Normal", L"PNG", L"Camera \u5BA2\u5385"};
    EXPECT_EQ(rows[1].cells, chinese);
    EXPECT_EQ(Ticks(window, IDC_CAMERAS), "000");

    const std::vector<std::wstring> warnings = {L"Missing files:", L"Missing: D:\\maps\\oak.jpg",
                                                L"Missing: D:\\maps\\wall.png"};
    EXPECT_EQ(Lines(window, IDC_WARNINGS), warnings);
    EXPECT_TRUE(IsShown(window, IDC_WARNINGS));
    EXPECT_FALSE(IsShown(window, IDC_NO_WARNINGS));
}

TEST_F(Opening, LogsEachStepOnce) {
    {
        const OpenDialog dialog;
        ASSERT_NE(dialog.window(), nullptr);
    }
    const std::string log = scene_.product.log(L"rud_ui");
    std::size_t from = 0;
    for (const char* line : {"[INFO] Set scene name successfully.\r\n",
                             "[INFO] Get warnning infomation of current scene successfully.\r\n",
                             "[INFO] Create camera table successfully.\r\n"}) {
        const std::size_t at = log.find(line, from);
        EXPECT_NE(at, std::string::npos) << line;
        EXPECT_EQ(log.find(line, at + 1), std::string::npos) << line;
        from = at == std::string::npos ? from : at;
    }
}

TEST_F(Opening, IsModalOverItsOwnerAndStartsAtTheCameras) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(ReadWindowText(::GetWindow(window, GW_OWNER)), L"Host");
    EXPECT_FALSE(::IsWindowEnabled(::GetWindow(window, GW_OWNER)));

    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    ASSERT_TRUE(::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &thread));
    EXPECT_EQ(::GetDlgCtrlID(thread.hwndFocus), IDC_CAMERAS);
    EXPECT_EQ(LOWORD(::SendMessageW(window, DM_GETDEFID, 0, 0)), IDC_SUBMIT);
}

TEST_F(Opening, RunsTheParserOnceWithTheReportInTheWorkFolder) {
    const OpenDialog dialog;
    ASSERT_NE(dialog.window(), nullptr);
    const std::vector<std::wstring> scripts = scene_.host.scripts();
    ASSERT_EQ(scripts.size(), 1U);
    EXPECT_EQ(
        scripts[0].find(L"fileIn \"" + scene_.product.path(L"/script/MaxRenderGlobalsParser.mse")),
        0U);
}

TEST_F(Opening, ShowsThatThereIsNothingToWarnOf) {
    std::string report = SampleReport();
    const std::size_t files = report.find("\"missing_file\": [") + 17;
    report.erase(files, report.find(']', files) - files);
    scene_.setReport(report);

    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(Lines(window, IDC_WARNINGS).empty());
    EXPECT_FALSE(IsShown(window, IDC_WARNINGS));
    EXPECT_TRUE(IsShown(window, IDC_NO_WARNINGS));
}

TEST_F(Opening, SpeaksChineseWhereTheHostDoes) {
    const OpenDialog dialog(kChineseLanguage);
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Text(window, IDC_SUBMIT), L"\u63D0\u4EA4(&S)");
    EXPECT_EQ(Lines(window, IDC_WARNINGS)[0], L"\u7F3A\u5931\u7684\u6587\u4EF6\uFF1A");
    EXPECT_EQ(Rows(window, IDC_CAMERAS)[0].cells[4], L"\u666E\u901A");
}

TEST_F(Opening, RefusesAClientThatWasNeverStarted) {
    scene_.product.writeSettings("port=12345\r\n");
    expectRefusal(L"The settings of the render farm's client were not found.");
    EXPECT_TRUE(scene_.host.scripts().empty()); // nothing is analysed for nothing
}

TEST_F(Opening, RefusesAClientThatWantsANewerPlugin) {
    for (const char* version : {"1.3.8", "1.3.70", "2"}) {
        scene_.product.writeSettings(std::string("lowerversion=") + version + "\r\n");
        expectRefusal(L"This version of Orv Rendering is too old");
    }
}

TEST_F(Opening, AcceptsAClientThatWantsAnOlderPlugin) {
    scene_.product.writeSettings("lowerversion=1.3\r\n");
    const OpenDialog dialog;
    EXPECT_NE(dialog.window(), nullptr);
}

TEST_F(Opening, RefusesASceneWithANameThatTheFarmCannotTake) {
    for (const wchar_t* name :
         {L"room .max", L"room..max", L"ro`om.max", L"room 50%.max", L"\u043A.max"}) {
        scene_.openScene(name);
        expectRefusal(L"This scene name cannot be used.");
    }
    EXPECT_TRUE(scene_.host.scripts().empty());
}

TEST_F(Opening, TakesASceneThatWasNeverSaved) {
    scene_.host.sceneFilePath.clear();
    const OpenDialog dialog;
    EXPECT_NE(dialog.window(), nullptr);
}

TEST_F(Opening, EndsWhenTheHostCannotRunTheParser) {
    scene_.setScriptResult(0);
    expectRefusal(L"The scene could not be analysed.");
}

TEST_F(Opening, TellsThatTheReportIsMissingOrUnreadable) {
    for (const char* report :
         {"", "no json", "[1, 2", R"({"cameras": [{"name": 5}]})", R"(["cameras"])"}) {
        scene_.setReport(report);
        expectRefusal(L"The result of the scene analysis could not be read.");
    }
}

TEST_F(Opening, NamesTheCamerasThatShareAName) {
    std::string report = SampleReport();
    report.insert(report.rfind('}'), R"(, "dupl_cameras": [{"name": " Door "}, {"name": "窗"}])");
    scene_.setReport(report);
    const std::vector<SeenMessageBox> boxes = openAndBeRefused();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"These camera names are used more than once:\nDoor,\u7A97\n"
              L"Please give each camera a name of its own, then open this dialog again.");
}

class SceneWithoutCameras : public Opening {
protected:
    SceneWithoutCameras() {
        std::string report = SampleReport();
        const std::size_t cameras = report.find("\"cameras\": [") + 12;
        report.erase(cameras, report.rfind(']') - cameras);
        scene_.setReport(report);
    }
};

TEST_F(SceneWithoutCameras, EndsTheDialogWhenTheUserSaysNo) {
    MessageBoxWatcher watcher(L"Orv Rendering", {IDNO});
    const OpenDialog dialog;
    EXPECT_TRUE(dialog.waitForEnd());
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"There is no camera in this scene that can be rendered. Do you want to go on "
              L"all the same?");
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDYES, IDNO}));
}

TEST_F(SceneWithoutCameras, OpensWithAnEmptyTableWhenTheUserSaysYes) {
    MessageBoxWatcher watcher(L"Orv Rendering", {IDYES});
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(Rows(window, IDC_CAMERAS).empty());
    EXPECT_EQ(Lines(window, IDC_WARNINGS)[0], L"No cameras!");
}

TEST_F(Opening, EndsByCancelByEscapeAndByItsTitleBar) {
    struct Way {
        UINT message;
        WPARAM wParam;
    };
    for (const Way& way :
         {Way{WM_COMMAND, IDCANCEL}, Way{WM_CLOSE, 0}, Way{WM_SYSCOMMAND, SC_CLOSE}}) {
        const OpenDialog dialog;
        const HWND window = dialog.window();
        ASSERT_NE(window, nullptr);
        ::PostMessageW(window, way.message, way.wParam, 0);
        EXPECT_TRUE(dialog.waitForEnd());
    }
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    PressKey(window, IDC_SCENE_NAME, VK_ESCAPE);
    EXPECT_TRUE(dialog.waitForEnd());
}

TEST_F(Opening, MakesAndFreesOneScriptValueEachTime) {
    for (int time = 0; time < 2; ++time) {
        const OpenDialog dialog;
        ASSERT_NE(dialog.window(), nullptr);
    }
    EXPECT_EQ(scene_.host.valuesAlive(), 0);
}

} // namespace
} // namespace test
} // namespace orv
