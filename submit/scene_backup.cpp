#include "submit/scene_backup.h"

#include "analysis/text/text_convert.h"
#include "base/windows.h"
#include "config/plugin_data.h"
#include "submit/paths.h"

#include <cstdlib>
#include <ctime>

namespace orv {
namespace {

constexpr std::size_t kLeastDigits = 6;

int DrawNumber() {
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    return std::rand();
}

DWORD Copy(const std::wstring& from, const std::wstring& to) {
    if (to.size() > kLongestPath)
        return ERROR_FILENAME_EXCED_RANGE;
    return ::CopyFileW(from.c_str(), to.c_str(), FALSE) ? ERROR_SUCCESS : ::GetLastError();
}

} // namespace

std::wstring BackupPathOf(const std::wstring& scenePath, int number) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < kLeastDigits)
        digits.insert(0, kLeastDigits - digits.size(), L'0');
    return FolderPart(scenePath) + StemPart(scenePath) + L"_" + digits + ExtensionPart(scenePath);
}

bool BackupSceneFile(const SceneAnalysis& analysis, std::wstring& backupPath) {
    const std::wstring scenePath = Utf8ToWide(analysis.sceneFilePath);
    const std::wstring copyPath = BackupPathOf(scenePath, DrawNumber());
    const DWORD error = Copy(scenePath, copyPath);
    const std::string outcome =
        error == ERROR_SUCCESS ? " Success!" : " Error! Code is " + std::to_string(error);
    // A warning in both cases: a copy of the artist's scene lies about until it is deleted.
    PluginData::instance().writeLog(kWarn, "Backup file from " + analysis.sceneFilePath + " to " +
                                               WideToUtf8(copyPath) + outcome);
    if (error != ERROR_SUCCESS)
        return false;
    backupPath = copyPath;
    return true;
}

} // namespace orv
