#pragma once

#include <string>

namespace orv {

// Writes a line to the dialogs' own log, "rud_ui". `level` is kInfo, kWarn or kError. The dialog
// and the submission both write it: safe from any thread.
void WriteDialogLog(const std::string& level, const std::string& message);

} // namespace orv
