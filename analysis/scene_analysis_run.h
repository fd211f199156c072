// Running the scene parser in the host.
#pragma once

#include "base/windows.h"

#include <string>

class FPValue;

namespace orv {

// Loads the parser `scriptPath` in the host, calls its entry, and reads the report that it wrote into
// `reportText`; the report and the parser's log are deleted afterwards. True when the host ran the
// script without an error; on an error a message box is shown over `ownerWindow`. A script that ran
// but wrote nothing leaves `reportText` empty. `result` is a host value of the caller's.
bool RunSceneAnalysis(HWND ownerWindow, FPValue& result, const std::wstring& scriptPath,
                      std::wstring& reportText);

} // namespace orv
