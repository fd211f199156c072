// The host's functions over the open scene: nodes, renderer, output, assets, references, callbacks,
// persistent globals, custom attributes.
#pragma once

#include "standin/host/maxscript/interpreter.h"
#include "standin/host/maxscript/scene_state.h"

namespace standin {
namespace maxscript {

// What the library asks of the host besides the scene's content.
struct HostFacts {
    std::function<std::wstring()> scenePath; // empty for a scene without a file
    std::function<bool()> modified;
    std::function<void(bool)> setModified;
    std::function<bool()> quietMode;
    std::function<void(bool)> setQuietMode;
    std::function<std::wstring(const std::wstring&)>
        folderOf; // by name: "maxroot", "userStartupScripts"
};

// All of them. `state` and `facts` have to outlive the interpreter's last run.
void AddSceneLibrary(Interpreter& interpreter, SceneState& state, const HostFacts& facts);

void AddNodeFunctions(Globals& globals, SceneState& state);
void AddRenderVariables(Globals& globals, SceneState& state);
void AddAssetFunctions(Globals& globals, SceneState& state, const HostFacts& facts);
void AddRegistryFunctions(Interpreter& interpreter, SceneState& state);
void AddFileFunctions(Interpreter& interpreter, SceneState& state);

} // namespace maxscript
} // namespace standin
