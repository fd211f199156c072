#include "standin/host/host_folders.h"

#include "standin/host/text.h"

#include "base/windows.h"

namespace standin {

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return FolderOf(path);
}

std::wstring TempFolder() {
    wchar_t path[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, path);
    return FolderOf(path);
}

std::wstring HostFolder(const std::wstring& hostFolder, const std::wstring& name) {
    struct Folder {
        const wchar_t* name;
        const wchar_t* below;
    };
    static const Folder kFolders[] = {{L"maxroot", L""},
                                      {L"scripts", L"\\scripts"},
                                      {L"startupscripts", L"\\scripts\\startup"},
                                      {L"userscripts", L"\\user\\scripts"},
                                      {L"userstartupscripts", L"\\user\\scripts\\startup"},
                                      {L"plugcfg", L"\\user\\plugcfg"}};
    if (name == L"temp") {
        return TempFolder();
    }
    for (const Folder& each : kFolders) {
        if (name == each.name) {
            return hostFolder + each.below;
        }
    }
    return L"";
}

} // namespace standin
