#include "standin/host/maxscript/scene_object.h"

#include "standin/host/maxscript/language_library.h"
#include "standin/host/text.h"

namespace standin {
namespace maxscript {
namespace {

std::wstring TextMember(const Json::Value& json, const char* name, const wchar_t* other) {
    const bool found = json.isObject() && json.isMember(name) && json[name].isString();
    return found ? ToWide(json[name].asString()) : other;
}

bool FlagMember(const Json::Value& json, const char* name) {
    return json.isObject() && json.isMember(name) && json[name].isBool() && json[name].asBool();
}

Json::Value Member(const Json::Value& json, const char* name) {
    return json.isObject() && json.isMember(name) ? json[name] : Json::Value();
}

// Which of a node's tracks hide behind the property names of the language.
std::string TrackOf(const std::wstring& name) {
    if (name == L"scale") {
        return "scale";
    }
    if (name == L"rotation") {
        return "rotation";
    }
    return name == L"pos" || name == L"position" ? "position" : "";
}

// node.scale.controller.script
Value Track(const std::string& track, const Json::Value& script) {
    const std::wstring kind(track.begin(), track.end());
    const auto record = std::make_shared<Record>(kind);
    if (script.isString()) {
        Json::Value properties(Json::objectValue);
        properties["script"] = script;
        record->add(L"controller", Value(std::make_shared<SceneObject>(
                                       kind + L"_script", kind + L"Controller", properties)));
    } else {
        record->add(L"controller", Value(std::make_shared<SceneObject>(
                                       L"Bezier_" + kind, kind + L"Controller", Json::Value())));
    }
    return Value(record);
}

} // namespace

Value FromJson(const Json::Value& json) {
    switch (json.type()) {
    case Json::booleanValue:
        return Value(json.asBool());
    case Json::intValue:
    case Json::uintValue:
        return json.isInt() ? Value(json.asInt()) : Value(json.asFloat());
    case Json::realValue:
        return Value(json.asFloat());
    case Json::stringValue:
        return Value(ToWide(json.asString()));
    case Json::arrayValue: {
        Values values;
        for (const Json::Value& each : json) {
            values.push_back(FromJson(each));
        }
        return MakeArray(values);
    }
    default:
        return Value();
    }
}

SceneObject::SceneObject(std::wstring name, std::wstring base, const Json::Value& properties)
    : class_(std::move(name)), base_(std::move(base)) {
    if (!properties.isObject()) {
        return;
    }
    for (const std::string& each : properties.getMemberNames()) {
        const std::wstring wide = ToWide(each);
        properties_[Fold(wide)] = {wide, FromJson(properties[each])};
    }
}

bool SceneObject::property(const std::wstring& name, Value& value) {
    if (name == L"classid") {
        return false; // the stand-in has no numbers for classes
    }
    const auto found = properties_.find(name);
    if (found == properties_.end()) {
        return false;
    }
    value = found->second.value;
    return true;
}

bool SceneObject::setProperty(const std::wstring& name, const Value& value) {
    const auto found = properties_.find(name);
    if (found == properties_.end()) {
        return false;
    }
    found->second.value = value;
    return true;
}

std::vector<std::wstring> SceneObject::propertyNames() const {
    std::vector<std::wstring> names;
    for (const auto& each : properties_) {
        names.push_back(each.second.name);
    }
    return names;
}

SceneNode::SceneNode(const Json::Value& json, int handle)
    : SceneObject(TextMember(json, "class", L"Box"),
                  TextMember(json, "superclass", L"GeometryClass"), Member(json, "properties")),
      json_(json), handle_(handle) {}

void SceneNode::needAlive() const {
    if (isDeleted_) {
        throw ScriptError(L"Attempt to access deleted scene object");
    }
}

std::wstring SceneNode::text() const {
    if (isDeleted_) {
        return L"<Deleted scene node>";
    }
    return L"$" + className() + L":" + TextMember(json_, "name", L"");
}

bool SceneNode::property(const std::wstring& name, Value& value) {
    needAlive();
    if (name == L"name") {
        value = Value(TextMember(json_, "name", L""));
    } else if (name == L"ishidden") {
        value = Value(FlagMember(json_, "hidden"));
    } else if (name == L"isfrozen") {
        value = Value(FlagMember(json_, "frozen"));
    } else if (name == L"handle") {
        value = Value(handle_);
    } else if (name == L"inode") {
        value = Value(std::static_pointer_cast<SceneNode>(shared_from_this()));
    } else if (name == L"modifiers") {
        value = MakeArray({});
    } else if (!TrackOf(name).empty()) {
        const std::string track = TrackOf(name);
        value = Track(track, Member(Member(json_, "controllers"), track.c_str()));
    } else {
        return SceneObject::property(name, value);
    }
    return true;
}

bool SceneNode::setProperty(const std::wstring& name, const Value& value) {
    needAlive();
    if (name == L"name") {
        json_["name"] = ToUtf8(TextOf(value));
    } else if (name == L"ishidden") {
        json_["hidden"] = ToCondition(value, L"isHidden");
    } else if (name == L"isfrozen") {
        json_["frozen"] = ToCondition(value, L"isFrozen");
    } else {
        return SceneObject::setProperty(name, value);
    }
    return true;
}

std::vector<std::wstring> SceneNode::propertyNames() const {
    needAlive();
    return SceneObject::propertyNames();
}

} // namespace maxscript
} // namespace standin
