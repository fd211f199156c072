#include "standin/host/scene_description.h"

#include "standin/host/text.h"

#include "base/windows.h"

#include <algorithm>
#include <memory>

namespace standin {
namespace {

constexpr int kLongestWait = 120000; // a scene must not keep the host busy for ever

// Every reader below takes the member only when it has the right type.
const Json::Value& Member(const Json::Value& object, const char* name) {
    static const Json::Value none;
    return object.isObject() && object.isMember(name) ? object[name] : none;
}

void Read(const Json::Value& object, const char* name, std::wstring& text) {
    const Json::Value& value = Member(object, name);
    if (value.isString()) {
        text = ToWide(value.asString());
    }
}

void Read(const Json::Value& object, const char* name, int& number) {
    const Json::Value& value = Member(object, name);
    if (value.isInt()) {
        number = value.asInt();
    }
}

void Read(const Json::Value& object, const char* name, bool& flag) {
    const Json::Value& value = Member(object, name);
    if (value.isBool()) {
        flag = value.asBool();
    }
}

void Read(const Json::Value& object, const char* name, std::vector<std::wstring>& texts) {
    const Json::Value& list = Member(object, name);
    if (!list.isArray()) {
        return;
    }
    for (const Json::Value& item : list) {
        if (item.isString()) {
            texts.push_back(ToWide(item.asString()));
        }
    }
}

void Read(const Json::Value& object, const char* name, std::vector<SceneCamera>& cameras) {
    const Json::Value& list = Member(object, name);
    if (!list.isArray()) {
        return;
    }
    for (const Json::Value& item : list) {
        SceneCamera camera;
        if (item.isString()) {
            camera.name = ToWide(item.asString());
        } else {
            Read(item, "name", camera.name);
        }
        cameras.push_back(camera);
    }
}

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Pairs of hexadecimal digits; blanks between them and an odd last digit do not count.
std::string BytesFromHex(const std::string& text) {
    std::string bytes;
    int high = -1;
    for (const char character : text) {
        const int digit = HexDigit(character);
        if (digit < 0) {
            continue;
        }
        if (high < 0) {
            high = digit;
        } else {
            bytes.push_back(static_cast<char>(high * 16 + digit));
            high = -1;
        }
    }
    return bytes;
}

std::wstring LowerCase(std::wstring text) {
    if (!text.empty()) {
        CharLowerBuffW(&text[0], static_cast<DWORD>(text.size()));
    }
    return text;
}

ScriptBehaviour ReadBehaviour(const Json::Value& value) {
    ScriptBehaviour behaviour;
    std::wstring does;
    Read(value, "does", does);
    if (does == L"error") {
        behaviour.kind = ScriptBehaviour::Kind::Fails;
        behaviour.message = L"The script was told to fail";
        Read(value, "message", behaviour.message);
    } else if (does == L"nothing") {
        behaviour.kind = ScriptBehaviour::Kind::WritesNothing;
    } else if (does == L"bytes") {
        behaviour.kind = ScriptBehaviour::Kind::WritesBytes;
        const Json::Value& bytes = Member(value, "bytes");
        behaviour.bytes = bytes.isString() ? BytesFromHex(bytes.asString()) : std::string();
    } else if (does == L"text") {
        behaviour.kind = ScriptBehaviour::Kind::WritesBytes;
        const Json::Value& text = Member(value, "text");
        behaviour.bytes = text.isString() ? text.asString() : std::string();
    }
    Read(value, "wait_ms", behaviour.waitMilliseconds);
    behaviour.waitMilliseconds = std::min(std::max(behaviour.waitMilliseconds, 0), kLongestWait);
    return behaviour;
}

} // namespace

bool ReadSceneDescription(const std::string& json, SceneDescription& description,
                          std::string& error) {
    Json::Value root;
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    try {
        if (!reader->parse(json.data(), json.data() + json.size(), &root, &error)) {
            return false;
        }
    } catch (const std::exception& failure) { // JsonCpp throws when the nesting is too deep
        error = failure.what();
        return false;
    }
    if (!root.isObject()) {
        error = "the description is not a JSON object";
        return false;
    }

    SceneDescription read;
    Read(root, "objects", read.objects);
    Read(root, "cameras", read.cameras);

    Read(root, "refuse_save", read.refuseSave);
    Read(root, "save_ms", read.saveMilliseconds);
    read.saveMilliseconds = std::min(std::max(read.saveMilliseconds, 0), kLongestWait);
    Read(root, "told_path", read.reportedPath);
    Read(root, "modified", read.modified);

    const Json::Value& scripts = Member(root, "scripts");
    if (scripts.isObject()) {
        for (const std::string& name : scripts.getMemberNames()) {
            read.scripts[LowerCase(ToWide(name))] = ReadBehaviour(scripts[name]);
        }
    }
    description = read;
    return true;
}

ScriptBehaviour BehaviourOf(const SceneDescription& description, const std::wstring& scriptFile) {
    const auto found = description.scripts.find(LowerCase(FileNameOf(scriptFile)));
    return found == description.scripts.end() ? ScriptBehaviour() : found->second;
}

} // namespace standin
