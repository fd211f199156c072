// Where the host keeps its scripts and settings.
#pragma once

#include <string>

namespace standin {

// The folder that `getDir` names, below the one that stands for the installation and the user's
// own; its name in lower case, as "userstartupscripts". Empty for one that the stand-in lacks. The
// folder need not exist.
std::wstring HostFolder(const std::wstring& hostFolder, const std::wstring& name);

// The folder of the running program, and the system's for temporary files, both without a separator
// at the end.
std::wstring ProgramFolder();
std::wstring TempFolder();

} // namespace standin
