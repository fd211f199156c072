// Assets, references to other scenes, and the scene's own file.
#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/scene_library.h"

#include "standin/host/text.h"

namespace standin {
namespace maxscript {
namespace {

Value Asset(const SceneAsset& asset) {
    const auto record = std::make_shared<Record>(L"AssetUser");
    const std::wstring path = asset.path;
    const std::wstring type = asset.type;
    // A file that is missing has no full path.
    const std::wstring full = asset.state < 0 ? L"" : path;
    record->add(L"GetFileName", 0, 0,
                [path](Interpreter&, const Arguments&) { return Value(path); });
    record->add(L"GetFullFilePath", 0, 0,
                [full](Interpreter&, const Arguments&) { return Value(full); });
    record->add(L"GetType", 0, 0,
                [type](Interpreter&, const Arguments&) { return Value::name(type); });
    return Value(record);
}

Value AssetManager(const SceneState& state) {
    const auto record = std::make_shared<Record>(L"AssetManager");
    record->add(L"GetNumAssets", 0, 0, [&state](Interpreter&, const Arguments&) {
        return Value(static_cast<int>(state.assets.size()));
    });
    record->add(L"GetAssetByIndex", 1, 1, [&state](Interpreter&, const Arguments& a) {
        const int index = IntegerOf(a.values[0]);
        if (index < 1 || static_cast<std::size_t>(index) > state.assets.size()) {
            throw ScriptError(L"AssetManager: no asset of that index: " + ToText(a.values[0]));
        }
        return Asset(state.assets[static_cast<std::size_t>(index) - 1]);
    });
    return Value(record);
}

// A scene that is referred to; it is handed back as `root:` for those that it refers to in turn.
class XRefScene : public Object {
public:
    explicit XRefScene(SceneXRef itself) : content(std::move(itself)) {}

    std::wstring className() const override { return L"XRefScene"; }
    bool property(const std::wstring& name, Value& value) override {
        if (name == L"filename") {
            value = Value(content.path);
        } else if (name == L"disabled" || name == L"overlay") {
            value = Value(false);
        } else {
            return false;
        }
        return true;
    }

    const SceneXRef content;
};

const std::vector<SceneXRef>& XRefsOf(const SceneState& state, const Arguments& a) {
    const Value root = a.get(L"root", Value());
    if (root.is(Value::Kind::Undefined)) {
        return state.xrefs;
    }
    const auto scene = root.as<XRefScene>();
    if (!scene) {
        throw ScriptError(L"xrefs: root: needs an XRefScene, got: " + ToText(root));
    }
    return scene->content.nested; // the caller's value keeps it
}

const SceneXRef& XRefAt(const std::vector<SceneXRef>& all, const Value& index) {
    const int place = IntegerOf(index);
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw ScriptError(L"xrefs: no reference of that index: " + ToText(index));
    }
    return all[static_cast<std::size_t>(place) - 1];
}

void AddXRefs(Globals& globals, SceneState& state) {
    const auto scenes = std::make_shared<Record>(L"xrefs");
    scenes->add(L"getXRefFileCount", 0, 0, [&state](Interpreter&, const Arguments& a) {
        return Value(static_cast<int>(XRefsOf(state, a).size()));
    });
    scenes->add(L"getXRefFile", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return Value(std::make_shared<XRefScene>(XRefAt(XRefsOf(state, a), a.values[0])));
    });
    globals.addValue(L"xrefs", Value(scenes));
    const auto objects = std::make_shared<Record>(L"objXRefs");
    objects->add(L"getNumFiles", 0, 0, [&state](Interpreter&, const Arguments&) {
        return Value(static_cast<int>(state.objectXrefs.size()));
    });
    objects->add(L"getFileName", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return Value(XRefAt(state.objectXrefs, a.values[0]).path);
    });
    globals.addValue(L"objXRefs", Value(objects));
}

std::wstring WithSeparator(const std::wstring& folder) {
    return folder.empty() ? folder : folder + L"\\";
}

} // namespace

void AddAssetFunctions(Globals& globals, SceneState& state, const HostFacts& facts) {
    globals.addValue(L"AssetManager", AssetManager(state));
    AddXRefs(globals, state);
    globals.addVariable(L"maxFilePath",
                        [&facts] { return Value(WithSeparator(FolderOf(facts.scenePath()))); });
    globals.addVariable(L"maxFileName", [&facts] { return Value(FileNameOf(facts.scenePath())); });
    globals.addFunction(L"maxVersion", 0, 0, [&state](Interpreter&, const Arguments&) {
        const Json::Value& release =
            state.description.isObject() ? state.description["release"] : Json::Value();
        const int year = release.isInt() ? release.asInt() : 2019;
        return MakeArray({Value((year - 1998) * 1000), Value(55), Value(0)});
    });
    globals.addFunction(L"getSaveRequired", 0, 0, [&facts](Interpreter&, const Arguments&) {
        return Value(facts.modified());
    });
    globals.addFunction(L"setSaveRequired", 1, 1, [&facts](Interpreter&, const Arguments& a) {
        facts.setModified(ToCondition(a.values[0], L"setSaveRequired"));
        return Value::special(Value::Kind::Ok);
    });
    globals.addFunction(L"GetQuietMode", 0, 0, [&facts](Interpreter&, const Arguments&) {
        return Value(facts.quietMode());
    });
    globals.addFunction(L"SetQuietMode", 1, 1, [&facts](Interpreter&, const Arguments& a) {
        const bool before = facts.quietMode();
        facts.setQuietMode(ToCondition(a.values[0], L"SetQuietMode"));
        return Value(before);
    });
    globals.addFunction(L"getDir", 1, 1, [&facts](Interpreter&, const Arguments& a) {
        const std::wstring folder = facts.folderOf(Fold(TextOf(a.values[0])));
        if (folder.empty()) {
            throw ScriptError(L"getDir: this folder is not known here: " + ToText(a.values[0]));
        }
        return Value(folder);
    });
}

void AddSceneLibrary(Interpreter& interpreter, SceneState& state, const HostFacts& facts) {
    AddNodeFunctions(interpreter.globals(), state);
    AddRenderVariables(interpreter.globals(), state);
    AddAssetFunctions(interpreter.globals(), state, facts);
    AddRegistryFunctions(interpreter, state);
    AddFileFunctions(interpreter, state);
}

} // namespace maxscript
} // namespace standin
