// The content of the open scene while scripts read and change it.
#pragma once

#include "standin/host/maxscript/globals.h"
#include "standin/host/maxscript/scene_object.h"

#include <string>
#include <vector>

namespace standin {
namespace maxscript {

struct SceneCallback {
    std::wstring type; // "filePostOpen"
    std::wstring id;
    std::wstring script;
    bool isPersistent = false;
};

struct SceneAsset {
    std::wstring path;
    std::wstring type = L"Bitmap";
    int state = 0; // of the file: 1 there, -1 missing, 0 as the disk says
};

struct SceneXRef {
    std::wstring path;
    std::vector<SceneXRef> nested;
};

// A definition of custom attributes.
struct SceneAttribute {
    std::wstring name;
    std::wstring source;
};

// Made of a scene's description (the members are explained in the stand-in host's README), and
// turned back into one, so that saving keeps what a script changed. Members of a wrong type are as
// if they were not there.
struct SceneState {
    // Reads a description; the scene's globals go into `globals`.
    void read(const Json::Value& json, Globals& globals);

    // Brings `description` up to the nodes, callbacks, globals and attributes as they are now, and
    // forgets the nodes that were deleted. Of cameras and objects in their short form only the
    // deletion counts.
    void settle(const Globals& globals);

    // The nodes of a superclass, deleted ones left out; of every one for an empty text.
    std::vector<std::shared_ptr<SceneNode>> nodesOf(const std::wstring& superClass) const;

    std::vector<std::shared_ptr<SceneNode>> nodes;
    std::vector<std::shared_ptr<SceneObject>> objects; // maps, materials
    std::shared_ptr<SceneObject> renderer;
    std::vector<SceneAsset> assets;
    std::vector<SceneXRef> xrefs;
    std::vector<SceneXRef> objectXrefs;
    std::vector<SceneCallback> callbacks;
    std::vector<std::wstring> persistents;
    std::vector<SceneAttribute> attributes;
    std::vector<std::wstring> globalNames; // that came with the scene
    Json::Value description;
    bool changed = false; // by a script, since it was read or settled

private:
    // `description` with what scripts changed. The nodes stand in the order of its three lists.
    Json::Value write(const Globals& globals) const;
};

} // namespace maxscript
} // namespace standin
