// The two background workers of a submission.
#pragma once

#include "base/windows.h"

namespace orv {

enum class SubmissionStart {
    Started,
    RunsAlready,   // nothing was started
    SceneNotSaved, // nothing was started: the host, or its user, refused to save the scene
    Failed,        // nothing was started; the log tells why
};

// Takes the choices of `dialog`, and starts the submit worker, which submits what was chosen, and
// the progress worker, which shows the progress dialog over `dialog`. When the choice is to save
// the scene first, the host is asked to before the workers start. From the taking on the submission
// goes its way, also when `dialog` is closed; kSubmissionEnded tells `dialog` of its end. To be
// called on the dialog's thread, whose language the workers take over; lets no exception out.
SubmissionStart StartSubmission(HWND dialog) noexcept;

// Whether a submission runs.
bool IsSubmissionRunning();

// Whether neither worker runs and their threads are gone: no code of this library runs on them any
// more. For the host's thread.
bool HaveWorkersEnded();

// Whether a message box of the submission waits for the user.
bool IsSubmissionAsking();

} // namespace orv
