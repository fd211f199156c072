#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/scene_library.h"

#include "standin/host/text.h"

#include <map>

namespace standin {
namespace maxscript {
namespace {

Value NodeValues(const std::vector<std::shared_ptr<SceneNode>>& nodes) {
    Values values;
    values.reserve(nodes.size());
    for (const auto& node : nodes) {
        values.emplace_back(node);
    }
    return MakeArray(values);
}

// As in the host: the objects of a class, those that nodes hold as the nodes themselves.
Value ClassInstances(const SceneState& state, const Value& which) {
    const auto wanted = which.as<ClassValue>();
    if (!wanted) {
        throw ScriptError(L"getClassInstances requires a class, got: " + ToText(which));
    }
    Values found;
    for (const auto& node : state.nodes) {
        if (!node->isDeleted() && Fold(node->className()) == Fold(wanted->name)) {
            found.emplace_back(node);
        }
    }
    for (const auto& object : state.objects) {
        if (Fold(object->className()) == Fold(wanted->name)) {
            found.emplace_back(object);
        }
    }
    return MakeArray(found);
}

Value NodeByName(const SceneState& state, const Arguments& a) {
    Values found;
    for (const auto& node : state.nodesOf(L"")) {
        Value name;
        node->property(L"name", name);
        if (Fold(name.text()) == Fold(TextOf(a.values[0]))) {
            found.emplace_back(node);
        }
    }
    if (ToCondition(a.get(L"all", Value(false)), L"all:")) {
        return MakeArray(found);
    }
    return found.empty() ? Value() : found[0];
}

// A superclass knows its classes; here those that the scene has objects of.
class SuperClassValue : public ClassValue {
public:
    SuperClassValue(const std::wstring& itsName, const SceneState& state)
        : ClassValue(itsName), state_(state) {}

    bool property(const std::wstring& asked, Value& value) override {
        if (asked != L"classes") {
            return false;
        }
        std::map<std::wstring, Value> classes; // by the name in lower case
        const auto add = [this, &classes](const SceneObject& object) {
            if (Fold(object.superClass()) == Fold(name)) {
                classes[Fold(object.className())] =
                    Value(std::make_shared<ClassValue>(object.className(), object.superClass()));
            }
        };
        for (const auto& node : state_.nodesOf(L"")) {
            add(*node);
        }
        for (const auto& object : state_.objects) {
            add(*object);
        }
        Values found;
        for (const auto& each : classes) {
            found.push_back(each.second);
        }
        value = MakeArray(found);
        return true;
    }

private:
    const SceneState& state_;
};

// One node, or each of a collection.
Value Delete(SceneState& state, const Value& what) {
    if (const auto array = what.as<Array>()) {
        for (const Value& each : array->values) {
            Delete(state, each);
        }
        return Value::special(Value::Kind::Ok);
    }
    const auto node = what.as<SceneNode>();
    if (!node || node->isDeleted()) {
        throw ScriptError(L"delete: needs a node of the scene, got: " + ToText(what));
    }
    node->markDeleted();
    state.changed = true;
    return Value::special(Value::Kind::Ok);
}

} // namespace

void AddNodeFunctions(Globals& globals, SceneState& state) {
    struct Collection {
        const wchar_t* name;
        const wchar_t* superClass;
    };
    for (const Collection& each :
         {Collection{L"objects", L""}, Collection{L"cameras", L"Camera"},
          Collection{L"helpers", L"Helper"}, Collection{L"geometry", L"GeometryClass"},
          Collection{L"lights", L"Light"}}) {
        const std::wstring superClass = each.superClass;
        globals.addVariable(each.name, [&state, superClass] {
            std::vector<std::shared_ptr<SceneNode>> nodes = state.nodesOf(superClass);
            if (superClass == L"Camera") {
                // The host counts the targets of cameras among the cameras.
                for (const auto& node : state.nodesOf(L"GeometryClass")) {
                    if (Fold(node->className()) == L"targetobject") {
                        nodes.push_back(node);
                    }
                }
            }
            return NodeValues(nodes);
        });
    }
    for (const wchar_t* const name : {L"Camera", L"Helper", L"GeometryClass", L"Light", L"Shape",
                                      L"Material", L"TextureMap", L"RendererClass"}) {
        globals.addValue(name, Value(std::make_shared<SuperClassValue>(name, state)));
    }
    for (const wchar_t* const name : {L"Freecamera", L"Targetcamera", L"Physical"}) {
        globals.addValue(name, Value(std::make_shared<ClassValue>(name, L"Camera")));
    }
    globals.addValue(L"Point", Value(std::make_shared<ClassValue>(L"Point", L"Helper")));
    globals.addValue(L"Targetobject",
                     Value(std::make_shared<ClassValue>(L"Targetobject", L"GeometryClass")));
    globals.addValue(L"Missing_Renderer",
                     Value(std::make_shared<ClassValue>(L"Missing_Renderer", L"RendererClass")));
    globals.addValue(L"Missing_Camera",
                     Value(std::make_shared<ClassValue>(L"Missing_Camera", L"Camera")));

    globals.addFunction(L"getClassInstances", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return ClassInstances(state, a.values[0]);
    });
    globals.addFunction(L"getNodeByName", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return NodeByName(state, a);
    });
    globals.addFunction(L"delete", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return Delete(state, a.values[0]);
    });
    globals.addFunction(L"isDeleted", 1, 1, [](Interpreter&, const Arguments& a) {
        const auto node = a.values[0].as<SceneNode>();
        return Value(node && node->isDeleted());
    });
    globals.addFunction(L"isValidNode", 1, 1, [](Interpreter&, const Arguments& a) {
        const auto node = a.values[0].as<SceneNode>();
        return Value(node && !node->isDeleted());
    });
    for (const wchar_t* const name : {L"disableSceneRedraw", L"enableSceneRedraw"}) {
        globals.addFunction(name, 0, 0, [](Interpreter&, const Arguments&) {
            return Value::special(Value::Kind::Ok);
        });
    }
}

} // namespace maxscript
} // namespace standin
