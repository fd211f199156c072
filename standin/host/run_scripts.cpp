// A program that runs MAXScript files without a host, for authors of the product's scripts.
#include "standin/host/host_folders.h"
#include "standin/host/maxscript_runner.h"
#include "standin/host/text.h"

#include "base/windows.h"

#include <cstdio>
#include <vector>

namespace {

constexpr char kHelp[] =
    "standin-script.exe [--scene FILE] [--host-dir FOLDER] [--save] SCRIPT...\n"
    "Runs MAXScript files, or texts that start with an opening bracket, one after the other over\n"
    "one scene. --save writes the scene's description afterwards. The exit code is 0, or 1 when a\n"
    "script failed.\n";

void Tell(const std::wstring& text) {
    std::fputs(standin::ToUtf8(text).c_str(), stdout);
}

std::wstring AsScript(const std::wstring& argument) {
    return argument[0] == L'(' ? argument : L"fileIn @\"" + argument + L"\"";
}

int Run(const std::vector<std::wstring>& arguments) {
    standin::Scene scene;
    std::wstring hostFolder = standin::ProgramFolder();
    bool save = false;
    std::vector<std::wstring> scripts;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::wstring& each = arguments[i];
        const bool hasNext = i + 1 < arguments.size();
        std::string error;
        if (each == L"--scene" && hasNext) {
            if (!scene.open(arguments[++i], error)) {
                std::fprintf(stderr, "%s\n", error.c_str());
                return 1;
            }
        } else if (each == L"--host-dir" && hasNext) {
            hostFolder = arguments[++i];
        } else if (each == L"--save") {
            save = true;
        } else if (!each.empty() && each[0] != L'-') {
            scripts.push_back(AsScript(each));
        } else {
            std::fputs(kHelp, stderr);
            return 2;
        }
    }
    standin::MaxscriptRunner runner(
        scene,
        [hostFolder](const std::wstring& name) { return standin::HostFolder(hostFolder, name); },
        Tell);
    for (const std::wstring& script : scripts) {
        const standin::ScriptOutcome outcome = runner.run(script);
        if (!outcome.ok) {
            std::fprintf(stderr, "-- %s\n", standin::ToUtf8(outcome.error).c_str());
            return 1;
        }
    }
    return save && !scene.save() ? 1 : 0;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    return Run(std::vector<std::wstring>(arguments, arguments + count));
}
