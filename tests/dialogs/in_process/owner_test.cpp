// The progress window and the message boxes of a submission over one dialog: whatever their order,
// the dialog stays disabled until the submission has ended, and then has the keyboard.
#include "config/plugin_data.h"
#include "config/submission_windows.h"
#include "resources/controls.h"
#include "submit/submit_job.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/import_patch.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"
#include "ui/workers.h"

#include <gtest/gtest.h>

#include <process.h>

#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kBox[] = L"Box";
constexpr int kEdit = 1036;
constexpr UINT kBegin = WM_APP + 1; // the dialog starts a submission

// More than the progress window needs to look at its flags.
constexpr std::chrono::milliseconds kSeveralTicks{150};

std::mutex submissionMutex; // guards the next
std::function<void(HWND)> submission;

void SubmitAs(std::function<void(HWND)> body) {
    const std::lock_guard<std::mutex> lock(submissionMutex);
    submission = std::move(body);
}

} // namespace
} // namespace test

// Takes the place of the real submission.
std::int32_t SubmitJob(SubmissionChoices, HWND dialog, std::wstring, std::wstring, std::wstring) {
    std::function<void(HWND)> body;
    {
        const std::lock_guard<std::mutex> lock(test::submissionMutex);
        body = test::submission;
    }
    body(dialog);
    return kSubmitEnded;
}

namespace test {
namespace {

// A modal dialog with an edit over a main window, on a new thread, as the plug-in's is.
class DialogOfAHost : private rud_Noncopyable {
public:
    DialogOfAHost() : thread_([this] { run(); }) {
        WaitUntil([this] { return window() != nullptr && ::IsWindowVisible(window()); });
    }
    ~DialogOfAHost() {
        ::PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
    }

    HWND window() const { return window_; }
    HWND edit() const { return ::GetDlgItem(window_, kEdit); }
    // How often the dialog was enabled.
    int timesEnabled() const { return timesEnabled_; }
    // The window that gets the keys of the dialog's thread.
    HWND focus() const {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(window_, nullptr), &info);
        return info.hwndFocus;
    }
    SubmissionStart begin() const {
        return static_cast<SubmissionStart>(::SendMessageW(window_, kBegin, 0, 0));
    }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* const dialog =
            reinterpret_cast<DialogOfAHost*>(::GetWindowLongPtrW(window, DWLP_USER));
        switch (message) {
        case WM_INITDIALOG:
            ::SetWindowLongPtrW(window, DWLP_USER, lParam);
            ::SetFocus(::CreateWindowW(
                L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 5, 5, 200, 20, window,
                reinterpret_cast<HMENU>(static_cast<INT_PTR>(kEdit)), nullptr, nullptr));
            reinterpret_cast<DialogOfAHost*>(lParam)->window_ = window;
            return FALSE;
        case WM_ENABLE:
            if (wParam != FALSE && !DisableHeldDialogAgain(window, true) && dialog != nullptr)
                ++dialog->timesEnabled_;
            return FALSE;
        case kBegin:
            ::SetWindowLongPtrW(window, DWLP_MSGRESULT,
                                static_cast<LONG_PTR>(StartSubmission(window)));
            return TRUE;
        case WM_CLOSE:
            ::EndDialog(window, 0);
            return TRUE;
        default:
            return FALSE;
        }
    }

    void run() {
        struct {
            DLGTEMPLATE dialog{
                WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 0, 0, 60, 60, 300, 120};
            WORD menuClassTitle[3] = {0, 0, 0};
        } shape;
        const HWND host = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                            40, 30, 1200, 740, nullptr, nullptr, nullptr, nullptr);
        ::DialogBoxIndirectParamW(nullptr, &shape.dialog, host, &procedure,
                                  reinterpret_cast<LPARAM>(this));
        ::DestroyWindow(host);
    }

    std::atomic<HWND> window_{nullptr};
    std::atomic<int> timesEnabled_{0};
    std::thread thread_;
};

void PressReturn() {
    ::keybd_event(VK_RETURN, 0, 0, 0);
    ::keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
}

HWND Progress() {
    return FindDialogWith(IDC_PROGRESS_BAR);
}

bool WaitForProgress() {
    return WaitUntil([] { return Progress() != nullptr; });
}

// What the tests below hold back, by functions that start the progress worker or that it calls.
std::atomic<bool> progressMayBegin{true}; // its thread
std::atomic<bool> progressMayOpen{true};  // its window, which has the screen already
std::atomic<bool> progressOpens{false};   // it is held back there, or has gone on

using ThreadBody = unsigned(__stdcall*)(void*);

struct HeldThread {
    ThreadBody body;
    void* argument;
};

unsigned __stdcall RunWhenAllowed(void* parameter) {
    const std::unique_ptr<HeldThread> held(static_cast<HeldThread*>(parameter));
    WaitUntil([] { return progressMayBegin.load(); });
    return held->body(held->argument);
}

// This program's own import leads to the functions here.
std::uintptr_t RealStart(void* security, unsigned stack, ThreadBody body, void* argument,
                         unsigned flags, unsigned* id) {
    static const auto real = reinterpret_cast<decltype(&::_beginthreadex)>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"msvcrt"), "_beginthreadex")));
    return real(security, stack, body, argument, flags, id);
}

// The dialog's thread starts the submit worker first, then the progress worker.
std::atomic<DWORD> dialogThread{0};
std::atomic<int> workersStarted{0};

std::uintptr_t __cdecl StartThread(void* security, unsigned stack, ThreadBody body, void* argument,
                                   unsigned flags, unsigned* id) {
    if (::GetCurrentThreadId() != dialogThread || ++workersStarted % 2 != 0)
        return RealStart(security, stack, body, argument, flags, id);
    return RealStart(security, stack, &RunWhenAllowed, new HeldThread{body, argument}, flags, id);
}

INT_PTR WINAPI OpenWhenAllowed(HINSTANCE module, LPCWSTR shape, HWND owner, DLGPROC procedure,
                               LPARAM parameter) {
    progressOpens = true;
    WaitUntil([] { return progressMayOpen.load(); });
    const auto real = reinterpret_cast<decltype(&::DialogBoxParamW)>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"user32"), "DialogBoxParamW")));
    return real(module, shape, owner, procedure, parameter);
}

int ShowBox(HWND dialog) {
    return ShowSubmissionMessage(dialog, L"words", kBox, MB_OK, L"0");
}

class OverTheDialog : public ::testing::Test {
protected:
    OverTheDialog() {
        progressMayBegin = true;
        progressMayOpen = true;
        progressOpens = false;
        dialogThread = ::GetWindowThreadProcessId(dialog_.window(), nullptr);
        workersStarted = 0;
    }
    ~OverTheDialog() override {
        progressMayBegin = true;
        progressMayOpen = true;
        WaitUntil([this] {
            const HWND box = FindDialogWith(0xFFFF);
            if (box != nullptr)
                ::PostMessageW(box, WM_COMMAND, IDOK, 0);
            return hasEnded();
        });
    }

    bool hasEnded() const {
        return !IsWorkerRunning(data_.submitState) && !IsWorkerRunning(data_.progressState);
    }
    void begin() {
        ASSERT_NE(dialog_.window(), nullptr);
        ASSERT_TRUE(WaitUntil([this] { return dialog_.focus() == dialog_.edit(); }));
        ASSERT_EQ(dialog_.begin(), SubmissionStart::Started);
    }
    // A box comes, stands alone over the disabled dialog for as long as it is there, and has the
    // keyboard: Return answers it.
    void answerTheOnlyBox() {
        HWND box = nullptr;
        ASSERT_TRUE(WaitUntil([&box] {
            box = WaitForDialog(kBox, ::GetCurrentProcessId(), std::chrono::milliseconds(0));
            return box != nullptr && ::GetForegroundWindow() == box;
        }));
        EXPECT_EQ(::GetWindow(box, GW_OWNER), dialog_.window());
        std::string fault;
        WaitUntil(
            [&] {
                if (::IsWindowEnabled(dialog_.window()))
                    fault = "the dialog is enabled under the box";
                else if (Progress() != nullptr)
                    fault = "the progress window stands beside the box";
                else if (::GetForegroundWindow() != box)
                    fault = "the box has lost the keyboard";
                return !fault.empty();
            },
            kSeveralTicks);
        EXPECT_EQ(fault, "");
        PressReturn();
        EXPECT_TRUE(WaitUntil([box] { return !::IsWindow(box); }));
    }
    // The submission has ended: the dialog was enabled once, at this end, or at most so often, and
    // has the keyboard.
    void expectDialogIsBack(int mostTimesEnabled = 1) {
        ASSERT_TRUE(WaitUntil([this] { return ::IsWindowEnabled(dialog_.window()) != FALSE; }));
        // A moment after its last window.
        ASSERT_TRUE(WaitUntil([this] { return hasEnded(); }));
        EXPECT_EQ(Progress(), nullptr);
        EXPECT_TRUE(WaitUntil([this] {
            return ::GetForegroundWindow() == dialog_.window() && dialog_.focus() == dialog_.edit();
        }));
        EXPECT_FALSE(
            WaitUntil([this] { return !::IsWindowEnabled(dialog_.window()); }, kSeveralTicks));
        EXPECT_GE(dialog_.timesEnabled(), 1);
        EXPECT_LE(dialog_.timesEnabled(), mostTimesEnabled);
    }

    PluginData& data_ = PluginData::instance();
    const ImportPatch begins_{::GetModuleHandleW(nullptr), "_beginthreadex",
                              reinterpret_cast<ULONGLONG>(&StartThread)};
    const ImportPatch opens_{::GetModuleHandleW(nullptr), "DialogBoxParamW",
                             reinterpret_cast<ULONGLONG>(&OpenWhenAllowed)};
    FakeDoor host_;
    const DialogOfAHost dialog_;
};

TEST_F(OverTheDialog, ABoxComesWhileTheProgressWindowIsThere) {
    SubmitAs([](HWND dialog) {
        WaitForProgress();
        ShowBox(dialog);
    });
    begin();
    answerTheOnlyBox();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ABoxComesAsTheProgressWindowEnds) {
    SubmitAs([](HWND dialog) {
        WaitForProgress();
        EndProgress();
        ShowBox(dialog);
    });
    begin();
    answerTheOnlyBox();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ABoxComesAfterTheProgressWindowEnded) {
    SubmitAs([this](HWND dialog) {
        WaitForProgress();
        EndProgress();
        WaitUntil([this] { return !IsWorkerRunning(data_.progressState); });
        ShowBox(dialog);
    });
    begin();
    answerTheOnlyBox();
    expectDialogIsBack(2); // perhaps also between the two windows
}

TEST_F(OverTheDialog, ABoxComesAfterTheProgressWindowWasClosed) {
    SubmitAs([this](HWND dialog) {
        WaitForProgress();
        ::PostMessageW(Progress(), WM_CLOSE, 0, 0);
        WaitUntil([this] { return !IsWorkerRunning(data_.progressState); });
        ShowBox(dialog);
    });
    begin();
    answerTheOnlyBox();
    expectDialogIsBack(2); // perhaps also between the two windows
}

TEST_F(OverTheDialog, TheProgressWindowEndsUnderABox) {
    SubmitAs([](HWND dialog) {
        WaitForProgress();
        ShowBox(dialog);
    });
    begin();
    ASSERT_NE(WaitForDialog(kBox), nullptr);
    EndProgress();
    EXPECT_TRUE(WaitUntil([this] { return !IsWorkerRunning(data_.progressState); }));
    answerTheOnlyBox();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ABoxComesBeforeTheProgressWorkerBegins) {
    progressMayBegin = false;
    std::atomic<bool> goesOn{false};
    SubmitAs([&goesOn](HWND dialog) {
        ShowBox(dialog);
        WaitUntil([&goesOn] { return goesOn.load(); });
    });
    begin();
    ASSERT_NE(WaitForDialog(kBox), nullptr);
    progressMayBegin = true;
    answerTheOnlyBox();
    EXPECT_TRUE(WaitForProgress()) << "it comes once the box is answered";
    EXPECT_FALSE(::IsWindowEnabled(dialog_.window()));
    goesOn = true;
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ABoxComesWhileTheProgressWindowOpens) {
    progressMayOpen = false;
    std::atomic<bool> boxIsDue{false};
    SubmitAs([&boxIsDue](HWND dialog) {
        WaitUntil([] { return progressOpens.load(); });
        boxIsDue = true;
        ShowBox(dialog);
    });
    begin();
    ASSERT_TRUE(WaitUntil([&boxIsDue] { return boxIsDue.load(); }));
    // The box would be there by now if it did not wait.
    EXPECT_EQ(WaitForDialog(kBox, ::GetCurrentProcessId(), kSeveralTicks), nullptr);
    progressMayOpen = true;
    answerTheOnlyBox();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ASubmissionGoesOnAfterItsQuestion) {
    std::atomic<bool> goesOn{false};
    SubmitAs([&goesOn](HWND dialog) {
        WaitForProgress();
        ShowBox(dialog);
        WaitUntil([&goesOn] { return goesOn.load(); });
        ShowBox(dialog);
    });
    begin();
    answerTheOnlyBox();
    EXPECT_TRUE(WaitForProgress()) << "it comes back";
    EXPECT_FALSE(
        WaitUntil([this] { return ::IsWindowEnabled(dialog_.window()) != FALSE; }, kSeveralTicks))
        << "nobody uses the dialog meanwhile";
    goesOn = true;
    answerTheOnlyBox();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, BoxesComeAtOnceOneAfterTheOther) {
    for (int time = 1; time <= 5; ++time) {
        SubmitAs([](HWND dialog) {
            ShowBox(dialog);
            EndProgress();
            ShowBox(dialog);
        });
        begin();
        answerTheOnlyBox();
        answerTheOnlyBox();
        // The dialog's thread learns of it a moment after the others can see it.
        ASSERT_TRUE(WaitUntil([&] { return dialog_.timesEnabled() == time && hasEnded(); }));
    }
}

TEST_F(OverTheDialog, NoBoxComesAtAll) {
    SubmitAs([](HWND) { WaitForProgress(); });
    begin();
    expectDialogIsBack();
}

TEST_F(OverTheDialog, ASubmissionEndsBeforeItsProgressWindowOpens) {
    SubmitAs([](HWND) {});
    begin();
    expectDialogIsBack();
}

} // namespace
} // namespace test
} // namespace orv
