// The folders that everything else of the product is placed in.
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

} // namespace orv
