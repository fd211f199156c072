// Waiting for a condition with a deadline, so that no test sleeps and none waits for ever.
#pragma once

#include <chrono>
#include <functional>

namespace orv {
namespace test {

// Long enough for a machine that compiles meanwhile; a condition that comes true costs only the
// time it takes.
constexpr std::chrono::milliseconds kDeadline{30000};

// Asks `condition` every few milliseconds until it is true or the deadline has passed; returns its
// last answer.
bool WaitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds deadline = kDeadline);

// The same, while this thread's window messages are dispatched: for conditions that a window of
// this thread brings about.
bool PumpUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds deadline = kDeadline);

} // namespace test
} // namespace orv
