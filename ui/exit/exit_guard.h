// Holds up the exit of the host and Windows' shutdown while a submission runs.
#pragma once

#include "base/windows.h"

namespace orv {

// How long the exit waits in an unattended host, which shows no window, before it ends the
// submission.
constexpr DWORD kUnattendedMilliseconds = 60000;

// How long a submission may take to end after the request. Then the exit goes on without it.
constexpr DWORD kEndingMilliseconds = 30000;

// Begins to watch for the host's exit, by its notification, and for Windows' shutdown, by a hidden
// window. For the host's thread, after the submit worker has started. Never throws.
void GuardExit() noexcept;

// Ends the watch soon, on the host's thread. The submit worker calls it when its state is
// kWorkerFinished.
void ReleaseExit() noexcept;

// Returns when no worker of a submission runs, or when a submission has not ended in time after the
// request, which the log records. Shows ExitDialog meanwhile, except in an unattended host, and
// serves the workers' calls to the host. Ends the watch. For the host's thread.
void WaitBeforeExit();

} // namespace orv
