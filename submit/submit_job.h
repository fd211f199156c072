// From a confirmed dialog to a job at the client.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>

namespace orv {

constexpr std::int32_t kSubmitEnded = 0;   // handed over, or ended quietly
constexpr std::int32_t kSubmitFailed = -1; // a check or a step failed

// Collects the options from `dialog`, saves and packs the scene, writes the job description and
// posts it to the client. Runs on the submit worker, never on the dialog's own thread; Winsock must
// be started. `caption` is the caption of its message boxes, and `languageMarker` (text 57) decides
// their language. Closes the dialog when the client took the job, and when its scene name
// cannot be used. `PluginData::endSubmission` ends it at its next step, without a message and
// with kSubmitEnded; what it has made is deleted unless it was posted. Returns one of the codes
// above. Lets no exception out.
std::int32_t SubmitJob(HWND dialog, std::wstring caption, std::wstring unused,
                       std::wstring languageMarker);

} // namespace orv
