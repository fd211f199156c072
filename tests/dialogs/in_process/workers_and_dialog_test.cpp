// The dialog and the workers of its submission: their states, and what happens while they run.
#include "base/folders.h"
#include "config/dialog_choices.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/dialogs/in_process/open_dialog.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <memory>
#include <set>
#include <utility>

namespace orv {
namespace test {
namespace {

class Submitting : public ::testing::Test {
protected:
    Submitting() {
        // Saving is the submission's first call to the host: it waits there for the test, and is
        // then refused, which ends the submission with a message.
        scene_.host.onSaveTo = [this](const std::wstring&) {
            ++saves_;
            WaitUntil([this] { return release_.load(); });
            return false;
        };
    }
    ~Submitting() override {
        release_ = true;
        data_.confirmationRequired = false;
        EXPECT_TRUE(WaitUntil([this] { return workersEnded(); }));
    }
    static std::unique_ptr<MessageBoxWatcher> answering(std::vector<int> answers) {
        return std::make_unique<MessageBoxWatcher>(L"Orv Rendering", std::move(answers));
    }
    bool workersEnded() const {
        return data_.submitState != kWorkerRunning && data_.progressState != kWorkerRunning;
    }
    static bool canSubmit(HWND window) {
        return ::IsWindowEnabled(window) && ::IsWindowEnabled(::GetDlgItem(window, IDC_SUBMIT));
    }
    // Submits the first camera under another name of the scene, so that the host is asked to save.
    static void submitAs(HWND window, const wchar_t* name) {
        ClickCheckBox(window, IDC_CAMERAS, 0);
        Type(window, IDC_SCENE_NAME, name);
        Press(window, IDC_SUBMIT);
    }
    // The controls of the dialog that are enabled.
    static std::set<int> enabledControls(HWND window) {
        std::set<int> enabled;
        for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            if (::IsWindowEnabled(child))
                enabled.insert(::GetDlgCtrlID(child));
        }
        return enabled;
    }
    // What a person sees of the controls.
    static std::vector<std::wstring> appearance(HWND window) {
        std::vector<std::wstring> seen;
        for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT))
            seen.push_back(std::to_wstring(::GetDlgCtrlID(child)) + L" " + ReadWindowText(child) +
                           (::IsWindowEnabled(child) ? L" enabled" : L"") +
                           (::IsWindowVisible(child) ? L" shown " : L" ") +
                           std::to_wstring(::SendMessageW(child, BM_GETCHECK, 0, 0)));
        for (const TableRow& row : Rows(window, IDC_CAMERAS))
            seen.push_back(row.cells[0] + (row.ticked ? L" ticked" : L""));
        return seen;
    }
    bool saving() const {
        return WaitUntil([this] { return saves_ > 0; });
    }

    PluginData& data_ = PluginData::instance();
    HostWithScene scene_;
    std::unique_ptr<MessageBoxWatcher> boxes_ =
        answering({IDOK}); // as long as a worker may show one
    std::atomic<int> saves_{0};
    std::atomic<bool> release_{false};
};

TEST_F(Submitting, RunsOneSubmissionHoweverOftenSubmitIsPressed) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    Type(window, IDC_SCENE_NAME, L"\u5BA2\u5385 v2");
    for (int press = 0; press < 5; ++press)
        ::SendMessageW(window, WM_COMMAND, IDC_SUBMIT, 0);
    ASSERT_TRUE(saving());
    ::SendMessageW(window, WM_COMMAND, IDC_SUBMIT, 0);
    EXPECT_EQ(data_.submitState, kWorkerRunning);

    release_ = true;
    ASSERT_TRUE(boxes_->waitForBoxes(1));
    ASSERT_TRUE(WaitUntil([this] { return workersEnded(); }));
    EXPECT_EQ(scene_.host.savedPaths(),
              std::vector<std::wstring>{scene_.scenes.file(L"\u5BA2\u5385 v2.max")});
    const std::vector<SeenMessageBox> boxes = boxes_->stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              L"The scene could not be saved. Please save it in 3ds Max and submit again.");
    EXPECT_EQ(boxes[0].owner, window);
    EXPECT_FALSE(dialog.ended());
}

TEST_F(Submitting, ShowsProgressOverTheDialogUntilItEnds) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    submitAs(window, L"other");

    HWND progress = nullptr;
    ASSERT_TRUE(WaitUntil([&progress] {
        progress = FindDialogWith(IDC_PROGRESS_BAR);
        return progress != nullptr;
    }));
    EXPECT_EQ(::GetWindow(progress, GW_OWNER), window);
    EXPECT_TRUE(WaitUntil([window] { return !::IsWindowEnabled(window); }));
    release_ = true;
    EXPECT_TRUE(WaitUntil([window] {
        return FindDialogWith(IDC_PROGRESS_BAR) == nullptr && ::IsWindowEnabled(window);
    }));
}

TEST_F(Submitting, KeepsTheControlsButCancelUntilItEnds) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    Press(window, IDC_AO_CHANNEL); // enables what belongs to it; others stay disabled
    Type(window, IDC_SCENE_NAME, L"other");
    const std::set<int> before = enabledControls(window);
    ASSERT_EQ(before.count(IDC_AO_RADIUS), 1U);
    ASSERT_EQ(before.count(IDC_BLOCK_COUNT), 0U);
    ASSERT_EQ(before.count(IDC_EDIT_CAMERAS), 0U);
    Press(window, IDC_SUBMIT);
    ASSERT_TRUE(saving());
    EXPECT_EQ(enabledControls(window), std::set<int>{IDCANCEL});
    ::SendMessageW(window, kSubmissionEnded, 0, 0); // from any sender
    ::SendMessageW(window, kRebuildCameraTable, 0, 0);
    EXPECT_EQ(enabledControls(window), std::set<int>{IDCANCEL});
    release_ = true;
    ASSERT_TRUE(WaitUntil([window] { return canSubmit(window); }));
    EXPECT_EQ(enabledControls(window), before);
}

// What their windows send when they are used, whether they are enabled or not.
TEST_F(Submitting, ListensToNoControlButCancelUntilItEnds) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    ClickRow(window, IDC_CAMERAS, 0);
    ClickRow(window, IDC_CAMERAS, 1, MK_CONTROL);
    Press(window, IDC_AO_CHANNEL);
    Press(window, IDC_DISTRIBUTED_BLOCKS);
    Type(window, IDC_SCENE_NAME, L"other");
    Press(window, IDC_SUBMIT);
    ASSERT_TRUE(saving());
    ASSERT_TRUE(WaitUntil([] { return FindDialogWith(IDC_PROGRESS_BAR) != nullptr; }));
    const std::vector<std::wstring> before = appearance(window);
    int controls = 0;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        const int id = ::GetDlgCtrlID(child);
        if (id == IDCANCEL)
            continue;
        ++controls;
        for (const int code :
             {BN_CLICKED, BN_DOUBLECLICKED, EN_CHANGE, EN_KILLFOCUS, CBN_SELCHANGE})
            ::SendMessageW(window, WM_COMMAND, MAKEWPARAM(id, code),
                           reinterpret_cast<LPARAM>(child));
        NMUPDOWN arrows = {};
        arrows.hdr = {child, static_cast<UINT_PTR>(id), static_cast<UINT>(UDN_DELTAPOS)};
        arrows.iDelta = -1;
        ::SendMessageW(window, WM_NOTIFY, static_cast<WPARAM>(id),
                       reinterpret_cast<LPARAM>(&arrows));
        NMITEMACTIVATE row = {};
        row.hdr = {child, static_cast<UINT_PTR>(id), static_cast<UINT>(NM_DBLCLK)};
        ::SendMessageW(window, WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&row));
        ASSERT_EQ(appearance(window), before) << id;
    }
    EXPECT_GT(controls, 40);
    EXPECT_EQ(boxes_->seen().size(), 0U);
    EXPECT_EQ(scene_.host.scripts().size(), 1U) << "the scene was not analysed again";
    EXPECT_EQ(scene_.product.log(L"rud_ui").find("DialogBoxParamW"), std::string::npos)
        << "no render options";
    EXPECT_EQ(saves_, 1);
    EXPECT_FALSE(dialog.ended());
    ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(dialog.waitForEnd());
}

// The scene was put in order after the question.
TEST_F(Submitting, AsksNoMoreWhenTheNextAnalysisFindsNoIllegalReference) {
    boxes_ = answering({IDCANCEL, IDOK});
    std::string report = SampleReport();
    report.replace(report.find("\"reference_file\": []"), 20,
                   R"("reference_file": [{"path": "D:\\100%.max"}])");
    scene_.setReport(report);
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    submitAs(window, L"other");
    ASSERT_TRUE(boxes_->waitForBoxes(1));
    ASSERT_TRUE(WaitUntil([window] { return canSubmit(window); }));
    EXPECT_EQ(saves_, 0);

    scene_.setReport(SampleReport());
    Press(window, IDC_ANALYSE_AGAIN);
    Type(window, IDC_SCENE_NAME, L"other");
    Press(window, IDC_SUBMIT);
    EXPECT_TRUE(saving());
    EXPECT_EQ(boxes_->seen().size(), 1U);
}

TEST_F(Submitting, ShowsNothingWhenSubmitIsPressedAgain) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    submitAs(window, L"other");
    ASSERT_TRUE(saving());
    data_.confirmationRequired = true; // illegal references
    ::SendMessageW(window, WM_COMMAND, IDC_SUBMIT, 0);
    ::SetDlgItemTextW(window, IDC_SCENE_NAME, L"50%");
    ::SendMessageW(window, WM_COMMAND, IDC_SUBMIT, 0);
    EXPECT_EQ(boxes_->seen().size(), 0U);
    EXPECT_FALSE(dialog.ended());
    EXPECT_TRUE(::IsWindow(window));
}

// An Escape that waits in the queue while the host saves.
TEST_F(Submitting, SendsWhatWasChosenWhenTheDialogIsClosedWhileTheHostSaves) {
    scene_.host.onSave = [] {
        ::SendMessageW(FindDialogWith(IDC_CAMERAS), WM_COMMAND, IDCANCEL, 0);
        return true;
    };
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 1);
    Press(window, IDC_REMEMBER);
    Press(window, IDC_COLOR_CHANNEL);
    Type(window, IDC_SCENE_NAME, L"chosen");
    Press(window, IDC_SUBMIT);
    EXPECT_TRUE(dialog.waitForEnd());
    ASSERT_TRUE(saving());
    EXPECT_EQ(boxes_->seen().size(), 0U) << "a camera is ticked";
    release_ = true;
    ASSERT_TRUE(WaitUntil([this] { return workersEnded(); }));
    EXPECT_EQ(scene_.host.savedPaths(),
              std::vector<std::wstring>{scene_.scenes.file(L"chosen.max")});
    EXPECT_TRUE(data_.analysis.colorChannel);
    EXPECT_EQ(ReadGeneralSetting(L"RENDER_CHANNEL_COLOR"), L"1");
    EXPECT_EQ(ReadGeneralSetting(L"EDIT_OUTPUT_GAMMA"), L"2.2");
}

// With "save the scene first" unticked and the name as it was, the file on disk is not touched.
TEST_F(Submitting, LeavesTheSceneAloneUnderTheNameThatItHas) {
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    Press(window, IDC_SAVE_SCENE_FILE);
    Press(window, IDC_SUBMIT);
    ASSERT_TRUE(boxes_->waitForBoxes(1)); // that no client listens
    ASSERT_TRUE(WaitUntil([this] { return workersEnded(); }));
    EXPECT_EQ(scene_.host.saveCommands(), 0);
    EXPECT_EQ(scene_.host.savedPaths(), std::vector<std::wstring>());
}

TEST_F(Submitting, IsAllowedAgainAfterItFailed) {
    release_ = true;
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    for (const wchar_t* name : {L"first", L"second"}) {
        Type(window, IDC_SCENE_NAME, name);
        Press(window, IDC_SUBMIT);
        ASSERT_TRUE(WaitUntil(
            [&] { return scene_.host.savedPaths().size() == (name[0] == L'f' ? 1U : 2U); }));
        ASSERT_TRUE(WaitUntil([this, window] { return workersEnded() && canSubmit(window); }));
    }
}

TEST_F(Submitting, AsksFirstWhereTheAnalysisWantsItAndStaysOpenOnCancel) {
    boxes_ = answering({IDCANCEL, IDOK});
    const OpenDialog dialog;
    const HWND window = dialog.window();
    ASSERT_NE(window, nullptr);
    ClickCheckBox(window, IDC_CAMERAS, 0);
    Type(window, IDC_SCENE_NAME, L"other");
    data_.confirmationRequired = true;
    Press(window, IDC_SUBMIT);
    ASSERT_TRUE(boxes_->waitForBoxes(1));
    ASSERT_TRUE(WaitUntil([window] { return ::IsWindowEnabled(window) != FALSE; }));
    EXPECT_NE(data_.submitState, kWorkerRunning);
    EXPECT_EQ(saves_, 0);

    Press(window, IDC_SUBMIT);
    EXPECT_TRUE(saving());
    const std::vector<SeenMessageBox> boxes = boxes_->seen();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text, boxes[1].text);
    EXPECT_EQ(boxes[0].text.find(L"The analysis found something worth a look"), 0U);
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
}

TEST_F(Submitting, GoesOnWhenTheDialogIsClosed) {
    {
        const OpenDialog dialog;
        const HWND window = dialog.window();
        ASSERT_NE(window, nullptr);
        submitAs(window, L"other");
        ASSERT_TRUE(saving());
        ::PostMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(dialog.waitForEnd());
    }
    EXPECT_EQ(data_.submitState, kWorkerRunning);
    release_ = true;
    EXPECT_TRUE(WaitUntil([this] { return workersEnded(); }));
}

TEST_F(Submitting, KeepsTheDialogFromOpeningUntilItEnded) {
    {
        const OpenDialog dialog;
        const HWND window = dialog.window();
        ASSERT_NE(window, nullptr);
        submitAs(window, L"other");
        ASSERT_TRUE(saving());
        ::PostMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(dialog.waitForEnd());
    }
    {
        const OpenDialog second;
        EXPECT_TRUE(second.waitForEnd());
        ASSERT_EQ(boxes_->seen().size(), 1U);
        EXPECT_EQ(boxes_->seen()[0].text.find(L"The last submission is still running."), 0U);
    }
    release_ = true;
    ASSERT_TRUE(WaitUntil([this] { return workersEnded(); }));
    const OpenDialog third;
    EXPECT_NE(third.window(), nullptr);
}

} // namespace
} // namespace test
} // namespace orv
