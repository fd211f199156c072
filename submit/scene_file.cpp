#include "submit/scene_file.h"

#include "analysis/text/names.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/handles.h"
#include "base/windows.h"
#include "host/host.h"
#include "log/log.h"

#include <cstdlib>
#include <ctime>
#include <utility>

namespace orv {
namespace {

// The folder of a scene, empty for a scene without a folder.
std::wstring SceneFolder(const std::wstring& path) {
    return path.substr(0, SceneFileNameStart(path));
}

bool SaveTo(const std::wstring& path) {
    if (path.size() > kLongestPath) {
        WriteLog(LogModule::Data, kError, "Save scene: the path is too long: " + WideToUtf8(path));
        return false;
    }
    const bool saved = host::SaveSceneTo(path);
    WriteLog(LogModule::Data, saved ? kInfo : kError,
             "Save scene to " + WideToUtf8(path) + (saved ? " successfully." : " failed."));
    return saved;
}

} // namespace

std::string SaveSceneAs(SceneAnalysis& analysis, HWND sceneNameEdit, const std::string& fileName) {
    const std::wstring currentPath = host::SceneFilePath();
    if (analysis.saveCount <= 0)
        analysis.sceneFilePath = WideToUtf8(currentPath);

    std::string wanted = fileName;
    if (wanted.empty()) {
        ::SetWindowTextW(sceneNameEdit, SceneNameOf(host::SceneFileName()).c_str());
        wanted = analysis.recordedSceneName;
    }
    if (wanted == analysis.recordedSceneName)
        return WideToUtf8(currentPath);

    const std::wstring folder = SceneFolder(currentPath);
    if (folder.empty()) {
        WriteLog(LogModule::Data, kError, "Save scene: the scene has no file yet.");
        return {};
    }
    const std::wstring name = Utf8ToWide(wanted);
    if (!IsPlainFileName(name)) {
        // Windows takes "a:b.max" for a stream behind file "a" and "con.max" for a device: the
        // scene would be written to where nobody finds it.
        WriteLog(LogModule::Data, kError, "Save scene: no file can have this name: " + wanted);
        return {};
    }
    const std::wstring path = folder + name;
    if (!SaveTo(path))
        return {};
    // Recorded only now: after a refused save the next attempt has to save again.
    analysis.recordedSceneName = wanted;
    ++analysis.saveCount;
    return WideToUtf8(path);
}

std::wstring SceneToReplace(const SceneAnalysis& analysis, const std::string& fileName) {
    if (fileName.empty() || fileName == analysis.recordedSceneName)
        return {};
    const std::wstring currentPath = host::SceneFilePath();
    const std::wstring folder = SceneFolder(currentPath);
    const std::wstring name = Utf8ToWide(fileName);
    if (folder.empty() || !IsPlainFileName(name) || IsSamePath(folder + name, currentPath) ||
        !IsFile(folder + name))
        return {};
    return folder + name;
}

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
    return WithoutExtension(scenePath) + L"_" + digits + ExtensionPart(scenePath);
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
    // A warning in both cases: until it is deleted there is a second copy of the artist's scene.
    WriteLog(LogModule::Data, kWarn,
             "Backup file from " + analysis.sceneFilePath + " to " + WideToUtf8(copyPath) +
                 outcome);
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
        LogSystemError(LogModule::Data, kWarn, "DeleteFileW", error, removed);
}

} // namespace orv
