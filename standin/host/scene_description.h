// What the host itself reads of a scene's description, which README.md explains; the rest is for
// the scripts (maxscript/scene_state.h).
#pragma once

#include <json/json.h>

#include <map>
#include <string>
#include <vector>

namespace standin {

struct SceneCamera {
    std::wstring name;
};

struct ScriptBehaviour {
    enum class Kind { Works, Fails, WritesNothing, WritesBytes };
    Kind kind = Kind::Works;
    int waitMilliseconds = 0; // the script keeps the host busy for so long first
    std::wstring message;     // of a script that fails
    std::string bytes;        // written in place of the report
};

struct SceneDescription {
    std::vector<std::wstring> objects;
    std::vector<SceneCamera> cameras;

    bool refuseSave = false;
    int saveMilliseconds = 0;  // saving keeps the host busy for so long
    std::wstring reportedPath; // the path that plug-ins get as the scene's; empty: the real one
    bool modified = false;
    std::map<std::wstring, ScriptBehaviour> scripts; // by file name, in lower case
};

// Reads a description. Members that are absent or of another type keep their defaults, so that no
// description can stop the host. False, with a reason, only when the text is no JSON object.
bool ReadSceneDescription(const std::string& json, SceneDescription& description,
                          std::string& error);

// What the script of that file name does; a script that the description does not name works.
ScriptBehaviour BehaviourOf(const SceneDescription& description, const std::wstring& scriptFile);

} // namespace standin
