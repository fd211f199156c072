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

bool IsThere(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The copy of a write-protected scene is write-protected, too.
bool Delete(const std::wstring& path) {
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    return ::DeleteFileW(path.c_str()) != FALSE;
}

DWORD Copy(const std::wstring& from, const std::wstring& to) {
    if (to.size() > kLongestPath)
        return ERROR_FILENAME_EXCED_RANGE;
    const bool isNew = !IsThere(to);
    if (::CopyFileW(from.c_str(), to.c_str(), FALSE))
        return ERROR_SUCCESS;
    const DWORD error = ::GetLastError();
    if (isNew && IsThere(to)) // half of it, on a full disk
        Delete(to);
    return error;
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

SceneBackup::~SceneBackup() {
    if (path.empty() || Delete(path))
        return;
    const DWORD error = ::GetLastError();
    PluginData::instance().writeLog(kWarn, "Backup file " + WideToUtf8(path) +
                                               " cannot be deleted! Code is " +
                                               std::to_string(error));
}

} // namespace orv
