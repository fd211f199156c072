// The host is closed while a submission runs: the user is asked, and both answers are kept.
#include "resources/controls.h"
#include "resources/texts.h"
#include "standin/sdk/include/standin/core.h"
#include "tests/support/wait_until.h"
#include "tests/system/exit/exit_flow.h"

#include <atomic>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kGuardClass[] = L"OrvSubmissionGuard";
constexpr char kSlowScript[] = "OrvAntivirusAdsl_UTF8.ms";
constexpr std::chrono::milliseconds kSoon{10000}; // far below the 30 seconds that ending may take

class HostExit : public ExitFlow {
protected:
    void expectDelivered() {
        EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
        EXPECT_EQ(result(), 0);
        EXPECT_TRUE(hostEnds());
        EXPECT_EQ(archives().size(), 1U);
        EXPECT_EQ(jobFiles().size(), 1U);
        expectNothingLostOrLeft();
    }
    void cleanSlowly(std::size_t bytes) {
        host_.scene["scripts"][kSlowScript]["wait_ms"] = 1500;
        host_.sceneBytes = NoisyBytes(bytes);
        ASSERT_NO_FATAL_FAILURE(startClient());
        ASSERT_NO_FATAL_FAILURE(open());
        ::CheckDlgButton(dialog_, IDC_BACK_UP_SCENE, BST_CHECKED);
        submit();
        ASSERT_TRUE(WaitUntil([this] { return logHas(L"rud_data", "[WARN] Backup file from "); }));
        closeHost();
    }
    void awaitReply(const std::wstring& client) {
        ASSERT_NO_FATAL_FAILURE(startClient(client));
        ASSERT_NO_FATAL_FAILURE(open());
        submit();
        ASSERT_TRUE(
            WaitUntil([this] { return logHas(L"rud_data", "[INFO] Write json file at: "); }));
        closeHost();
    }
};

TEST_F(HostExit, WhilePackingShowsWhatRunsAndForHowLong) {
    ASSERT_NO_FATAL_FAILURE(packScene(kLargeScene));
    closeHost();
    const HWND window = exitWindow();
    EXPECT_EQ(Text(window, IDC_EXIT_STAGE), text(IDS_STAGE_PACKING));
    const std::wstring time = Text(window, IDC_EXIT_TIME);
    EXPECT_EQ(time.find(L"Time: 0:"), 0U);
    EXPECT_TRUE(WaitUntil([&] { return Text(window, IDC_EXIT_TIME) != time; })) << "it goes on";
    EXPECT_TRUE(WaitUntil([] { return FindDialogWith(IDC_PROGRESS_BAR) == nullptr; }))
        << "one window says it";
    EXPECT_FALSE(hostHasEnded());
    Press(window, IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
}

TEST_F(HostExit, WhilePackingWaitsForAJobThatArrives) {
    ASSERT_NO_FATAL_FAILURE(packScene(kMiddlingScene));
    closeHost();
    const HWND window = exitWindow();
    Press(window, IDC_EXIT_WAIT);
    EXPECT_EQ(Text(window, IDC_EXIT_HEADING), text(IDS_EXIT_WAITS));
    EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(window, IDC_EXIT_WAIT)));
    EXPECT_TRUE(::IsWindowEnabled(::GetDlgItem(window, IDC_EXIT_END)));
    GUITHREADINFO focus = {};
    focus.cbSize = sizeof(focus);
    ASSERT_TRUE(::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &focus));
    EXPECT_NE(focus.hwndFocus, ::GetDlgItem(window, IDC_EXIT_END)) << "a second Enter ends it";
    expectDelivered();
}

TEST_F(HostExit, WaitsWithoutAnAnswerToo) {
    ASSERT_NO_FATAL_FAILURE(packScene(kMiddlingScene));
    closeHost();
    exitWindow();
    expectDelivered();
}

TEST_F(HostExit, GivesTheScreenToAMessageOfTheSubmission) {
    ASSERT_NO_FATAL_FAILURE(packScene(kMiddlingScene));
    closeHost();
    const HWND window = exitWindow();
    EXPECT_TRUE(WaitUntil([] { return FindDialogWith(0xFFFF) != nullptr; }, kPackingDeadline));
    EXPECT_TRUE(WaitUntil([window] { return !::IsWindowVisible(window); }));
    EXPECT_FALSE(hostHasEnded()) << "the message is not answered";
    expectDelivered();
}

TEST_F(HostExit, WhilePackingEndsWithoutIt) {
    ASSERT_NO_FATAL_FAILURE(packScene(kLargeScene));
    closeHost();
    Press(exitWindow(), IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    expectEndedWithoutTheJob();
    expectNothingLostOrLeft();
}

TEST_F(HostExit, OfAUserWhoWaitedAndChangesTheirMind) {
    ASSERT_NO_FATAL_FAILURE(packScene(kLargeScene));
    closeHost();
    const HWND window = exitWindow();
    Press(window, IDC_EXIT_WAIT);
    Press(window, IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    expectEndedWithoutTheJob();
}

TEST_F(HostExit, AskedForAgainAndAgainIsOneExit) {
    ASSERT_NO_FATAL_FAILURE(packScene(kLargeScene));
    closeHost();
    const HWND window = exitWindow();
    for (int i = 0; i < 3; ++i)
        ::SendMessageW(host_.window(), WM_CLOSE, 0, 0);
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(exitWindow(), window) << "neither Escape nor the system menu closes it";
    EXPECT_FALSE(hostHasEnded());
    Press(window, IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    EXPECT_EQ(host_.events("stopped").size(), 1U);
    expectEndedWithoutTheJob();
}

TEST_F(HostExit, WhileCleaningServesTheScriptsThatAreLeft) {
    ASSERT_NO_FATAL_FAILURE(cleanSlowly(kMiddlingScene));
    exitWindow();
    expectDelivered();
    EXPECT_TRUE(logHas(L"rud_data", "[WARN] Check CRP virus for scene"));
}

TEST_F(HostExit, WhileCleaningEndsWithoutIt) {
    ASSERT_NO_FATAL_FAILURE(cleanSlowly(kLargeScene));
    Press(exitWindow(), IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    expectEndedWithoutTheJob();
    EXPECT_FALSE(logHas(L"rud_data", "Scene packed into "));
}

TEST_F(HostExit, WhileTheClientThinksWaitsForItsReply) {
    ASSERT_NO_FATAL_FAILURE(awaitReply(L"--delay 3000"));
    EXPECT_EQ(Text(exitWindow(), IDC_EXIT_STAGE), text(IDS_STAGE_SENDING));
    expectDelivered();
}

TEST_F(HostExit, WhileTheClientNeverAnswersEndsWithoutIt) {
    ASSERT_NO_FATAL_FAILURE(awaitReply(L"--delay 600000"));
    Press(exitWindow(), IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(logHas(L"rud_http", "[WARN] The exchange was ended by request."));
    EXPECT_TRUE(
        logHas(L"rud_data", "[WARN] Submission: ended by request. The client may have the job."));
    EXPECT_EQ(archives().size(), 1U) << "the client may look for it";
    expectNothingLostOrLeft();
}

// While the host saves, its main thread is not free: it learns of the exit afterwards, and serves
// what is left of the submission from within the exit.
class ExitWhileSaving : public HostExit {
protected:
    using NotifyProc = void (*)(void*, void*);
    using Register = int (*)(NotifyProc, void*, int);

    void closeWhileSaving() {
        host_.sceneBytes = NoisyBytes(kMiddlingScene);
        ASSERT_NO_FATAL_FAILURE(startClient());
        ASSERT_NO_FATAL_FAILURE(open(L"hall"));
        ::CheckDlgButton(dialog_, IDC_SAVE_SCENE_FILE, BST_UNCHECKED);
        constexpr int kFilePreSave = 0x0D;
        const auto address = reinterpret_cast<void (*)()>(
            ::GetProcAddress(::GetModuleHandleW(L"core.dll"),
                             "?RegisterNotification@@YAHP6AXPEAXPEAUNotifyInfo@@@Z0H@Z"));
        ASSERT_NE(address, nullptr);
        reinterpret_cast<Register>(address)(&close, this, kFilePreSave);
        submit();
        EXPECT_TRUE(WaitUntil([this] { return isClosed_.load(); }));
    }

private:
    static void close(void* self, void*) {
        auto& test = *static_cast<ExitWhileSaving*>(self);
        ::PostMessageW(test.dialog_, WM_COMMAND, IDCANCEL, 0);
        ::PostMessageW(test.host_.window(), WM_CLOSE, 0, 0);
        test.isClosed_ = true;
    }
    std::atomic<bool> isClosed_{false};
};

TEST_F(ExitWhileSaving, Waits) {
    ASSERT_NO_FATAL_FAILURE(closeWhileSaving());
    exitWindow();
    EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(hostEnds());
    EXPECT_EQ(ListFolder(host_.sceneFolder + L"\\hall_plugin_output\\compress").size(), 1U);
    expectNothingLostOrLeft({L"hall.max", L"hall.max.json", L"hall_plugin_output"});
}

TEST_F(ExitWhileSaving, EndsWithoutIt) {
    ASSERT_NO_FATAL_FAILURE(closeWhileSaving());
    Press(exitWindow(), IDC_EXIT_END);
    EXPECT_TRUE(hostEnds(kSoon));
    expectEndedWithoutTheJob();
    EXPECT_TRUE(ListFolder(host_.sceneFolder + L"\\hall_plugin_output\\compress").empty());
    EXPECT_TRUE(ReadFileBytes(host_.sceneFolder + L"\\hall.max") == host_.sceneBytes);
}

// What the watch takes from the host is there while a submission runs and at no other time.
TEST_F(HostExit, IsWatchedWhileASubmissionRuns) {
    host_.sceneBytes = NoisyBytes(kMiddlingScene);
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_EQ(standin_notification_count(), 1) << "the start-up's alone";
    EXPECT_EQ(::FindWindowW(kGuardClass, nullptr), nullptr);
    submit();
    EXPECT_EQ(standin_notification_count(), 2);
    EXPECT_NE(::FindWindowW(kGuardClass, nullptr), nullptr);
    EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
    EXPECT_TRUE(dialogCloses());
    EXPECT_TRUE(WaitUntil([] { return standin_notification_count() == 1; }));
    EXPECT_TRUE(WaitUntil([] { return ::FindWindowW(kGuardClass, nullptr) == nullptr; }));
}

TEST_F(HostExit, WithoutASubmissionAsksNobodyAnything) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    closeHost();
    EXPECT_TRUE(hostEnds(kSoon));
    for (const Json::Value& script : host_.events("script_run"))
        EXPECT_EQ(script["text"].asString().find("GetQuietMode"), std::string::npos);
    EXPECT_FALSE(logHas(L"rud_data", "The host's exit waits"));
}

} // namespace
} // namespace test
} // namespace orv
