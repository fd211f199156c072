#include "standin/host/options.h"

namespace standin {
namespace {

struct TextOption {
    const wchar_t* name;
    std::wstring HostOptions::*target;
};
constexpr TextOption kTextOptions[] = {{L"--plugin-dir", &HostOptions::pluginFolder},
                                       {L"--scene", &HostOptions::scenePath},
                                       {L"--menu-file", &HostOptions::menuFile},
                                       {L"--host-dir", &HostOptions::hostFolder},
                                       {L"--log", &HostOptions::logFile}};

struct Flag {
    const wchar_t* name;
    bool HostOptions::*target;
};
constexpr Flag kFlags[] = {{L"--late-menus", &HostOptions::loadMenusLate},
                           {L"--exit-after-start", &HostOptions::exitAfterStart},
                           {L"--quiet", &HostOptions::quiet},
                           {L"--help", &HostOptions::showHelp}};

std::wstring HostOptions::*TextTarget(const std::wstring& name) {
    for (const TextOption& option : kTextOptions) {
        if (name == option.name)
            return option.target;
    }
    return nullptr;
}

bool HostOptions::*FlagTarget(const std::wstring& name) {
    for (const Flag& flag : kFlags) {
        if (name == flag.name)
            return flag.target;
    }
    return nullptr;
}

bool ReadLanguage(const std::wstring& value, Language& language) {
    if (value != L"en" && value != L"zh")
        return false;
    language = value == L"zh" ? Language::Chinese : Language::English;
    return true;
}

} // namespace

bool ReadArguments(const std::vector<std::wstring>& arguments, HostOptions& options,
                   std::wstring& error) {
    HostOptions read;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& name = arguments[i];
        if (const auto flag = FlagTarget(name)) {
            read.*flag = true;
            continue;
        }
        const auto text = TextTarget(name);
        if (text == nullptr && name != L"--language") {
            error = L"unknown option " + name;
            return false;
        }
        if (++i == arguments.size()) {
            error = name + L" needs a value";
            return false;
        }
        if (text != nullptr) {
            read.*text = arguments[i];
        } else if (!ReadLanguage(arguments[i], read.language)) {
            error = L"--language is en or zh, not " + arguments[i];
            return false;
        }
    }
    options = read;
    return true;
}

std::string HelpText() {
    return "usage: standin-host.exe [OPTION]...\n"
           "A stand-in for the host application. It loads plug-ins, opens and saves scenes and "
           "runs\n"
           "scripts; it reports each action by one JSON line on standard output.\n"
           "\n"
           "  --plugin-dir FOLDER   load every *.gup of this folder\n"
           "  --scene FILE          open this scene; its description is FILE.json\n"
           "  --menu-file FILE      read the menus from this file and write them to it at the end\n"
           "  --host-dir FOLDER     where the host's start-up scripts are (beside the program)\n"
           "  --late-menus          read the menu file after the plug-ins were started\n"
           "  --language en|zh      language of the plug-ins' texts (en)\n"
           "  --log FILE            write the events to this file too\n"
           "  --exit-after-start    close as soon as the start-up is complete\n"
           "  --quiet               start in quiet mode, as a host without a user\n"
           "  --help                this text\n";
}

} // namespace standin
