// The rule by which a background worker is started once.
#pragma once

#include "config/plugin_data.h"

#include <atomic>
#include <cstdint>

namespace orv {

// Whether a worker of this state runs.
inline bool IsWorkerRunning(const std::atomic<std::int32_t>& state) {
    const std::int32_t now = state;
    return now >= kWorkerRunning && now < kWorkerFinished;
}

// Marks the worker of `state` as running and calls `start`, which starts its thread. Does nothing
// and returns false when it runs already. Whatever `start` throws passes through, with `state` as
// if there had never been a worker, so that the next attempt is free. For the dialog's thread.
template<class Start>
bool StartWorkerOnce(std::atomic<std::int32_t>& state, Start start) {
    if (IsWorkerRunning(state))
        return false;
    state = kWorkerRunning; // before the thread: it may end before this function goes on
    try {
        start();
    } catch (...) {
        state = kWorkerNone;
        throw;
    }
    return true;
}

} // namespace orv
