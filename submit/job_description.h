// The job description file and the request that hands it to the client.
#pragma once

#include "base/windows.h"
#include "config/client_info.h"
#include "config/submission_choices.h"

#include <string>

namespace orv {

// Writes <jsonDir>/<baseName>.json, the analysis report with the user's choices worked in, and puts
// its full path into `paths.jsonDir`. `requestBody` receives the request (UTF-8 JSON). The folder's
// last level is made when missing. On a report that is not JSON or a file that cannot be opened a
// message box is shown over `dialog`, false is returned, and `paths` and `requestBody` stay as they
// were. Parses the report only where `analysis.report` is not of its text. The format is described
// in docs/job-description.md.
bool WriteJobDescription(SceneAnalysis& analysis, const SubmissionChoices& choices, HWND dialog,
                         JobPaths& paths, const std::wstring& baseName, std::string& requestBody);

// The same for the current state of `dialog`. Fails in the same way when the dialog is gone.
bool WriteJobDescription(SceneAnalysis& analysis, HWND dialog, JobPaths& paths,
                         const std::wstring& baseName, std::string& requestBody);

} // namespace orv
