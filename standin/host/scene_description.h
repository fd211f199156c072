// What a scene holds, as its description beside the scene file says it. The format of the
// description is explained in README.md.
#pragma once

#include <json/json.h>

#include <map>
#include <string>
#include <vector>

namespace standin {

struct SceneCamera {
    std::wstring name;
    int width = 0; // 0 when the camera has no resolution of its own
    int height = 0;
};

struct ExternalFile {
    enum class State { Present, Missing, LookOnDisk };
    std::wstring path;
    State state = State::LookOnDisk;
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

    std::wstring renderer = L"Default_Scanline_Renderer";
    std::map<std::string, Json::Value> vray; // settings under the names that the report uses
    bool hasVray = false;
    std::map<std::string, Json::Value> corona;
    bool hasCorona = false;

    int imageWidth = 640;
    int imageHeight = 480;
    std::wstring imageFormat;
    double gamma = 2.2;
    bool region = false;
    int startFrame = 0;
    int endFrame = 100;

    std::vector<ExternalFile> externalFiles;
    std::vector<ExternalFile> xrefs;
    std::vector<std::wstring> errorCodes;
    std::wstring appVersion = L"2019";
    std::wstring version = L"21.0";

    bool refuseSave = false;
    std::wstring toldPath; // what plug-ins are told as the scene's path; empty: the real one
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
