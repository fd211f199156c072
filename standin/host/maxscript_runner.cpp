#include "standin/host/maxscript_runner.h"

#include "standin/host/maxscript/language_library.h"
#include "standin/host/text.h"

#include "base/windows.h"

#include <memory>

namespace standin {
namespace {

using maxscript::Arguments;
using maxscript::Interpreter;
using maxscript::ScriptError;
using maxscript::Value;

// The scene parser defines the global gMax; its file may carry any of the script suffixes.
constexpr wchar_t kParserName[] = L"MaxRenderGlobalsParser";

bool IsParser(const std::wstring& path) {
    const std::wstring name = FileNameOf(path);
    return SameText(name.substr(0, name.rfind(L'.')), kParserName);
}

ScriptOutcome OutcomeOf(const Value& value) {
    ScriptOutcome outcome;
    outcome.ok = true;
    switch (value.kind()) {
    case Value::Kind::Boolean:
        outcome.type = ScriptOutcome::Type::Boolean;
        outcome.boolean = value.boolean();
        break;
    case Value::Kind::Integer:
        outcome.type = ScriptOutcome::Type::Integer;
        outcome.integer = value.integer();
        break;
    case Value::Kind::Float:
        outcome.type = ScriptOutcome::Type::Float;
        outcome.real = value.real();
        break;
    case Value::Kind::Text:
        outcome.type = ScriptOutcome::Type::Text;
        outcome.text = value.text();
        break;
    default:
        break;
    }
    return outcome;
}

void Wait(const ScriptBehaviour& behaviour) {
    Sleep(static_cast<DWORD>(behaviour.waitMilliseconds));
}

Json::Value Parsed(const std::string& text) {
    Json::Value root;
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string error;
    reader->parse(text.data(), text.data() + text.size(), &root, &error);
    return root;
}

} // namespace

MaxscriptRunner::MaxscriptRunner(Scene& scene, FolderOf folderOf, Interpreter::Listener listener)
    : scene_(scene), interpreter_(std::move(listener)) {
    facts_.scenePath = [this] { return scene_.path(); };
    facts_.modified = [this] { return scene_.modified(); };
    facts_.setModified = [this](bool modified) { scene_.setModified(modified); };
    facts_.quietMode = [this] { return quietMode_; };
    facts_.setQuietMode = [this](bool quiet) { quietMode_ = quiet; };
    facts_.folderOf = std::move(folderOf);
    maxscript::AddSceneLibrary(interpreter_, state_, facts_);
    interpreter_.globals().addFunction(L"fileIn", 1, 1, [this](Interpreter&, const Arguments& a) {
        return fileIn(maxscript::TextOf(a.values[0]));
    });
}

void MaxscriptRunner::takeScene() {
    if (generation_ != scene_.generation()) {
        generation_ = scene_.generation();
        state_.read(Parsed(scene_.descriptionText()), interpreter_.globals());
    }
}

void MaxscriptRunner::returnScene() {
    if (state_.changed) {
        state_.settle(interpreter_.globals());
        scene_.change(state_.description.toStyledString());
    }
}

ScriptOutcome MaxscriptRunner::run(const std::wstring& text) {
    takeScene();
    ScriptOutcome outcome;
    try {
        outcome = OutcomeOf(interpreter_.run(text, L""));
    } catch (const ScriptError& error) {
        outcome.error = error.report();
    }
    returnScene();
    return outcome;
}

Value MaxscriptRunner::fileIn(const std::wstring& path) {
    const ScriptBehaviour behaviour = BehaviourOf(scene_.description(), path);
    if (!FileExists(path)) {
        throw ScriptError(L"fileIn: cannot open file: " + path);
    }
    if (IsParser(path) &&
        (behaviour.kind != ScriptBehaviour::Kind::Works || behaviour.waitMilliseconds > 0)) {
        // The parser only defines gMax when it is loaded; its described behaviour applies when
        // called.
        interpreter_.runFile(path);
        interpreter_.globals().findOrMake(L"gMax")->value = commandedParser(behaviour);
        return Value(true);
    }
    Wait(behaviour);
    if (behaviour.kind == ScriptBehaviour::Kind::Fails) {
        throw ScriptError(behaviour.message);
    }
    return interpreter_.runFile(path);
}

// A gMax that does what the scene's description commands, and else what the parser's own would do.
Value MaxscriptRunner::commandedParser(const ScriptBehaviour& behaviour) {
    const Value parser = interpreter_.globals().findOrMake(L"gMax")->value;
    const auto commanded = std::make_shared<maxscript::Record>(L"gMax");
    commanded->add(
        L"analysis", 2, 2, [behaviour, parser](Interpreter& interpreter, const Arguments& a) {
            Wait(behaviour);
            switch (behaviour.kind) {
            case ScriptBehaviour::Kind::Fails:
                throw ScriptError(behaviour.message);
            case ScriptBehaviour::Kind::WritesNothing:
                return Value(true);
            case ScriptBehaviour::Kind::WritesBytes:
                if (!WriteWholeFile(maxscript::TextOf(a.values[0]), behaviour.bytes)) {
                    throw ScriptError(L"cannot create file: " + maxscript::TextOf(a.values[0]));
                }
                return Value(true);
            case ScriptBehaviour::Kind::Works:
                break;
            }
            return interpreter.call(maxscript::PropertyOf(parser, L"analysis"), a.values);
        });
    return Value(commanded);
}

} // namespace standin
