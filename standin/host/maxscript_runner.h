// The script runner of the host: a MAXScript interpreter over the open scene.
#pragma once

#include "standin/host/maxscript/scene_library.h"
#include "standin/host/scene.h"
#include "standin/host/script_runner.h"

namespace standin {

// Globals last as long as the runner, the scene's content as long as the scene is open. A script
// for which the scene's description commands something (failing, waiting, writing other bytes) does
// that in place of its text.
class MaxscriptRunner : public ScriptRunner {
public:
    // Where the host's folders are, by their name in lower case ("userstartupscripts"); an empty
    // text for one that it does not know.
    using FolderOf = std::function<std::wstring(const std::wstring&)>;

    MaxscriptRunner(Scene& scene, FolderOf folderOf, maxscript::Interpreter::Listener listener);

    ScriptOutcome run(const std::wstring& text) override;

    // What GetQuietMode returns until a script changes it: whether the host runs unattended.
    void setQuietMode(bool quiet) { quietMode_ = quiet; }

    maxscript::Interpreter& interpreter() { return interpreter_; }

private:
    void takeScene();
    void returnScene();
    maxscript::Value fileIn(const std::wstring& path);
    maxscript::Value commandedParser(const ScriptBehaviour& behaviour);

    Scene& scene_;
    maxscript::HostFacts facts_;
    maxscript::SceneState state_;
    maxscript::Interpreter interpreter_;
    int generation_ = 0;
    bool quietMode_ = false;
};

} // namespace standin
