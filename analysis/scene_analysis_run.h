// Running the scene parser in the host.
#pragma once

#include "base/windows.h"

#include <string>

class FPValue;

namespace orv {

// Loads the parser `scriptPath` in the host, calls its entry, and reads the report that it wrote
// into `reportText`; the report and the parser's log are deleted afterwards. True when the host ran
// the script without an error; on an error a message box is shown over `ownerWindow` and
// `reportText` stays as it was. A script that ran but wrote nothing leaves `reportText` empty.
// `result` is a host value of the caller's. The report's path is left in PluginData's
// `analysis.reportPath`. Blocks while the script runs.
bool RunSceneAnalysis(HWND ownerWindow, FPValue& result, const std::wstring& scriptPath,
                      std::wstring& reportText);

// The two lines of MAXScript that load the parser and call it. Both paths are put in as they are: a
// double quote in one of them breaks the command, and Windows allows none in a path.
std::wstring AnalysisCommand(const std::wstring& scriptPath, const std::wstring& reportPath);

} // namespace orv
