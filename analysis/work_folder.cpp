#include "analysis/work_folder.h"

#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/windows.h"
#include "config/plugin_data.h"

namespace orv {

bool EnsureFolder(const std::wstring& folder) {
    if (IsFolder(folder) || ::CreateDirectoryW(folder.c_str(), nullptr))
        return true;
    const DWORD error = ::GetLastError();
    PluginData::instance().writeLog(kError, "Create folder " + WideToUtf8(folder) +
                                                " error, code is " + std::to_string(error));
    return false;
}

} // namespace orv
