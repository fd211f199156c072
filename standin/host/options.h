// What the host is started with.
#pragma once

#include <string>
#include <vector>

namespace standin {

enum class Language { English, Chinese };

struct HostOptions {
    std::wstring pluginFolder; // every *.gup in it is loaded; empty: no plug-ins
    std::wstring scenePath;    // empty: a new scene
    std::wstring menuFile;     // read at start, written at the end; empty: the menus are not kept
    std::wstring hostFolder; // stands for the installation and the user's own; empty: the program's
    std::wstring logFile;    // gets a copy of the events; empty: none
    Language language = Language::English;
    bool loadMenusLate = false; // read the menu file after the plug-ins were started, not before
    bool exitAfterStart = false;
    bool quiet = false; // the host runs unattended
    bool showHelp = false;
};

// Reads the arguments behind the program's name. False, with what is wrong, for arguments that the
// program does not know.
bool ReadArguments(const std::vector<std::wstring>& arguments, HostOptions& options,
                   std::wstring& error);

// The text of --help.
std::string HelpText();

} // namespace standin
