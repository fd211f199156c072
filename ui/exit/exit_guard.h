// Holds the exit of the host, and Windows' own shutdown, up while a submission runs.
#pragma once

#include "base/windows.h"

namespace orv {

// How long the exit waits in an unattended host, which shows no window, before it ends the
// submission.
constexpr DWORD kUnattendedMilliseconds = 60000;

// How long a submission may take to end once it was requested. Then the exit goes on without it.
constexpr DWORD kEndingMilliseconds = 30000;

// Begins to watch: the host's exit, by its notification, and Windows' shutdown, by a hidden window.
// On the host's thread, once the submit worker has been started. Lets no exception out.
void GuardExit() noexcept;

// Ends the watch soon, on the host's thread. To be called by the submit worker when its state says
// that it has finished.
void ReleaseExit() noexcept;

// Returns when no worker of a submission runs any more, or when one that was asked to end has not
// done so in time, which the log tells. An attended host shows ExitDialog meanwhile. Calls of the
// workers to the host are served. Ends the watch. On the host's thread.
void WaitBeforeExit();

} // namespace orv
