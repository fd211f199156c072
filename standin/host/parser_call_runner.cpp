#include "standin/host/parser_call_runner.h"

#include "standin/host/report.h"
#include "standin/host/text.h"

#include "base/windows.h"

#include <vector>

namespace standin {
namespace {

// The scene parser defines the global gMax; its file may carry any of the script suffixes.
constexpr wchar_t kParserName[] = L"MaxRenderGlobalsParser";

ScriptOutcome Failure(const std::wstring& error) {
    ScriptOutcome outcome;
    outcome.error = error;
    return outcome;
}

ScriptOutcome Done() {
    ScriptOutcome outcome;
    outcome.ok = true;
    return outcome;
}

ScriptOutcome Done(bool value) {
    ScriptOutcome outcome = Done();
    outcome.type = ScriptOutcome::Type::Boolean;
    outcome.boolean = value;
    return outcome;
}

bool IsParser(const std::wstring& path) {
    const std::wstring name = FileNameOf(path);
    return SameText(name.substr(0, name.rfind(L'.')), kParserName);
}

} // namespace

ScriptOutcome ParserCallRunner::run(const std::wstring& text) {
    std::vector<ScriptCall> calls;
    std::wstring error;
    if (!ParseScriptText(text, calls, error)) {
        return Failure(L"Syntax error: " + error);
    }
    ScriptOutcome outcome;
    for (const ScriptCall& each : calls) {
        outcome = call(each);
        if (!outcome.ok) {
            break;
        }
    }
    return outcome;
}

ScriptOutcome ParserCallRunner::call(const ScriptCall& call) {
    if (SameText(call.name, L"fileIn") && call.arguments.size() == 1) {
        return fileIn(call.arguments[0]);
    }
    if (SameText(call.name, L"gMax.analysis") && call.arguments.size() == 2) {
        return analysis(call.arguments[0]);
    }
    return Failure(L"Unknown function, or wrong number of arguments: " + call.name);
}

ScriptOutcome ParserCallRunner::fileIn(const std::wstring& path) {
    if (!FileExists(path)) {
        return Failure(L"fileIn: cannot open file: " + path);
    }
    if (IsParser(path)) {
        // The parser only defines gMax when it is loaded; what it was told to do, it does when
        // called.
        parserFile_ = path;
        return Done();
    }
    const ScriptBehaviour behaviour = BehaviourOf(scene_.description(), path);
    Sleep(static_cast<DWORD>(behaviour.waitMilliseconds));
    return behaviour.kind == ScriptBehaviour::Kind::Fails ? Failure(behaviour.message) : Done();
}

ScriptOutcome ParserCallRunner::analysis(const std::wstring& reportPath) {
    if (parserFile_.empty()) {
        return Failure(L"Unknown property: \"analysis\" in undefined");
    }
    const ScriptBehaviour behaviour = BehaviourOf(scene_.description(), parserFile_);
    Sleep(static_cast<DWORD>(behaviour.waitMilliseconds));
    if (behaviour.kind == ScriptBehaviour::Kind::Fails) {
        return Failure(behaviour.message);
    }
    if (behaviour.kind == ScriptBehaviour::Kind::WritesNothing) {
        return Done(true);
    }
    const std::string report = behaviour.kind == ScriptBehaviour::Kind::WritesBytes
                                   ? behaviour.bytes
                                   : ReportText(MakeReport(scene_));
    if (!WriteWholeFile(reportPath, report)) {
        return Failure(L"cannot create file: " + reportPath);
    }
    const std::string log =
        "parsed " + ToUtf8(scene_.path()) + "\nwrote " + ToUtf8(reportPath) + "\n";
    return Done(WriteWholeFile(reportPath + L".log", log));
}

} // namespace standin
