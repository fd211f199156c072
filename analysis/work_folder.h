#pragma once

#include <string>

namespace orv {

// Makes the folder when it is missing: its last level only. True when it is there afterwards; a
// failure is logged to "rud_data" with the system's code. Paths of 248 characters and more are
// beyond Windows here.
bool EnsureFolder(const std::wstring& folder);

} // namespace orv
