// From a confirmed dialog to a job at the client.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>

namespace orv {

// Collects the options from `dialog`, saves and packs the scene, writes the job description and posts
// it to the client. Runs on the submit worker, never on the dialog's own thread. `caption` is the
// caption of its message boxes, `languageMarker` the text of number 57. Returns 0 when the job was
// handed over or the submission ended quietly, -1 when a check or a step failed.
std::int32_t SubmitJob(HWND dialog, std::wstring caption, std::wstring unused,
                       std::wstring languageMarker);

} // namespace orv
