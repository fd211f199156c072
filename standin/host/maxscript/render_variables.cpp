// The system globals of rendering, output and time.
#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/scene_library.h"
#include "standin/host/maxscript/time.h"

#include "standin/host/text.h"

namespace standin {
namespace maxscript {
namespace {

const Json::Value& At(const SceneState& state, const char* group, const char* name) {
    static const Json::Value none;
    const Json::Value& scene = state.description;
    return scene.isObject() && scene[group].isObject() && scene[group].isMember(name)
               ? scene[group][name]
               : none;
}

int Number(const SceneState& state, const char* group, const char* name, int other) {
    const Json::Value& value = At(state, group, name);
    return value.isInt() ? value.asInt() : other;
}

std::wstring Text(const SceneState& state, const char* group, const char* name) {
    const Json::Value& value = At(state, group, name);
    return value.isString() ? ToWide(value.asString()) : L"";
}

Value Frames(int frames) {
    return Value(std::make_shared<Time>(static_cast<float>(frames)));
}

// `file` of the description, or a file of the type that `format` names.
std::wstring OutputFile(const SceneState& state) {
    const std::wstring file = Text(state, "output", "file");
    const std::wstring format = Text(state, "output", "format");
    return file.empty() && !format.empty() ? L"D:\\renders\\image." + format : file;
}

Value RenderType(const SceneState& state) {
    const Json::Value& region = At(state, "output", "region");
    const std::wstring type = Text(state, "output", "render_type");
    if (!type.empty()) {
        return Value::name(type);
    }
    return Value::name(region.isBool() && region.asBool() ? L"region" : L"view");
}

float Gamma(const SceneState& state) {
    const Json::Value& gamma = At(state, "output", "gamma");
    return gamma.isNumeric() ? gamma.asFloat() : 2.2F;
}

Value Renderers(SceneState& state) {
    const auto renderers = std::make_shared<Record>(L"renderers");
    for (const wchar_t* const which : {L"production", L"current"}) {
        renderers->addRead(which, [&state] { return Value(state.renderer); });
    }
    return Value(renderers);
}

Value ActiveSegment(const SceneState& state) {
    const auto interval = std::make_shared<Record>(L"Interval");
    interval->add(L"start", Frames(Number(state, "frames", "active_start", 0)));
    interval->add(L"end", Frames(Number(state, "frames", "active_end", 100)));
    return Value(interval);
}

} // namespace

void AddRenderVariables(Globals& globals, SceneState& state) {
    const auto number = [&](const wchar_t* name, const char* group, const char* member, int other) {
        globals.addVariable(name, [&state, group, member, other] {
            return Value(Number(state, group, member, other));
        });
    };
    number(L"renderWidth", "output", "width", 640);
    number(L"renderHeight", "output", "height", 480);
    number(L"rendTimeType", "frames", "time_type", 3);
    number(L"rendNThFrame", "frames", "every", 1);
    const auto time = [&](const wchar_t* name, const char* member, int other) {
        globals.addVariable(name, [&state, member, other] {
            return Frames(Number(state, "frames", member, other));
        });
    };
    time(L"rendStart", "start", 0);
    time(L"rendEnd", "end", 100);
    time(L"currentTime", "current", 0);
    time(L"sliderTime", "current", 0);
    globals.addVariable(L"rendPickupFrames",
                        [&state] { return Value(Text(state, "frames", "list")); });
    globals.addVariable(L"animationRange", [&state] { return ActiveSegment(state); });
    globals.addVariable(L"rendOutputFilename", [&state] { return Value(OutputFile(state)); });
    globals.addVariable(L"rendSaveFile", [&state] { return Value(!OutputFile(state).empty()); });
    globals.addVariable(L"fileOutGamma", [&state] { return Value(Gamma(state)); });
    globals.addVariable(L"fileInGamma", [&state] { return Value(Gamma(state)); });
    globals.addFunction(L"getRenderType", 0, 0,
                        [&state](Interpreter&, const Arguments&) { return RenderType(state); });
    globals.addValue(L"renderers", Renderers(state));
}

} // namespace maxscript
} // namespace standin
