// The two background workers of a submission.
#pragma once

#include "base/windows.h"
#include "config/plugin_data.h"

#include <atomic>
#include <cstdint>

namespace orv {

enum class SubmissionStart {
    Started,
    RunsAlready,   // nothing was started
    SceneNotSaved, // nothing was started: the host, or its user, refused to save the scene
    Failed,        // nothing was started; the log says why
};

// Takes the choices of `dialog` and starts two workers: the submit worker submits the choices, the
// progress worker shows the progress dialog over `dialog`. When the scene is to be saved first, the
// host saves it before the workers start. Closing `dialog` does not end the submission; an open one
// receives kSubmissionEnded at its end. For the dialog's thread, whose language the workers take
// over. Never throws.
SubmissionStart StartSubmission(HWND dialog) noexcept;

// Whether a submission runs.
bool IsSubmissionRunning();

// Whether neither worker runs and their threads have ended: they run no more code of this library.
// For the host's thread.
bool HaveWorkersEnded();

// Whether a message box of the submission waits for the user.
bool IsSubmissionAsking();

// The rule by which a worker is started once.

// Whether a worker of this state runs.
inline bool IsWorkerRunning(const std::atomic<std::int32_t>& state) {
    const std::int32_t now = state;
    return now >= kWorkerRunning && now < kWorkerFinished;
}

// Marks the worker of `state` as running and calls `start`, which starts its thread. Does nothing
// and returns false when it runs already. An exception of `start` passes through, and `state` is
// kWorkerNone again. For the dialog's thread.
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
