// Opening the main dialog of the plug-in in a host: what is checked, what is shown.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/import_patch.h"
#include "tests/support/log_lines.h"
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
    std::vector<SeenMessageBox> openAndBeRefused() {
        MessageBoxWatcher watcher(L"Orv Rendering");
        host_.chooseSubmit();
        EXPECT_TRUE(host_.waitForEnd());
        return watcher.stop();
    }
    void expectRefusal(const std::wstring& beginning) {
        const std::vector<SeenMessageBox> boxes = openAndBeRefused();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].text.substr(0, beginning.size()), beginning);
        EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
    }
    bool wasAnalysed() const { return !host_.events("script_run").empty(); }

    HostInProcess host_;
};

TEST_F(Opening, ShowsTheScenesCamerasNameAndWarnings) {
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);

    EXPECT_EQ(ReadWindowText(window), L"Orv Rendering");
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
    host_.start();
    ASSERT_NE(host_.openDialog(), nullptr);
    const std::vector<std::string> expected = {
        "[INFO] Set scene name successfully.",
        "[INFO] Get warnning infomation of current scene successfully.",
        "[INFO] Create camera table successfully.",
    };
    EXPECT_EQ(LogLines(host_.product.log(L"rud_ui", L"1.3.7")), expected);
}

TEST_F(Opening, IsModalOverTheHostAndStartsAtTheCameras) {
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    HWND owner = ::GetWindow(window, GW_OWNER);
    EXPECT_NE(::GetMenu(owner), nullptr); // the host's main window
    EXPECT_FALSE(::IsWindowEnabled(owner));

    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    ASSERT_TRUE(::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &thread));
    EXPECT_EQ(::GetDlgCtrlID(thread.hwndFocus), IDC_CAMERAS);
    EXPECT_EQ(LOWORD(::SendMessageW(window, DM_GETDEFID, 0, 0)), IDC_SUBMIT);
}

TEST_F(Opening, HasRoomForTheWholeTableAndTheScrollBar) {
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(::GetWindowLongW(::GetDlgItem(window, IDC_CAMERAS), GWL_STYLE) & WS_HSCROLL, 0);
}

TEST_F(Opening, ShowsThatThereIsNothingToWarnOf) {
    host_.scene.removeMember("external_files");
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(Lines(window, IDC_WARNINGS).empty());
    EXPECT_FALSE(IsShown(window, IDC_WARNINGS));
    EXPECT_TRUE(IsShown(window, IDC_NO_WARNINGS));
}

TEST_F(Opening, ExplainsRememberingAndSavingInTheirTips) {
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(ToolTip(window, IDC_REMEMBER), L"Keep these settings for the next submission");
    EXPECT_EQ(ToolTip(window, IDC_SAVE_SCENE_FILE),
              L"Save the scene in 3ds Max before it is submitted");
    EXPECT_EQ(ToolTip(window, IDC_BACK_UP_SCENE), L"");
}

TEST_F(Opening, SpeaksChineseWhereTheHostDoes) {
    host_.start(kChineseLanguage);
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Text(window, IDC_SUBMIT), L"\u63D0\u4EA4(&S)");
    EXPECT_EQ(Lines(window, IDC_WARNINGS)[0], L"\u7F3A\u5931\u7684\u6587\u4EF6\uFF1A");
    EXPECT_EQ(Rows(window, IDC_CAMERAS)[0].cells[4], L"\u666E\u901A");
}

TEST_F(Opening, ShowsAndScrollsTwoThousandCameras) {
    for (int number = 3; number < 2000; ++number)
        host_.scene["cameras"].append("Many " + std::to_string(number));
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    HWND table = ::GetDlgItem(window, IDC_CAMERAS);
    EXPECT_EQ(::SendMessageW(table, LVM_GETITEMCOUNT, 0, 0), 2000);
    PressKey(window, IDC_CAMERAS, VK_END);
    const LRESULT top = ::SendMessageW(table, LVM_GETTOPINDEX, 0, 0);
    const LRESULT shown = ::SendMessageW(table, LVM_GETCOUNTPERPAGE, 0, 0);
    EXPECT_GE(top + shown, 2000); // the last row is in sight
    Press(window, IDC_SELECT_ALL);
    EXPECT_EQ(Ticks(window, IDC_CAMERAS), std::string(2000, '1'));
}

TEST_F(Opening, RefusesAClientThatWasNeverStarted) {
    host_.product.writeSettings("port=12345\r\n");
    host_.start();
    expectRefusal(L"The settings of the render farm's client were not found.");
    EXPECT_FALSE(wasAnalysed()); // nothing is analysed for nothing
}

// The settings are read at each opening.
TEST_F(Opening, ComparesTheVersionThatTheClientWants) {
    host_.start();
    for (const char* version : {"1.3.8", "1.3.70", "2"}) {
        host_.product.writeSettings(std::string("lowerversion=") + version + "\r\n");
        expectRefusal(L"This version of Orv Rendering is too old");
    }
    EXPECT_FALSE(wasAnalysed());
    host_.product.writeSettings("lowerversion=1.3\r\n");
    EXPECT_NE(host_.openDialog(), nullptr);
}

class SceneNameTheFarmCannotTake : public Opening,
                                   public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(SceneNameTheFarmCannotTake, IsRefusedBeforeTheAnalysis) {
    host_.sceneName = GetParam();
    host_.start();
    expectRefusal(L"This scene name cannot be used.");
    EXPECT_FALSE(wasAnalysed());
}

INSTANTIATE_TEST_SUITE_P(Names, SceneNameTheFarmCannotTake,
                         ::testing::Values(L"room .max", L"room..max", L"ro`om.max",
                                           L"room 50%.max", L"\u043A.max"));

TEST_F(Opening, TakesASceneThatWasNeverSaved) {
    host_.sceneName.clear();
    MessageBoxWatcher watcher(L"Orv Rendering", {IDYES}); // it has no cameras either
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Text(window, IDC_SCENE_NAME), L"");
}

TEST_F(Opening, EndsWhenTheHostCannotRunTheParser) {
    host_.setParser("error", "no memory");
    host_.start();
    expectRefusal(L"The scene could not be analysed.");
}

TEST_F(Opening, TellsThatTheParserWroteNothing) {
    host_.setParser("nothing");
    host_.start();
    expectRefusal(L"The result of the scene analysis could not be read.");
}

class UnreadableReport : public Opening, public ::testing::WithParamInterface<const char*> {};

TEST_P(UnreadableReport, IsTold) {
    host_.setParser("text", GetParam());
    host_.start();
    expectRefusal(L"The result of the scene analysis could not be read.");
}

INSTANTIATE_TEST_SUITE_P(Texts, UnreadableReport,
                         ::testing::Values("", "no json", "[1, 2", R"({"cameras": [{"name": 5}]})",
                                           R"(["cameras"])",
                                           R"({"is_region": true, "cameras": []})"));

TEST_F(Opening, NamesWhatIsWrongWithAReportThatItRefuses) {
    host_.setParser("text", R"({"is_region": "false", "image_width": "1", "image_height": "1",
        "start_frame": "0", "cameras": [{"name": "a"}, {"name": 5}]})");
    host_.start();
    const std::vector<SeenMessageBox> boxes = openAndBeRefused();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].text.find(L"\n\nThe analysis report cannot be used: \"cameras[1].name\" is "
                                 L"missing or is not a text."),
              std::wstring::npos)
        << "the member is named";
}

TEST_F(Opening, NamesInChineseWhatIsWrongWithAReport) {
    host_.setParser("text", R"({"cameras": []})");
    host_.start(kChineseLanguage);
    const std::vector<SeenMessageBox> boxes = openAndBeRefused();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"无法读取场景分析的结果。请重新安装 Orv Rendering，然后重新打开此对话框。"
              L"\n\n分析报告无法使用：\"is_region\" 缺失或不是文本。");
}

constexpr char kReportOfFindings[] = R"({"name": "D:/room.max",
        "is_region": "true", "image_width": "1920", "image_height": "1080", "start_frame": "0",
        "image_format": "tif", "cameras": [{"name": "a:b"}],
        "corona_setting": {"pass_limit": "0", "time_limit": "0", "noise_level_limit": "0"},
        "reference_file": [{"path": "D:\\100%.png"}], "missing_file": [{"path": "D:\\oak.jpg"}]})";

TEST_F(Opening, ListsInChineseWhatAReportTells) {
    host_.setParser("text", kReportOfFindings);
    host_.start(kChineseLanguage);
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    const std::vector<std::wstring> lines = Lines(window, IDC_WARNINGS);
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0], L"Corona 未限制渐进采样次数、时间和噪点级别！请修改后再次提交！");
    EXPECT_EQ(lines[1], L"场景文件使用了区域渲染。如果确认要使用分块渲染，请忽略此消息。");
    EXPECT_EQ(lines[2], L"引用文件的名称中含有非法字符。");
    EXPECT_EQ(lines[3], L"原摄影机名称含有无效字符！");
    EXPECT_EQ(lines[4], L"提交前请留意以下内容：");
}

// Errors, warnings, advice and problem files of one report, in the order of the list.
TEST_F(Opening, ListsAllThatAReportTells) {
    host_.setParser("text", kReportOfFindings);
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    const std::vector<std::wstring> lines = Lines(window, IDC_WARNINGS);
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0].substr(0, 20), L"The progressive pass");
    EXPECT_EQ(lines[1].substr(0, 16), L"Region rendering");
    EXPECT_EQ(lines[2], L"The name of reference file have illegal characters.");
    EXPECT_EQ(lines[3], L"The original camera name contain invalid characters!");
    // Three lines of advice with their heading, then two blocks of files.
    EXPECT_EQ(lines[8], L"D:\\100%.png");
    EXPECT_EQ(lines[10], L"Missing: D:\\oak.jpg");
}

TEST_F(Opening, NamesTheCamerasThatShareAName) {
    host_.scene["cameras"].append("Door");
    host_.scene["cameras"].append("\xE7\xAA\x97"); // 窗
    host_.scene["cameras"].append("\xE7\xAA\x97");
    host_.start();
    const std::vector<SeenMessageBox> boxes = openAndBeRefused();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"These camera names are used more than once:\nDoor,\u7A97\n"
              L"Please give each camera a name of its own, then open this dialog again.");
}

TEST_F(Opening, EndsWithoutCamerasWhenTheUserSaysNo) {
    host_.scene.removeMember("cameras");
    MessageBoxWatcher watcher(L"Orv Rendering", {IDNO});
    host_.start();
    host_.chooseSubmit();
    EXPECT_TRUE(host_.waitForEnd());
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"There is no camera in this scene that can be rendered. Do you want to go on "
              L"all the same?");
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDYES, IDNO}));
}

TEST_F(Opening, ShowsAnEmptyTableWithoutCamerasWhenTheUserSaysYes) {
    host_.scene.removeMember("cameras");
    MessageBoxWatcher watcher(L"Orv Rendering", {IDYES});
    host_.start();
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(Rows(window, IDC_CAMERAS).empty());
    EXPECT_EQ(Lines(window, IDC_WARNINGS)[0], L"No cameras!");
}

int WSAAPI NoWinsock(WORD, LPWSADATA) {
    return WSASYSNOTREADY;
}

TEST_F(Opening, FillsNothingInWhereTheNetworkCannotBeUsed) {
    host_.start();
    const ImportPatch patch(::GetModuleHandleW(L"OrvRendering.gup"), "WSAStartup",
                            reinterpret_cast<ULONGLONG>(&NoWinsock));
    ::testing::internal::CaptureStdout();
    HWND window = host_.openDialog();
    const std::string output = ::testing::internal::GetCapturedStdout();
    ASSERT_NE(window, nullptr);
    EXPECT_NE(output.find("Load WinSock Failed!\n"), std::string::npos) << output;
    EXPECT_EQ(LogLines(host_.product.log(L"rud_ui", L"1.3.7")),
              std::vector<std::string>{"[ERROR] Load WinSock Failed!"});
    EXPECT_FALSE(wasAnalysed());
    EXPECT_EQ(Text(window, IDC_SCENE_NAME), L"");
    EXPECT_EQ(Text(window, IDC_AO_RADIUS), L"");
    EXPECT_TRUE(Rows(window, IDC_CAMERAS).empty());
    EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(window, IDC_SUBMIT)));
    Press(window, IDCANCEL);
    EXPECT_TRUE(host_.waitForEnd());
}

TEST_F(Opening, EndsByCancelByEscapeAndByItsTitleBar) {
    struct Way {
        UINT message;
        WPARAM wParam;
    };
    host_.start();
    for (const Way& way :
         {Way{WM_COMMAND, IDCANCEL}, Way{WM_CLOSE, 0}, Way{WM_SYSCOMMAND, SC_CLOSE}}) {
        HWND window = host_.openDialog();
        ASSERT_NE(window, nullptr);
        ::PostMessageW(window, way.message, way.wParam, 0);
        EXPECT_TRUE(host_.waitForEnd());
    }
    HWND window = host_.openDialog();
    ASSERT_NE(window, nullptr);
    PressKey(window, IDC_SCENE_NAME, VK_ESCAPE);
    EXPECT_TRUE(host_.waitForEnd());
}

} // namespace
} // namespace test
} // namespace orv
