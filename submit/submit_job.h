// From a confirmed dialog to a job at the client.
#pragma once

#include "base/windows.h"
#include "config/submission_choices.h"

#include <cstdint>
#include <string>

namespace orv {

constexpr std::int32_t kSubmitEnded = 0;   // handed over, or ended quietly
constexpr std::int32_t kSubmitFailed = -1; // a check or a step failed

// Checks what was chosen, saves and packs the scene, writes the job description and posts it to the
// client. Uses `choices` only. `dialog`, which may be gone, owns the message boxes, rebuilds its
// camera table on request, and is closed when the client has accepted the job and when the scene's
// name cannot be used. At its end the submission stores the collected options in PluginData's
// analysis.
// Runs on the submit worker, never on the dialog's own thread; Winsock must be started. `caption`
// is the caption of its message boxes, and `languageMarker` (text 57) decides their language.
// `PluginData::endSubmission` ends it at its next step, without a message and with kSubmitEnded;
// what it has made is deleted unless it was posted. Returns one of the codes above. Lets no
// exception out: an unexpected one ends the submission with a message.
std::int32_t SubmitJob(SubmissionChoices choices, HWND dialog, std::wstring caption,
                       std::wstring unused, std::wstring languageMarker);

// The same for the current state of `dialog`. When the dialog is gone, shows a message and sends
// nothing.
std::int32_t SubmitJob(HWND dialog, std::wstring caption, std::wstring unused,
                       std::wstring languageMarker);

} // namespace orv
