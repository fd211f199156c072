#include "standin/host/maxscript/scene_state.h"

#include "standin/host/maxscript/language_library.h"
#include "standin/host/text.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

constexpr int kDeepestXRef = 20;

const Json::Value& Member(const Json::Value& json, const char* name) {
    static const Json::Value none;
    return json.isObject() && json.isMember(name) ? json[name] : none;
}

// The items of a list; an empty list for anything else.
const Json::Value& List(const Json::Value& json, const char* name) {
    static const Json::Value empty(Json::arrayValue);
    const Json::Value& list = Member(json, name);
    return list.isArray() ? list : empty;
}

std::wstring Text(const Json::Value& json, const char* name, const wchar_t* other = L"") {
    const Json::Value& value = Member(json, name);
    return value.isString() ? ToWide(value.asString()) : other;
}

// A camera of the short form: a name, or, as for V-Ray's camera, a name and a size.
Json::Value CameraNode(const Json::Value& camera) {
    Json::Value node(Json::objectValue);
    node["superclass"] = "Camera";
    const int width = Member(camera, "width").isInt() ? camera["width"].asInt() : 0;
    const int height = Member(camera, "height").isInt() ? camera["height"].asInt() : 0;
    node["name"] = camera.isString() ? camera : Member(camera, "name");
    node["class"] = "Freecamera";
    node["properties"]["fov"] = 45.0;
    if (width != 0 || height != 0) {
        node["class"] = "VRayPhysicalCamera";
        node["properties"]["override_resolution"] = true;
        node["properties"]["override_width"] = width;
        node["properties"]["override_height"] = height;
    }
    return node;
}

Json::Value ObjectNode(const Json::Value& name) {
    Json::Value node(Json::objectValue);
    node["name"] = name;
    return node;
}

std::vector<SceneXRef> XRefs(const Json::Value& list, int depth) {
    std::vector<SceneXRef> all;
    if (depth > kDeepestXRef) {
        return all;
    }
    for (const Json::Value& each : list) {
        SceneXRef xref;
        xref.path = each.isString() ? ToWide(each.asString()) : Text(each, "path");
        xref.nested = XRefs(List(each, "xrefs"), depth + 1);
        all.push_back(xref);
    }
    return all;
}

SceneAsset Asset(const Json::Value& json) {
    SceneAsset asset;
    asset.path = json.isString() ? ToWide(json.asString()) : Text(json, "path");
    asset.type = Text(json, "type", L"Bitmap");
    const Json::Value& missing = Member(json, "missing");
    if (missing.isBool()) {
        asset.state = missing.asBool() ? -1 : 1;
    }
    return asset;
}

// A function that came with the scene is there to be found and replaced; called, it does nothing.
class SceneFunction : public Object {
public:
    std::wstring className() const override { return L"MAXScriptFunction"; }
    Value call(Interpreter&, const Arguments&) override { return Value(); }
};

Value SceneGlobal(const Json::Value& json) {
    return Member(json, "function").isBool() ? Value(std::make_shared<SceneFunction>())
                                             : FromJson(json);
}

} // namespace

void SceneState::read(const Json::Value& json, Globals& globals) {
    for (const std::wstring& name : globalNames) {
        globals.remove(name);
    }
    *this = SceneState();
    description = json;
    int handle = 0;
    for (const Json::Value& each : List(json, "cameras")) {
        nodes.push_back(std::make_shared<SceneNode>(CameraNode(each), ++handle));
    }
    for (const Json::Value& each : List(json, "objects")) {
        nodes.push_back(std::make_shared<SceneNode>(ObjectNode(each), ++handle));
    }
    for (const Json::Value& each : List(json, "nodes")) {
        nodes.push_back(std::make_shared<SceneNode>(each, ++handle));
    }
    for (const Json::Value& each : List(json, "maps")) {
        objects.push_back(std::make_shared<SceneObject>(Text(each, "class", L"Bitmaptexture"),
                                                        Text(each, "superclass", L"TextureMap"),
                                                        Member(each, "properties")));
    }
    const Json::Value& chosen = Member(json, "renderer");
    renderer = std::make_shared<SceneObject>(Text(chosen, "name", L"Default_Scanline_Renderer"),
                                             L"RendererClass", Member(chosen, "properties"));
    for (const Json::Value& each : List(json, "external_files")) {
        assets.push_back(Asset(each));
    }
    xrefs = XRefs(List(json, "xrefs"), 0);
    objectXrefs = XRefs(List(json, "object_xrefs"), kDeepestXRef);
    for (const Json::Value& each : List(json, "callbacks")) {
        callbacks.push_back({Text(each, "type", L"filePostOpen"), Text(each, "id"),
                             Text(each, "script"),
                             Member(each, "persistent") == Json::Value(true)});
    }
    for (const Json::Value& each : List(json, "custom_attributes")) {
        attributes.push_back({Text(each, "name"), Text(each, "source")});
    }
    const Json::Value& values = Member(json, "globals");
    if (values.isObject()) {
        for (const std::string& name : values.getMemberNames()) {
            const auto cell = globals.findOrMake(ToWide(name));
            if (!cell->isSystem) {
                cell->value = SceneGlobal(values[name]);
                globalNames.push_back(ToWide(name));
            }
        }
    }
    for (const Json::Value& each : List(json, "persistents")) {
        if (each.isString()) {
            persistents.push_back(ToWide(each.asString()));
        }
    }
}

Json::Value SceneState::write(const Globals& globals) const {
    const Json::Value& before = description;
    Json::Value json = before;
    Json::Value nodeList(Json::arrayValue);
    Json::Value cameras(Json::arrayValue);
    Json::Value plain(Json::arrayValue);
    const std::size_t cameraCount = List(before, "cameras").size();
    const std::size_t objectCount = List(before, "objects").size();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i]->isDeleted()) {
            continue;
        }
        if (i < cameraCount) {
            cameras.append(before["cameras"][static_cast<Json::ArrayIndex>(i)]);
        } else if (i < cameraCount + objectCount) {
            plain.append(before["objects"][static_cast<Json::ArrayIndex>(i - cameraCount)]);
        } else {
            nodeList.append(nodes[i]->json());
        }
    }
    const auto put = [&json](const char* name, const Json::Value& list) {
        if (json.isMember(name) || !list.empty()) {
            json[name] = list;
        }
    };
    put("cameras", cameras);
    put("objects", plain);
    put("nodes", nodeList);
    Json::Value callbackList(Json::arrayValue);
    for (const SceneCallback& each : callbacks) {
        Json::Value one(Json::objectValue);
        one["type"] = ToUtf8(each.type);
        one["id"] = ToUtf8(each.id);
        one["script"] = ToUtf8(each.script);
        if (each.isPersistent) {
            one["persistent"] = true;
        }
        callbackList.append(one);
    }
    put("callbacks", callbackList);
    Json::Value attributeList(Json::arrayValue);
    for (const SceneAttribute& each : attributes) {
        Json::Value one(Json::objectValue);
        one["name"] = ToUtf8(each.name);
        one["source"] = ToUtf8(each.source);
        attributeList.append(one);
    }
    put("custom_attributes", attributeList);
    Json::Value persistentList(Json::arrayValue);
    for (const std::wstring& each : persistents) {
        persistentList.append(ToUtf8(each));
    }
    put("persistents", persistentList);
    if (json.isMember("globals") && json["globals"].isObject()) {
        for (const std::string& name : before["globals"].getMemberNames()) {
            const auto cell = globals.find(ToWide(name));
            if (!cell || cell->value.is(Value::Kind::Undefined)) {
                json["globals"].removeMember(name);
            }
        }
    }
    return json;
}

void SceneState::settle(const Globals& globals) {
    description = write(globals);
    changed = false;
    const auto isDeleted = [](const std::shared_ptr<SceneNode>& node) { return node->isDeleted(); };
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(), isDeleted), nodes.end());
}

std::vector<std::shared_ptr<SceneNode>> SceneState::nodesOf(const std::wstring& superClass) const {
    std::vector<std::shared_ptr<SceneNode>> found;
    for (const auto& node : nodes) {
        if (!node->isDeleted() &&
            (superClass.empty() || Fold(node->superClass()) == Fold(superClass))) {
            found.push_back(node);
        }
    }
    return found;
}

} // namespace maxscript
} // namespace standin
