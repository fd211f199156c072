// The objects of the open scene, as scripts see them.
#pragma once

#include "standin/host/maxscript/object.h"

#include <json/json.h>

#include <map>

namespace standin {
namespace maxscript {

// A JSON value as a value of the language; null and objects become undefined.
Value FromJson(const Json::Value& json);

// An object of a plug-in's class, such as a renderer or a map, with the properties that the scene's
// description gives it. Properties can be changed, not added.
class SceneObject : public Object {
public:
    SceneObject(std::wstring name, std::wstring base, const Json::Value& properties);

    std::wstring className() const override { return class_; }
    const std::wstring& superClass() const { return base_; }
    std::wstring text() const override { return class_ + L":" + class_; }
    bool property(const std::wstring& name, Value& value) override;
    bool setProperty(const std::wstring& name, const Value& value) override;
    virtual std::vector<std::wstring> propertyNames() const;

private:
    struct Entry {
        std::wstring name; // as written
        Value value;
    };
    std::wstring class_;
    std::wstring base_;
    std::map<std::wstring, Entry> properties_; // by the name in lower case
};

// A node of the scene. It knows its name, its visibility, the scripts of its controllers and the
// properties of its object. Deleted, it refuses everything.
class SceneNode : public SceneObject {
public:
    // `json` as in the scene's description, see the stand-in host's README.
    SceneNode(const Json::Value& json, int handle);

    std::wstring text() const override;
    bool property(const std::wstring& name, Value& value) override;
    bool setProperty(const std::wstring& name, const Value& value) override;
    std::vector<std::wstring> propertyNames() const override;

    bool isDeleted() const { return isDeleted_; }
    void markDeleted() { isDeleted_ = true; }

    // The node as its description, with what scripts changed.
    const Json::Value& json() const { return json_; }

private:
    void needAlive() const;

    Json::Value json_;
    int handle_;
    bool isDeleted_ = false;
};

} // namespace maxscript
} // namespace standin
