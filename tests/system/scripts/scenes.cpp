#include "tests/system/scripts/scenes.h"

#include "standin/host/host_folders.h"
#include "standin/host/text.h"
#include "tests/support/files.h"

#include <memory>
#include <sstream>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kLog[] = L"/log/OrvAntivirus.log";

} // namespace

SceneUnderTest::SceneUnderTest(const Json::Value& description, const std::wstring& file)
    : runner_(
          scene,
          [this](const std::wstring& name) { return standin::HostFolder(hostFolder(), name); },
          [this](const std::wstring& text) { listener += text; }) {
    product.installScripts();
    MakeFolders(userStartup(L""));
    MakeFolders(systemStartup(L""));
    std::string error;
    const std::string text = Json::FastWriter().write(description);
    if (!file.empty()) {
        WriteFileBytes(folder.file(file), "scene bytes");
        WriteFileBytes(folder.file(file) + L".json", text);
    }
    if (!(file.empty() ? scene.describe(text, error) : scene.open(folder.file(file), error)))
        throw std::runtime_error("the scene cannot be opened: " + error);
}

std::wstring SceneUnderTest::userStartup(const std::wstring& name) const {
    return hostFolder() + L"\\user\\scripts\\startup\\" + name;
}

std::wstring SceneUnderTest::systemStartup(const std::wstring& name) const {
    return hostFolder() + L"\\scripts\\startup\\" + name;
}

std::string SceneUnderTest::analyse() {
    const standin::ScriptOutcome outcome =
        run(L"fileIn \"" + product.path(L"/script/MaxRenderGlobalsParser.mse") +
            L"\"\ngMax.analysis @\"" + reportFile() + L"\" \"\"");
    if (!outcome.ok)
        throw std::runtime_error("the parser failed: " + standin::ToUtf8(outcome.error));
    return PathExists(reportFile()) ? ReadFileBytes(reportFile()) : std::string();
}

void SceneUnderTest::clean() {
    for (const wchar_t* const family : {L"Adsl", L"Alc", L"Crp"}) {
        const standin::ScriptOutcome outcome =
            run(L"fileIn \"" + product.path(L"/script/OrvAntivirus") + family + L"_UTF8.ms\"");
        if (!outcome.ok)
            throw std::runtime_error("a cleaner failed: " + standin::ToUtf8(outcome.error));
    }
}

void SceneUnderTest::breakGlobal(const std::wstring& name) {
    runner_.interpreter().globals().addVariable(name, []() -> standin::maxscript::Value {
        throw standin::maxscript::ScriptError(L"broken for the test");
    });
}

std::vector<std::string> SceneUnderTest::cleaned() {
    std::vector<std::string> all;
    std::istringstream lines(product.read(kLog));
    std::string line;
    for (std::size_t number = 0; std::getline(lines, line); ++number) {
        if (number < readLogLines_)
            continue;
        const Json::Value entry = ParsedJson(line);
        const std::string name = entry["name"].asString();
        const std::string kind = entry["kind"].asString();
        all.push_back(entry["action"].asString() + " " + kind + " " +
                      (kind == "file" ? name.substr(name.find_last_of("\\/") + 1) : name));
    }
    readLogLines_ += all.size();
    return all;
}

Json::Value SceneUnderTest::description() const {
    return ParsedJson(scene.descriptionText());
}

Json::Value ParsedJson(const std::string& text) {
    Json::Value value;
    std::string error;
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    if (!reader->parse(text.data(), text.data() + text.size(), &value, &error))
        throw std::runtime_error("no JSON: " + error + " in: " + text.substr(0, 300));
    return value;
}

std::string Differences(const Json::Value& expected, const Json::Value& actual,
                        const std::string& path) {
    std::string all;
    if (expected.isObject() && actual.isObject()) {
        for (const std::string& name : expected.getMemberNames())
            all += Differences(expected[name], actual[name], path + "." + name);
        return all;
    }
    if (expected.isArray() && actual.isArray() && expected.size() == actual.size()) {
        for (Json::ArrayIndex i = 0; i < expected.size(); ++i)
            all += Differences(expected[i], actual[i], path + "[" + std::to_string(i) + "]");
        return all;
    }
    if (expected == actual)
        return "";
    return path + ": expected " + Json::FastWriter().write(expected) + "  got " +
           Json::FastWriter().write(actual);
}

} // namespace test
} // namespace orv
