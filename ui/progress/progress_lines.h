// The words of the progress dialog: plain rules.
#pragma once

#include "config/plugin_data.h"

#include <cstdint>
#include <string>

namespace orv {

// The number of the text that says what a submission is at.
unsigned StageText(SubmissionStage stage);

// A length of time as people read it: "0:07", "12:30", "1:02:03".
std::wstring ElapsedText(std::uint64_t milliseconds);

// The line that says for how long a submission has run.
std::wstring TimeLine(std::uint64_t milliseconds);

// A file's size in megabytes, with one digit behind the "." ("0.0", "12.3").
std::wstring MegabyteText(std::uint64_t bytes);

// The size of the file at `path` in bytes, 0 for one that is not there.
std::uint64_t FileSize(const std::wstring& path);

} // namespace orv
