#include "analysis/work_folder.h"

#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/windows.h"
#include "log/log.h"

namespace orv {

bool EnsureFolder(const std::wstring& folder) {
    if (IsFolder(folder) || ::CreateDirectoryW(folder.c_str(), nullptr))
        return true;
    const DWORD error = ::GetLastError();
    LogSystemError(LogModule::Data, kError, "CreateDirectoryW", error, folder);
    return false;
}

} // namespace orv
