// What a submission takes from the dialog of the plug-in in a host: the job file that it leaves
// beside the scene, and the settings. No client listens, so the dialog stays open.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace orv {
namespace test {
namespace {

const wchar_t kNobodyListens[] = L"The render farm's client could not be reached";

class Job : public ::testing::Test {
protected:
    void open() {
        host_.start();
        openAgain();
    }
    void openAgain() {
        window_ = host_.openDialog();
        ASSERT_NE(window_, nullptr);
        ClickCheckBox(window_, IDC_CAMERAS, 0);
    }
    void useCorona(int passes, int milliseconds, double noise) {
        host_.scene["renderer"] = Json::Value();
        host_.scene["renderer"]["name"] = "CoronaRenderer";
        Json::Value& limits = host_.scene["renderer"]["properties"];
        limits["progressive_passLimit"] = passes;
        limits["progressive_timeLimit"] = milliseconds;
        limits["adaptivity_targetError"] = noise;
    }

    // Submits, answers that no client listens, and returns the job file; null when none was
    // written. By the button, or by Enter in the edit `field`.
    Json::Value submit(int field = 0) {
        const std::vector<std::wstring> before = jobFiles();
        MessageBoxWatcher watcher(L"Orv Rendering");
        if (field == 0)
            Press(window_, IDC_SUBMIT);
        else
            PressKey(window_, field, VK_RETURN);
        EXPECT_TRUE(watcher.waitForBoxes(1));
        EXPECT_TRUE(WaitUntil([this] {
            return ::IsWindowEnabled(window_) && ::IsWindowEnabled(control(IDC_SUBMIT));
        }));
        for (const SeenMessageBox& box : watcher.stop())
            EXPECT_EQ(box.text.find(kNobodyListens), 0U);
        Json::Value job;
        for (const std::wstring& file : jobFiles()) {
            if (std::find(before.begin(), before.end(), file) == before.end())
                Json::Reader().parse(ReadFileBytes(jobFolder() + L"\\" + file), job);
        }
        return job;
    }
    std::wstring jobFolder() const {
        return host_.sceneFolder + L"\\Living room_plugin_output\\json";
    }
    std::vector<std::wstring> jobFiles() const { return ListFolder(jobFolder()); }

    HWND control(int id) const { return ::GetDlgItem(window_, id); }
    bool checked(int id) const { return ::IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    std::wstring text(int id) const { return Text(window_, id); }
    std::map<std::string, std::string> settings() const {
        std::map<std::string, std::string> values;
        std::string line;
        for (const char character : host_.product.read(L"/script/rud_plugin.ini") + "\n") {
            if (character == '\r')
                continue;
            if (character != '\n') {
                line += character;
                continue;
            }
            const std::size_t sign = line.find('=');
            if (sign != std::string::npos)
                values[line.substr(0, sign)] = line.substr(sign + 1);
            line.clear();
        }
        return values;
    }

    HostInProcess host_;
    HWND window_ = nullptr;
};

TEST_F(Job, HasTheBlocksThatAreChosen) {
    open();
    struct Case {
        int radio;
        int isCut;
        int blocks;
        int distributed;
    };
    for (const Case& row :
         {Case{1031, 1, 10, 0}, Case{1033, 0, 0, 7}, Case{1032, 1, 64, 0}, Case{1030, 0, 0, 0}}) {
        Press(window_, row.radio);
        if (row.radio == 1033)
            ::SetDlgItemTextW(window_, 1075, L"7"); // at once, as pasting does
        const Json::Value job = submit();
        EXPECT_EQ(job["enable_blocking"], Json::Value(row.isCut)) << row.radio;
        EXPECT_EQ(job["num_blocks"], Json::Value(row.blocks)) << row.radio;
        EXPECT_EQ(job["distributed_render"], Json::Value(row.distributed)) << row.radio;
    }
}

TEST_F(Job, HasTheBlocksThatAreRememberedAndTheirNumber) {
    host_.product.writeSettings("port=12345\r\nlowerversion=1.3.7\r\nNOBLOCK=0\r\nDCSBLOCK=1\r\n");
    open();
    ASSERT_TRUE(checked(1033));
    EXPECT_EQ(submit()["distributed_render"], Json::Value(10));
}

TEST_F(Job, HasTheMapSizeThatIsShown) {
    host_.scene["renderer"]["properties"]["gi_irradmap_minRate"] = -1;
    host_.scene["renderer"]["properties"]["gi_irradmap_maxRate"] = 2;
    open();
    EXPECT_FALSE(submit()["max_options"].isMember("gi_image_scale"));
    Press(window_, 1056);
    const wchar_t* const shown[] = {L"100%", L"50%", L"33%", L"25%"};
    const char* const sent[] = {"100%", "50%", "33%", "25%"};
    for (int entry = 0; entry < 4; ++entry) {
        if (entry > 0)
            PressKey(window_, 1057, VK_DOWN);
        EXPECT_EQ(text(1057), shown[entry]);
        const Json::Value options = submit()["max_options"];
        EXPECT_EQ(options["gi_channel"], Json::Value("1"));
        EXPECT_EQ(options["gi_image_scale"], Json::Value(sent[entry]));
        EXPECT_EQ(options["gi_irradmap_minRate"], Json::Value(-1 - entry));
        EXPECT_EQ(options["gi_irradmap_maxRate"], Json::Value(2 - entry));
    }
}

// Its box is hidden, so nobody could take the tick away.
TEST_F(Job, HasNoPrePassOfACoronaScene) {
    useCorona(100, 0, 5.0);
    host_.product.writeSettings("port=12345\r\nlowerversion=1.3.7\r\nCHECK_GI=1\r\n");
    open();
    EXPECT_FALSE(checked(1056));
    EXPECT_EQ(submit()["max_options"]["gi_channel"], Json::Value("0"));
}

TEST_F(Job, HasTheScenesLimitsWhereAllAreZero) {
    useCorona(100, 7200000, 5.0);
    open();
    EXPECT_EQ(text(1060), L"All 0: as in the scene");
    const auto limits = [this] {
        const Json::Value corona = submit()["corona_options"];
        EXPECT_EQ(corona["useCorona"], Json::Value(true));
        return std::vector<double>{corona["CoronaPassLimit"].asDouble(),
                                   corona["CoronaTimeLimit"].asDouble(),
                                   corona["CoronaNoiseLevelLimit"].asDouble()};
    };
    const std::vector<double> ofTheScene = {100.0, 7200.0, 0.05};
    EXPECT_EQ(limits(), ofTheScene);
    Type(window_, 1054, L"40");
    EXPECT_EQ(limits(), (std::vector<double>{40.0, 0.0, 0.0})) << "0 beside a limit is no limit";
    Type(window_, 1054, L"0");
    EXPECT_EQ(limits(), ofTheScene) << "not those of the submission before";
}

// Enter submits from within the field.
TEST_F(Job, HasNumbersInTheirRangeThatAreStillBeingTyped) {
    open();
    Press(window_, 1044);
    Type(window_, 1040, L"5");
    ASSERT_EQ(text(1040), L"5");
    const Json::Value options = submit(1040)["max_options"];
    EXPECT_EQ(options["ao_radius"].asDouble(), 10.0);
    EXPECT_EQ(text(1040), L"10.00");
}

TEST_F(Job, RemembersWhatWasChosenWhereThatIsTicked) {
    open();
    for (const int id : {1001, 1002, 1043, 1044, 1051, 1053, 1056, 1033})
        Press(window_, id);
    Type(window_, 1040, L"77.5");
    Type(window_, 1037, L"24");
    Type(window_, 1039, L"1.8");
    PressKey(window_, 1057, VK_DOWN);
    submit();
    std::map<std::string, std::string> expected = {{"port", "12345"},
                                                   {"lowerversion", "1.3.7"},
                                                   {"RENDER_CHANNEL_COLOR", "1"},
                                                   {"RENDER_CHANNEL_AO", "1"},
                                                   {"CHECK_RENDER_MTL", "1"},
                                                   {"CHECK_PSD", "1"},
                                                   {"CHECK_GI", "1"},
                                                   {"IDC_SAVE_SCENE_FILE", "0"},
                                                   {"REMBER_SETTING", "1"},
                                                   {"GI_SIZE", "1"},
                                                   {"EDIT_DURATION2", "0.0"},
                                                   {"EDIT_AO_RADIUS", "77.5"},
                                                   {"EDIT_AO_SUBDIVS", "24"},
                                                   {"EDIT_OUTPUT_GAMMA", "1.8"},
                                                   {"EDIT_ITERATIONS_A", "0"},
                                                   {"EDIT_NOISE_LEVEL2", "0"},
                                                   {"NOBLOCK", "0"},
                                                   {"THREEBLOCK", "0"},
                                                   {"SIXBLOCK", "0"},
                                                   {"DCSBLOCK", "1"}};
    EXPECT_EQ(settings(), expected);

    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    ASSERT_TRUE(host_.waitForEnd());
    openAgain();
    for (const int box : {1001, 1043, 1044, 1051, 1053, 1056, 1033})
        EXPECT_TRUE(checked(box)) << box;
    EXPECT_FALSE(checked(1002));
    EXPECT_EQ(text(1040), L"77.5");
    EXPECT_EQ(text(1037), L"24");
    EXPECT_EQ(text(1039), L"1.8");
    EXPECT_EQ(text(1057), L"50%");

    Press(window_, 1001); // not to be remembered any more
    submit();
    expected = {{"port", "12345"},
                {"lowerversion", "1.3.7"},
                {"RENDER_CHANNEL_COLOR", "0"},
                {"RENDER_CHANNEL_AO", "0"},
                {"CHECK_RENDER_MTL", "0"},
                {"CHECK_PSD", "0"},
                {"CHECK_GI", "0"},
                {"IDC_SAVE_SCENE_FILE", "1"},
                {"REMBER_SETTING", "0"},
                {"GI_SIZE", "0"},
                {"EDIT_DURATION2", "0"},
                {"EDIT_AO_RADIUS", "1000.0"},
                {"EDIT_AO_SUBDIVS", "16"},
                {"EDIT_OUTPUT_GAMMA", "2.2"},
                {"EDIT_ITERATIONS_A", "0"},
                {"EDIT_NOISE_LEVEL2", "0"},
                {"NOBLOCK", "1"},
                {"THREEBLOCK", "0"},
                {"SIXBLOCK", "0"},
                {"DCSBLOCK", "0"}};
    EXPECT_EQ(settings(), expected);
}

// The farm leaves such a file out.
TEST_F(Job, IsWrittenAfterAQuestionWhereAReferenceCannotBeUsed) {
    host_.scene["xrefs"].append("D:\\scenes\\street 100%.max");
    open();
    const auto press = [this](int answer) {
        MessageBoxWatcher watcher(L"Orv Rendering", {answer, IDOK});
        Press(window_, IDC_SUBMIT);
        EXPECT_TRUE(watcher.waitForBoxes(answer == IDOK ? 2 : 1));
        EXPECT_TRUE(WaitUntil([this] {
            return ::IsWindowEnabled(window_) && ::IsWindowEnabled(control(IDC_SUBMIT));
        }));
        return watcher.stop();
    };
    std::vector<SeenMessageBox> boxes = press(IDCANCEL);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.find(L"The analysis found something worth a look"), 0U);
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_TRUE(jobFiles().empty());
    EXPECT_TRUE(host_.events("scene_saved").empty());

    boxes = press(IDOK);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text.find(L"The analysis found something worth a look"), 0U);
    EXPECT_EQ(boxes[1].text.find(kNobodyListens), 0U);
    EXPECT_EQ(jobFiles().size(), 1U);
}

} // namespace
} // namespace test
} // namespace orv
