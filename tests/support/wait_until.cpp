#include "tests/support/wait_until.h"

#include "base/windows.h"

namespace orv {
namespace test {
namespace {

constexpr DWORD kPollMilliseconds = 5;

bool Wait(const std::function<bool()>& condition, std::chrono::milliseconds deadline,
          const std::function<void()>& pause) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return condition();
        pause();
    }
    return true;
}

void PumpMessages() {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_ALLINPUT);
}

} // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline) {
    return Wait(condition, deadline, [] { ::Sleep(kPollMilliseconds); });
}

bool PumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline) {
    return Wait(condition, deadline, PumpMessages);
}

} // namespace test
} // namespace orv
