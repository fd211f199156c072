// The folders that everything else of the product is placed in, and what is on the disk.
#pragma once

#include <string>

namespace orv {

// The all-users application data folder as the shell names it (CSIDL 0x23), for example
// C:\ProgramData. Empty when the shell fails.
std::wstring CommonAppDataFolder();

// CommonAppDataFolder() + "/Orv Rendering": backslashes from the shell, then a slash, both kept.
std::wstring ProductFolder();

// The settings file, ProductFolder() + "/script/rud_plugin.ini".
std::wstring SettingsFile();

// One value of section "general" of the settings file. Empty when file or key is missing; at most
// 2047 characters are read.
std::wstring ReadGeneralSetting(const wchar_t* key);

// Writes one value of that section. False, with the system's last error, when Windows refuses.
bool WriteGeneralSetting(const wchar_t* key, const std::wstring& value);

// What is on the disk under `path`: a file or folder, a file, a folder. False as well when Windows
// does not say, such as in a folder that the user may not read.
bool PathExists(const std::wstring& path);
bool IsFile(const std::wstring& path);
bool IsFolder(const std::wstring& path);

} // namespace orv
