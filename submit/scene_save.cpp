#include "submit/scene_save.h"

#include "analysis/text/text_convert.h"
#include "config/plugin_data.h"
#include "host/host.h"
#include "submit/dialog_input/scene_name_text.h"
#include "submit/paths.h"

namespace orv {
namespace {

void Log(const std::string& level, const std::string& message) {
    PluginData::instance().writeLog(level, message);
}

// A slash anywhere wins over every backslash.
std::wstring FolderOf(const std::wstring& path) {
    std::size_t separator = path.rfind(L'/');
    if (separator == std::wstring::npos)
        separator = path.rfind(L'\\');
    return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator + 1);
}

// Windows does not tell capitals from small letters in a path.
bool IsSamePath(const std::wstring& left, const std::wstring& right) {
    return ::CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool SaveTo(const std::wstring& path) {
    if (path.size() > kLongestPath) {
        Log(kError, "Save scene: the path is too long: " + WideToUtf8(path));
        return false;
    }
    const bool saved = host::SaveSceneTo(path);
    Log(saved ? kInfo : kError,
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

    const std::wstring folder = FolderOf(currentPath);
    if (folder.empty()) {
        Log(kError, "Save scene: the scene has no file yet.");
        return {};
    }
    const std::wstring name = Utf8ToWide(wanted);
    if (!IsPlainFileName(name)) {
        // Windows takes "a:b.max" for a stream behind file "a" and "con.max" for a device: the
        // scene would be written to where nobody finds it.
        Log(kError, "Save scene: the name is no file's: " + wanted);
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
    const std::wstring folder = FolderOf(currentPath);
    const std::wstring name = Utf8ToWide(fileName);
    if (folder.empty() || !IsPlainFileName(name) || IsSamePath(folder + name, currentPath) ||
        !IsFile(folder + name))
        return {};
    return folder + name;
}

} // namespace orv
