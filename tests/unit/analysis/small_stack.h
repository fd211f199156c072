#pragma once

#include <functional>

namespace orv {
namespace test {

// Runs `work` on a new thread with a stack of one megabyte and waits for it. An exception
// that leaves `work` ends the test program.
void RunOnSmallStack(const std::function<void()>& work);

} // namespace test
} // namespace orv
