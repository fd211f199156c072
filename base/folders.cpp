#include "base/folders.h"

#include "base/product.h"
#include "base/windows.h"

#include <shlobj.h>

#include <array>

namespace orv {
namespace {

constexpr wchar_t kSettingsSuffix[] = L"/script/rud_plugin.ini";
constexpr wchar_t kGeneralSection[] = L"general";
constexpr std::size_t kSettingBufferSize = 2048;

} // namespace

std::wstring CommonAppDataFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    const HRESULT result =
        ::SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path.data());
    return SUCCEEDED(result) ? std::wstring(path.data()) : std::wstring();
}

std::wstring ProductFolder() {
    return CommonAppDataFolder() + kProductFolderSuffix;
}

std::wstring SettingsFile() {
    return ProductFolder() + kSettingsSuffix;
}

std::wstring ReadGeneralSetting(const wchar_t* key) {
    // A new buffer for each value: a missing key reads as empty, never as the value read before it.
    std::array<wchar_t, kSettingBufferSize> value{};
    ::GetPrivateProfileStringW(kGeneralSection, key, L"", value.data(),
                               static_cast<DWORD>(value.size()), SettingsFile().c_str());
    return std::wstring(value.data());
}

bool WriteGeneralSetting(const wchar_t* key, const std::wstring& value) {
    return ::WritePrivateProfileStringW(kGeneralSection, key, value.c_str(),
                                        SettingsFile().c_str()) != FALSE;
}

bool PathExists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace orv
