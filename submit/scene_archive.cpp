#include "submit/scene_archive.h"

#include "analysis/text/text_convert.h"
#include "analysis/work_folder.h"
#include "config/plugin_data.h"
#include "submit/archive_password.h"
#include "submit/archiver_process.h"
#include "submit/dialog_input/scene_name_text.h"
#include "submit/paths.h"
#include "submit/random_text.h"

#include <algorithm>

namespace orv {
namespace {

constexpr char kArchiveExtension[] = ".7z";
constexpr wchar_t kUnfinishedSuffix[] = L".tmp";

bool Fail(const std::string& reason) {
    PluginData::instance().writeLog(kError, "Pack scene: " + reason);
    return false;
}

// In double quotes, as one argument of the archiver. A file's path has no quotes of its own and
// none here ends in a backslash, so nothing needs escaping.
std::string Quoted(const std::string& path) {
    return "\"" + path + "\"";
}

std::wstring Joined(const std::wstring& folder, const std::wstring& name) {
    const bool hasSeparator = folder.back() == L'/' || folder.back() == L'\\';
    return hasSeparator ? folder + name : folder + L"/" + name;
}

// A path that came from outside, as one line of the log.
std::string Printable(std::wstring text) {
    std::replace_if(
        text.begin(), text.end(), [](wchar_t character) { return character < L' '; }, L'?');
    return WideToUtf8(text);
}

// The client may name any text. A folder that depends on the host's current one, or that reads like
// a switch of the archiver, is none for the scene.
bool CanTakeArchive(const std::wstring& saveFolder, const std::wstring& fileName) {
    if (IsFullPath(saveFolder) && Joined(saveFolder, fileName).size() <= kLongestPath &&
        EnsureFolder(saveFolder))
        return true;
    PluginData::instance().writeLog(kWarn, "Pack scene: the client's folder cannot be used: " +
                                               Printable(saveFolder));
    return false;
}

std::wstring ArchivePath(const JobPaths& paths, const SessionData& session,
                         const std::wstring& fileName) {
    EnsureFolder(paths.compressDir);
    const bool hasSaveFolder = session.present && !session.savePath.empty();
    return hasSaveFolder && CanTakeArchive(session.savePath, fileName)
               ? Joined(session.savePath, fileName)
               : Joined(paths.compressDir, fileName);
}

bool IsThere(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void DeleteUnfinished(const std::wstring& path) {
    if (!IsThere(path))
        return;
    if (::DeleteFileW(path.c_str())) {
        PluginData::instance().writeLog(kInfo, "Unfinished archive deleted: " + WideToUtf8(path));
        return;
    }
    const DWORD error = ::GetLastError();
    Fail("delete of " + WideToUtf8(path) + " error, code is " + std::to_string(error));
}

} // namespace

bool PackScene(const std::string& scenePath, JobPaths& paths, const SessionData& session) {
    const std::wstring baseName = StemPart(Utf8ToWide(scenePath));
    if (baseName.empty() || !IsUsableSceneName(baseName))
        return Fail("no archive can be named after " + scenePath);
    if (!IsFullPath(Utf8ToWide(scenePath)) || !IsFullPath(paths.compressDir))
        return Fail("this is no full path: " + scenePath);
    const std::string baseNameBytes = WideToUtf8(baseName);
    const std::string fileName = baseNameBytes + "_" + RandomText() + kArchiveExtension;
    const std::wstring archivePath = ArchivePath(paths, session, Utf8ToWide(fileName));
    if (archivePath.size() > kLongestPath)
        return Fail("the archive's path is too long: " + WideToUtf8(archivePath));
    const std::string password = ArchivePassword(baseNameBytes);
    if (password.empty())
        return Fail("no password could be made.");

    paths.archivePath = WideToUtf8(archivePath);
    paths.archiverArguments = " a -mx=3 -mmt=2 -t7z -p" + password + " " +
                              Quoted(paths.archivePath) + " " + Quoted(scenePath);
    return true;
}

void RunArchiver(const JobPaths& paths) {
    const std::wstring archivePath = Utf8ToWide(paths.archivePath);
    const bool isNew = !IsThere(archivePath);
    // The path has a blank: without the quotes Windows would start a C:\ProgramData/Orv.exe, if
    // somebody put one there, before the archiver.
    const std::wstring program = L"\"" + paths.sevenZipPath + L"\"";
    ArchiverProcess archiver;
    DWORD error = ERROR_SUCCESS;
    if (!archiver.start(program + Utf8ToWide(paths.archiverArguments), error)) {
        Fail("start of the archiver " + WideToUtf8(paths.sevenZipPath) + " error, code is " +
             std::to_string(error));
        return;
    }
    DWORD exitCode = 0;
    if (archiver.wait(PluginData::instance().endSubmission.event(), exitCode)) {
        if (exitCode == 0) {
            PluginData::instance().writeLog(kInfo, "Scene packed into " + paths.archivePath);
            return;
        }
        Fail("the archiver ended with code " + std::to_string(exitCode));
    }
    // A new archive is written in its place, one that was there before beside itself.
    if (isNew)
        DeleteUnfinished(archivePath);
    DeleteUnfinished(archivePath + kUnfinishedSuffix);
}

} // namespace orv
