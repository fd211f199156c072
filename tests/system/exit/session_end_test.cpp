// Windows shuts down while a submission runs.
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/support/import_patch.h"
#include "tests/support/wait_until.h"
#include "tests/system/exit/exit_flow.h"

#include <mutex>

namespace orv {
namespace test {
namespace {

std::mutex reasonMutex; // guards shownReason
std::wstring shownReason;

BOOL WINAPI TakeReason(HWND, LPCWSTR reason) {
    const std::lock_guard<std::mutex> lock(reasonMutex);
    shownReason = reason;
    return TRUE;
}

class SessionEnd : public ExitFlow {
protected:
    // The messages that Windows sends to every top-level window of the process.
    static bool everybodyAgrees() {
        bool agrees = true;
        ::EnumWindows(
            [](HWND window, LPARAM result) -> BOOL {
                DWORD process = 0;
                ::GetWindowThreadProcessId(window, &process);
                if (process == ::GetCurrentProcessId() &&
                    ::SendMessageW(window, WM_QUERYENDSESSION, 0, 0) == FALSE)
                    *reinterpret_cast<bool*>(result) = false;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&agrees));
        return agrees;
    }
    static LRESULT tellGuard(UINT message, WPARAM wParam) {
        HWND guard = ::FindWindowW(L"OrvSubmissionGuard", nullptr);
        EXPECT_NE(guard, nullptr);
        return ::SendMessageW(guard, message, wParam, 0);
    }
};

TEST_F(SessionEnd, IsHeldUpWhileASubmissionRuns) {
    host_.sceneBytes = NoisyBytes(kMiddlingScene);
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_TRUE(everybodyAgrees()) << "nothing runs yet";
    submit();
    EXPECT_FALSE(everybodyAgrees());
    tellGuard(WM_ENDSESSION, FALSE); // another program has refused the shutdown
    EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_TRUE(WaitUntil([] { return everybodyAgrees(); }));
}

TEST_F(SessionEnd, IsHeldUpWithAReasonForTheUser) {
    host_.sceneBytes = NoisyBytes(kMiddlingScene);
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    {
        const ImportPatch patch(::GetModuleHandleW(L"OrvRendering.gup"),
                                "ShutdownBlockReasonCreate",
                                reinterpret_cast<ULONGLONG>(&TakeReason));
        submit();
    }
    {
        const std::lock_guard<std::mutex> lock(reasonMutex);
        EXPECT_EQ(shownReason, text(IDS_SHUTDOWN_REASON));
    }
    EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
}

TEST_F(SessionEnd, EndsTheSubmissionWithoutItsJob) {
    ASSERT_NO_FATAL_FAILURE(packScene(kMiddlingScene));
    const ULONGLONG begun = ::GetTickCount64();
    tellGuard(WM_ENDSESSION, TRUE);
    EXPECT_LT(::GetTickCount64() - begun, 5000U) << "Windows ends a process after that time";
    expectEndedWithoutTheJob();
    expectNothingLostOrLeft();
    EXPECT_EQ(FindDialogWith(IDC_EXIT_END), nullptr) << "nobody is there to answer";

    // Where the shutdown comes to nothing, the host lives on, and the next submission with it.
    EXPECT_TRUE(dialogStays());
    submit();
    EXPECT_EQ(message(), text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_EQ(archives().size(), 1U);
}

} // namespace
} // namespace test
} // namespace orv
