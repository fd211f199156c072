#include "tests/unit/analysis/small_stack.h"

#include "base/handles.h"
#include "base/windows.h"

#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr SIZE_T kStackSize = 1024 * 1024;

DWORD WINAPI RunWork(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return 0;
}

} // namespace

void RunOnSmallStack(const std::function<void()>& work) {
    std::function<void()> copy = work;
    const ThreadHandle thread(::CreateThread(nullptr, kStackSize, RunWork, &copy,
                                             STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    if (!thread || ::WaitForSingleObject(thread.get(), INFINITE) != WAIT_OBJECT_0)
        throw std::runtime_error("the thread does not run");
}

} // namespace test
} // namespace orv
