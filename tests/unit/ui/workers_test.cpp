// The workers with a submission that the test commands.
#include "ui/workers.h"

#include "base/folders.h"
#include "config/dialog_choices.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "submit/submit_job.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wait_until.h"
#include "ui/progress/progress_dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

struct SubmissionCall {
    HWND dialog = nullptr;
    SubmissionChoices choices;
    std::wstring caption;
    std::wstring unused;
    std::wstring languageMarker;
    std::wstring threadCaptionOfChecks; // looked up on the worker's own thread
};

std::mutex callMutex; // guards the two below
SubmissionCall lastCall;
std::function<void()> submission;
std::atomic<int> submissionsBegun{0};

SubmissionCall LastCall() {
    const std::lock_guard<std::mutex> lock(callMutex);
    return lastCall;
}

} // namespace
} // namespace test

// Takes the place of the real submission.
std::int32_t SubmitJob(SubmissionChoices choices, HWND dialog, std::wstring caption,
                       std::wstring unused, std::wstring languageMarker) {
    std::function<void()> body;
    {
        const std::lock_guard<std::mutex> lock(test::callMutex);
        test::lastCall = {dialog, std::move(choices), caption,
                          unused, languageMarker,     ResourceText(IDS_CAPTION_CHECK)};
        body = test::submission;
    }
    ++test::submissionsBegun;
    body();
    return 0;
}

namespace test {
namespace {

TEST(StartWorkerOnce, FollowsTheStatesOfAWorker) {
    struct Case {
        std::int32_t state;
        bool starts;
    };
    for (const Case& row : {Case{-1, true}, Case{0, false}, Case{1, false}, Case{10, false},
                            Case{11, true}, Case{12, true}}) {
        std::atomic<std::int32_t> state{row.state};
        int starts = 0;
        EXPECT_EQ(StartWorkerOnce(state, [&] { ++starts; }), row.starts) << row.state;
        EXPECT_EQ(starts, row.starts ? 1 : 0) << row.state;
        EXPECT_EQ(state, row.starts ? kWorkerRunning : row.state) << row.state;
    }
}

TEST(StartWorkerOnce, KeepsTheStateOfAWorkerThatEndsAtOnce) {
    std::atomic<std::int32_t> state{kWorkerNone};
    StartWorkerOnce(state, [&] { state = kWorkerFinished; });
    EXPECT_EQ(state, kWorkerFinished);
}

TEST(StartWorkerOnce, LeavesNoWorkerWhenTheThreadCannotStart) {
    std::atomic<std::int32_t> state{kWorkerFinished};
    EXPECT_THROW(StartWorkerOnce(state, [] { throw std::runtime_error("no threads left"); }),
                 std::runtime_error);
    EXPECT_EQ(state, kWorkerNone);
}

// A window in the place of the main dialog, on this thread, which has to pump for it.
class Workers : public ::testing::Test {
protected:
    Workers()
        : owner_(::CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                   900, 600, nullptr, nullptr, nullptr, nullptr)) {
        submissionsBegun = 0;
        release_ = false;
        data_.analysis = SceneAnalysis();
        data_.submitState = kWorkerNone;
        data_.progressState = kWorkerNone;
        submitAs([this] { waitForRelease(); });
    }
    ~Workers() override {
        release_ = true;
        EXPECT_TRUE(PumpUntil([this] { return ended(); }));
        ::DestroyWindow(owner_);
    }

    void addControl(const wchar_t* windowClass, DWORD style, int id) const {
        ::CreateWindowExW(0, windowClass, L"", WS_CHILD | style, 0, 0, 60, 20, owner_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    static void submitAs(std::function<void()> body) {
        const std::lock_guard<std::mutex> lock(callMutex);
        submission = std::move(body);
    }
    void waitForRelease() {
        WaitUntil([this] { return release_.load(); });
    }
    bool ended() const {
        return !IsWorkerRunning(data_.submitState) && !IsWorkerRunning(data_.progressState);
    }
    static HWND progressDialog() {
        HWND found = nullptr;
        PumpUntil([&found] {
            found = ::FindWindowW(L"#32770", L"Orv Rendering");
            return found != nullptr && ::IsWindowVisible(found);
        });
        return found;
    }

    PluginData& data_ = PluginData::instance();
    const TestProductFolder folder_;
    FakeDoor host;
    const HWND owner_;
    std::atomic<bool> release_{false};
};

TEST_F(Workers, RunTheSubmissionOfTheDialogWithItsTexts) {
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::Started);
    ASSERT_TRUE(PumpUntil([] { return submissionsBegun == 1; }));
    EXPECT_TRUE(IsSubmissionRunning());

    const SubmissionCall call = LastCall();
    EXPECT_EQ(call.dialog, owner_);
    EXPECT_EQ(call.caption, ResourceText(49));
    EXPECT_EQ(call.unused, ResourceText(68));
    EXPECT_EQ(call.languageMarker, ResourceText(57));

    release_ = true;
    EXPECT_TRUE(PumpUntil([this] { return ended(); }));
    EXPECT_EQ(data_.submitState, kWorkerFinished);
    EXPECT_EQ(data_.progressState, kWorkerFinished);
}

// The host deals with other messages while it saves: one of them may close the dialog.
TEST_F(Workers, TakeWithThemWhatWasChosenBeforeTheHostSaved) {
    addControl(L"BUTTON", BS_AUTOCHECKBOX, IDC_SAVE_SCENE_FILE);
    addControl(L"BUTTON", BS_AUTOCHECKBOX, IDC_REMEMBER);
    addControl(L"EDIT", 0, IDC_SCENE_NAME);
    addControl(L"EDIT", 0, IDC_AO_RADIUS);
    ::CheckDlgButton(owner_, IDC_SAVE_SCENE_FILE, BST_CHECKED);
    ::CheckDlgButton(owner_, IDC_REMEMBER, BST_CHECKED);
    ::SetDlgItemTextW(owner_, IDC_SCENE_NAME, L"chosen");
    ::SetDlgItemTextW(owner_, IDC_AO_RADIUS, L"1234.5");
    data_.analysis.blockMode = 64;
    host.sceneFilePath = L"C:\\scenes\\room.max";
    host.onSave = [this] {
        host.sceneFilePath = L"C:\\scenes\\named by the save.max";
        ::SetDlgItemTextW(owner_, IDC_SCENE_NAME, L"changed");
        data_.analysis.blockMode = 1;
        ::DestroyWindow(owner_);
        return true;
    };
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::Started);
    ASSERT_TRUE(PumpUntil([] { return submissionsBegun == 1; }));
    EXPECT_EQ(host.saveCommands(), 1);
    const SubmissionChoices choices = LastCall().choices;
    EXPECT_EQ(choices.text(IDC_SCENE_NAME), L"chosen");
    EXPECT_TRUE(choices.isChecked(IDC_SAVE_SCENE_FILE));
    EXPECT_EQ(choices.analysis.blockMode, 64);
    EXPECT_EQ(choices.openScene, L"C:\\scenes\\named by the save.max");
    EXPECT_EQ(ReadGeneralSetting(L"REMBER_SETTING"), L"1");
    EXPECT_EQ(ReadGeneralSetting(L"EDIT_AO_RADIUS"), L"1234.5");
    release_ = true;
    EXPECT_TRUE(PumpUntil([this] { return ended(); }));
    EXPECT_EQ(::FindWindowW(L"#32770", L"Orv Rendering"), nullptr) << "no window without a dialog";
}

TEST_F(Workers, AreNotStartedWhenTheHostRefusesToSave) {
    addControl(L"BUTTON", BS_AUTOCHECKBOX, IDC_SAVE_SCENE_FILE);
    ::CheckDlgButton(owner_, IDC_SAVE_SCENE_FILE, BST_CHECKED);
    host.onSave = [] { return false; };
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::SceneNotSaved);
    EXPECT_FALSE(IsSubmissionRunning());
    EXPECT_EQ(submissionsBegun, 0);
}

TEST_F(Workers, AreNotStartedForADialogThatIsGone) {
    ::DestroyWindow(owner_);
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::Failed);
    EXPECT_FALSE(IsSubmissionRunning());
    EXPECT_NE(folder_.log(L"rud_data").find("[ERROR] The choices of the dialog could not be read."),
              std::string::npos);
}

TEST_F(Workers, TellTheDialogOfTheirEnd) {
    static std::atomic<int> ends;
    ends = 0;
    ::SetWindowLongPtrW(owner_, GWLP_WNDPROC,
                        reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                            [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                                if (message == kSubmissionEnded)
                                    ends += IsSubmissionRunning() ? 100 : 1;
                                return ::DefWindowProcW(window, message, wParam, lParam);
                            })));
    StartSubmission(owner_);
    ASSERT_TRUE(PumpUntil([] { return submissionsBegun == 1; }));
    EXPECT_EQ(ends, 0);
    release_ = true;
    EXPECT_TRUE(PumpUntil([] { return ends != 0; }));
    EXPECT_EQ(ends, 1) << "after its end, and once";
}

TEST_F(Workers, AreStartedOnceWhileASubmissionRuns) {
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::Started);
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::RunsAlready);
    ASSERT_TRUE(PumpUntil([] { return submissionsBegun > 0; }));
    EXPECT_EQ(StartSubmission(owner_), SubmissionStart::RunsAlready);
    EXPECT_EQ(submissionsBegun, 1);
}

TEST_F(Workers, AreStartedAgainAfterTheSubmissionEnded) {
    release_ = true;
    for (int number = 1; number <= 3; ++number) {
        EXPECT_EQ(StartSubmission(owner_), SubmissionStart::Started);
        ASSERT_TRUE(PumpUntil([this] { return ended(); }));
        EXPECT_EQ(submissionsBegun, number);
    }
}

TEST_F(Workers, ShowAProgressDialogOverTheDialogUntilTheEnd) {
    StartSubmission(owner_);
    const HWND progress = progressDialog();
    ASSERT_NE(progress, nullptr);
    EXPECT_EQ(::GetWindow(progress, GW_OWNER), owner_);
    EXPECT_TRUE(PumpUntil([this] { return !::IsWindowEnabled(owner_); }));
    EXPECT_FALSE(ReadWindowText(::GetDlgItem(progress, IDC_PROGRESS_TEXT)).empty());

    release_ = true;
    EXPECT_TRUE(PumpUntil([&] { return !::IsWindow(progress) && ::IsWindowEnabled(owner_); }));
}

TEST_F(Workers, ShowAProgressDialogThatItsTitleBarCannotClose) {
    StartSubmission(owner_);
    const HWND progress = progressDialog();
    ASSERT_NE(progress, nullptr);
    EXPECT_EQ(::GetMenuState(::GetSystemMenu(progress, FALSE), SC_CLOSE, MF_BYCOMMAND),
              static_cast<UINT>(-1));
    ::SendMessageW(progress, WM_COMMAND, IDCANCEL, 0); // the Escape key
    ::SendMessageW(progress, WM_NULL, 0, 0);
    EXPECT_TRUE(::IsWindow(progress));
    EXPECT_EQ(data_.progressState, kWorkerRunning);
}

TEST_F(Workers, HideTheProgressDialogWhileTheFlagIsSet) {
    StartSubmission(owner_);
    const HWND progress = progressDialog();
    ASSERT_NE(progress, nullptr);
    data_.hide = true;
    EXPECT_TRUE(PumpUntil([&] { return !::IsWindowVisible(progress); }));
    data_.hide = false;
    EXPECT_TRUE(PumpUntil([&] { return ::IsWindowVisible(progress) != FALSE; }));
}

TEST_F(Workers, EndTheProgressDialogByTheDoneFlag) {
    StartSubmission(owner_);
    ASSERT_NE(progressDialog(), nullptr);
    data_.done = true;
    EXPECT_TRUE(PumpUntil([this] { return data_.progressState == kWorkerFinished; }));
    EXPECT_EQ(data_.submitState, kWorkerRunning);
}

TEST_F(Workers, EndTheProgressDialogByItsCloseMessage) {
    StartSubmission(owner_);
    const HWND progress = progressDialog();
    ASSERT_NE(progress, nullptr);
    ::PostMessageW(progress, WM_CLOSE, 0, 0);
    EXPECT_TRUE(PumpUntil([this] { return data_.progressState == kWorkerFinished; }));
    EXPECT_EQ(data_.submitState, kWorkerRunning);
}

// The submission may be over before the progress dialog is on screen.
TEST_F(Workers, LeaveNoProgressDialogBehindASubmissionThatFailsAtOnce) {
    submitAs([] {});
    for (int round = 0; round < 10; ++round) {
        ASSERT_EQ(StartSubmission(owner_), SubmissionStart::Started);
        ASSERT_TRUE(PumpUntil([this] { return ended(); })) << round;
        EXPECT_EQ(::FindWindowW(L"#32770", L"Orv Rendering"), nullptr);
    }
}

TEST_F(Workers, LogAndTellWhatTheSubmissionThrows) {
    submitAs([] { throw std::runtime_error("the disk is gone"); });
    MessageBoxWatcher watcher(ResourceText(IDS_CAPTION));
    StartSubmission(owner_);
    ASSERT_TRUE(PumpUntil([this] { return ended(); }));
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_SUBMISSION_BROKEN_OFF));
    EXPECT_EQ(data_.submitState, kWorkerFinished);
    EXPECT_NE(folder_.log(L"rud_data")
                  .find("[ERROR] The submit worker ended by an unexpected error: the disk is gone"),
              std::string::npos);
}

TEST_F(Workers, SpeakTheLanguageOfTheDialogsThread) {
    for (const LANGID language : {kEnglishLanguage, kChineseLanguage}) {
        const LanguageScope scope(language);
        submissionsBegun = 0;
        release_ = false;
        StartSubmission(owner_);
        EXPECT_TRUE(PumpUntil([] { return submissionsBegun == 1; }));
        EXPECT_EQ(LastCall().threadCaptionOfChecks, ResourceText(IDS_CAPTION_CHECK));
        const std::wstring text = ReadWindowText(::GetDlgItem(progressDialog(), IDC_PROGRESS_TEXT));
        EXPECT_EQ(text, ResourceText(IDS_STAGE_CHECKING));
        EXPECT_EQ(text.find(L"Checking") == 0, language == kEnglishLanguage);
        release_ = true;
        EXPECT_TRUE(PumpUntil([this] { return ended(); }));
    }
}

TEST_F(Workers, SayWhatTheSubmissionIsAt) {
    const TemporaryFolder scenes(L"\u573A\u666F");
    StartSubmission(owner_);
    HWND progress = progressDialog();
    ASSERT_NE(progress, nullptr);
    const auto shows = [progress](int control, const std::wstring& text) {
        return PumpUntil([&] { return ReadWindowText(::GetDlgItem(progress, control)) == text; });
    };
    EXPECT_EQ(ReadWindowText(::GetDlgItem(progress, IDC_PROGRESS_SIZE)), L"");
    for (const SubmissionStage stage :
         {SubmissionStage::Saving, SubmissionStage::Cleaning, SubmissionStage::Packing,
          SubmissionStage::Describing, SubmissionStage::Sending}) {
        data_.stage = stage;
        EXPECT_TRUE(shows(IDC_PROGRESS_TEXT, ResourceText(StageText(stage))));
    }

    WriteFileBytes(scenes.file(L"a.max"), std::string(3 << 20, 's'));
    data_.setPackedFiles(std::make_shared<const PackedFiles>(
        PackedFiles{scenes.file(L"a.max"), scenes.file(L"a.7z")}));
    EXPECT_TRUE(shows(IDC_PROGRESS_SIZE, L"Archive: 0.0 MB, scene: 3.0 MB"));
    WriteFileBytes(scenes.file(L"a.7z.tmp"), std::string(1 << 20, 'a')); // still being written
    EXPECT_TRUE(shows(IDC_PROGRESS_SIZE, L"Archive: 1.0 MB, scene: 3.0 MB"));
    WriteFileBytes(scenes.file(L"a.7z"), std::string(2 << 20, 'a'));
    EXPECT_TRUE(shows(IDC_PROGRESS_SIZE, L"Archive: 2.0 MB, scene: 3.0 MB"));
    EXPECT_TRUE(shows(IDC_PROGRESS_TIME, L"Time: 0:01"));
}

TEST_F(Workers, OutliveTheDialog) {
    StartSubmission(owner_);
    ASSERT_NE(progressDialog(), nullptr);
    ::DestroyWindow(owner_);
    EXPECT_TRUE(IsSubmissionRunning());
    release_ = true;
    EXPECT_TRUE(PumpUntil([this] { return ended(); }));
    EXPECT_EQ(::FindWindowW(L"#32770", L"Orv Rendering"), nullptr);
}

} // namespace
} // namespace test
} // namespace orv
