// What scenes carry scripts in: callbacks, persistent globals, global variables, custom attributes.
#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/scene_library.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

std::wstring FoldedText(const Value& value) {
    return Fold(TextOf(value));
}

Value Ok() {
    return Value::special(Value::Kind::Ok);
}

// By type, by id, or both; at least one is required. Unknown ones are not an error.
Value RemoveScripts(SceneState& state, const Arguments& a) {
    const Value id = a.get(L"id", Value());
    if (a.values.empty() && id.is(Value::Kind::Undefined)) {
        throw ScriptError(L"callbacks.removeScripts: needs a type or id:");
    }
    auto& all = state.callbacks;
    const auto isMeant = [&a, &id](const SceneCallback& each) {
        return (a.values.empty() || Fold(each.type) == FoldedText(a.values[0])) &&
               (id.is(Value::Kind::Undefined) || Fold(each.id) == FoldedText(id));
    };
    const auto end = std::remove_if(all.begin(), all.end(), isMeant);
    state.changed = state.changed || end != all.end();
    all.erase(end, all.end());
    return Ok();
}

Value AddScript(SceneState& state, const Arguments& a) {
    state.callbacks.push_back({TextOf(a.values[0]), TextOf(a.get(L"id", Value(L""))),
                               TextOf(a.values[1]),
                               ToCondition(a.get(L"persistent", Value(false)), L"persistent:")});
    state.changed = true;
    return Ok();
}

// A line of its type and id for each callback, for a stream or the Listener.
Value ShowCallbacks(Interpreter& interpreter, SceneState& state, const Arguments& a) {
    const Value id = a.get(L"id", Value());
    std::wstring all;
    for (const SceneCallback& each : state.callbacks) {
        const bool meant = (a.values.empty() || Fold(each.type) == FoldedText(a.values[0])) &&
                           (id.is(Value::Kind::Undefined) || Fold(each.id) == FoldedText(id));
        if (meant) {
            all += L"#" + each.type + L"  id:#" + each.id + L"  " + each.script + L"\n";
        }
    }
    if (const auto sink = a.get(L"to", Value()).as<TextSink>()) {
        sink->write(all);
    } else {
        interpreter.print(all);
    }
    return Ok();
}

Value Callbacks(SceneState& state) {
    const auto callbacks = std::make_shared<Record>(L"callbacks");
    callbacks->add(L"removeScripts", 0, 1,
                   [&state](Interpreter&, const Arguments& a) { return RemoveScripts(state, a); });
    callbacks->add(L"addScript", 2, 2,
                   [&state](Interpreter&, const Arguments& a) { return AddScript(state, a); });
    callbacks->add(L"show", 0, 1, [&state](Interpreter& interpreter, const Arguments& a) {
        return ShowCallbacks(interpreter, state, a);
    });
    return Value(callbacks);
}

Value Persistents(SceneState& state) {
    const auto persistents = std::make_shared<Record>(L"persistents");
    const auto find = [&state](const Value& name) {
        return std::find_if(
            state.persistents.begin(), state.persistents.end(),
            [&name](const std::wstring& each) { return Fold(each) == FoldedText(name); });
    };
    persistents->add(L"isPersistent", 1, 1, [&state, find](Interpreter&, const Arguments& a) {
        return Value(find(a.values[0]) != state.persistents.end());
    });
    persistents->add(L"gather", 0, 0, [&state](Interpreter&, const Arguments&) {
        Values names;
        for (const std::wstring& each : state.persistents) {
            names.push_back(Value::name(each));
        }
        return MakeArray(names);
    });
    // The variable stays, with its value; only the scene no longer keeps it.
    persistents->add(L"remove", 1, 1, [&state, find](Interpreter&, const Arguments& a) {
        const auto found = find(a.values[0]);
        if (found == state.persistents.end()) {
            return Value(false);
        }
        state.persistents.erase(found);
        state.changed = true;
        return Value(true);
    });
    return Value(persistents);
}

std::shared_ptr<GlobalCell> NeedGlobal(Globals& globals, const Value& name) {
    auto cell = globals.find(TextOf(name));
    if (!cell) {
        throw ScriptError(L"Global variable does not exist: " + ToText(name));
    }
    return cell;
}

Value GlobalVars(Globals& globals, SceneState& state) {
    const auto record = std::make_shared<Record>(L"globalVars");
    record->add(L"isGlobal", 1, 1, [&globals](Interpreter&, const Arguments& a) {
        return Value(globals.find(TextOf(a.values[0])) != nullptr);
    });
    record->add(L"get", 1, 1, [&globals](Interpreter&, const Arguments& a) {
        const auto cell = NeedGlobal(globals, a.values[0]);
        return cell->read ? cell->read() : cell->value;
    });
    record->add(L"set", 2, 2, [&globals, &state](Interpreter&, const Arguments& a) {
        const auto cell = NeedGlobal(globals, a.values[0]);
        if (cell->isSystem) {
            throw ScriptError(L"Cannot assign to read-only system global: " + cell->name);
        }
        cell->value = a.values[1];
        state.changed = true;
        return a.values[1];
    });
    record->add(L"remove", 1, 1, [&globals, &state](Interpreter&, const Arguments& a) {
        const bool removed = globals.remove(TextOf(a.values[0]));
        state.changed = state.changed || removed;
        return Value(removed);
    });
    record->add(L"gather", 0, 0, [&globals](Interpreter&, const Arguments&) {
        Values names;
        for (const std::wstring& each : globals.names()) {
            names.push_back(Value::name(each));
        }
        return MakeArray(names);
    });
    return Value(record);
}

// A definition stands for itself: a name, a source, and nothing to change.
class AttributeDefinition : public Object {
public:
    explicit AttributeDefinition(SceneAttribute itself) : content(std::move(itself)) {}

    std::wstring className() const override { return L"AttributeDef"; }
    std::wstring text() const override { return L"AttributeDef:" + content.name; }
    bool property(const std::wstring& name, Value& value) override {
        value = Value(content.name);
        return name == L"name";
    }

    const SceneAttribute content;
};

std::shared_ptr<AttributeDefinition> NeedDefinition(const Value& value) {
    auto definition = value.as<AttributeDefinition>();
    if (!definition) {
        throw ScriptError(L"Unable to convert: " + ToText(value) + L" to type: AttributeDef");
    }
    return definition;
}

Value CustomAttributes(SceneState& state) {
    const auto record = std::make_shared<Record>(L"custAttributes");
    record->add(L"getSceneDefs", 0, 0, [&state](Interpreter&, const Arguments&) {
        Values all;
        for (const SceneAttribute& each : state.attributes) {
            all.emplace_back(std::make_shared<AttributeDefinition>(each));
        }
        return MakeArray(all);
    });
    record->add(L"getDefSource", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(NeedDefinition(a.values[0])->content.source);
    });
    record->add(L"deleteDef", 1, 1, [&state](Interpreter&, const Arguments& a) {
        const std::wstring name = NeedDefinition(a.values[0])->content.name;
        auto& all = state.attributes;
        const auto end =
            std::remove_if(all.begin(), all.end(),
                           [&name](const SceneAttribute& each) { return each.name == name; });
        const bool removed = end != all.end();
        all.erase(end, all.end());
        state.changed = state.changed || removed;
        return Value(removed);
    });
    return Value(record);
}

} // namespace

void AddRegistryFunctions(Interpreter& interpreter, SceneState& state) {
    Globals& globals = interpreter.globals();
    globals.addValue(L"callbacks", Callbacks(state));
    globals.addValue(L"persistents", Persistents(state));
    globals.addValue(L"globalVars", GlobalVars(globals, state));
    globals.addValue(L"custAttributes", CustomAttributes(state));
}

} // namespace maxscript
} // namespace standin
