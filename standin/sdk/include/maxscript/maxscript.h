// Scripts. The host's own header is large and defines common words as macros: include it in one
// source.
#pragma once

#include "ifnpub.h"
#include "maxscript/ScripterExport.h"

// Runs script text on the host's main thread; nonzero when it ran without an error. A text in `fpv`
// is valid until the next script runs.
ScripterExport BOOL ExecuteMAXScriptScript(const MCHAR* s, BOOL quietErrors = FALSE,
                                           FPValue* fpv = nullptr, BOOL logQuietErrors = TRUE);
