#include "submit/scene_backup.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "base/windows.h"
#include "config/plugin_data.h"
#include "submit/paths.h"

#include <cstdlib>
#include <ctime>
#include <utility>

namespace orv {
namespace {

constexpr std::size_t kLeastDigits = 6;

// So many numbers are tried, from the drawn one on, before the scene goes without a backup.
constexpr int kMostNumbers = 1000;

int DrawNumber() {
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    return std::rand();
}

// The copy of a write-protected scene is write-protected, too.
bool Delete(const std::wstring& path) noexcept {
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    return ::DeleteFileW(path.c_str()) != FALSE;
}

// Makes the empty file `path`; it fails when there is one already.
DWORD Reserve(const std::wstring& path) {
    const FileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? ERROR_SUCCESS : ::GetLastError();
}

// Only a file that this function has made is written over, and deleted when the copy fails.
DWORD Copy(const std::wstring& from, const std::wstring& to) {
    if (to.size() > kLongestPath)
        return ERROR_FILENAME_EXCED_RANGE;
    DWORD error = Reserve(to);
    if (error != ERROR_SUCCESS || ::CopyFileW(from.c_str(), to.c_str(), FALSE))
        return error;
    error = ::GetLastError();
    Delete(to); // half of it, on a full disk
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
    const int drawn = DrawNumber();
    std::wstring copyPath = BackupPathOf(scenePath, drawn);
    DWORD error = Copy(scenePath, copyPath);
    for (int next = 1; error == ERROR_FILE_EXISTS && next < kMostNumbers; ++next) {
        copyPath = BackupPathOf(scenePath, drawn + next);
        error = Copy(scenePath, copyPath);
    }
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
    if (!path.empty())
        Delete(path);
}

void SceneBackup::remove() {
    if (path.empty())
        return;
    const DWORD error = Delete(path) ? ERROR_SUCCESS : ::GetLastError();
    const std::wstring removed = std::move(path);
    path.clear();
    if (error != ERROR_SUCCESS)
        PluginData::instance().writeLog(kWarn, "Backup file " + WideToUtf8(removed) +
                                                   " cannot be deleted! Code is " +
                                                   std::to_string(error));
}

} // namespace orv
