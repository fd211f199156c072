#include "tests/fuzz/mutate.h"

#include "tests/fuzz/difficult.h"

#include <json/reader.h>
#include <json/writer.h>

#include <limits>
#include <map>

namespace orv {
namespace fuzz {
namespace {

constexpr std::size_t kLongestInput = 16 * 1024;

std::string RandomBytes(Random& random) {
    std::string bytes(random.below(24), '\0');
    const bool isText = !random.oneIn(3);
    for (char& byte : bytes)
        byte = static_cast<char>(isText ? 32 + random.below(95) : random.below(256));
    return bytes;
}

void MutateOnce(std::string& bytes, Random& random) {
    const std::size_t at = random.below(bytes.size() + 1);
    const std::size_t length = 1 + random.below(random.oneIn(8) ? 400 : 8);
    switch (random.below(8)) {
    case 0:
        if (at < bytes.size())
            bytes[at] = static_cast<char>(bytes[at] ^ (1U << random.below(8)));
        break;
    case 1:
        if (at < bytes.size())
            bytes[at] = static_cast<char>(random.below(256));
        break;
    case 2:
        bytes.erase(at, length);
        break;
    case 3:
        bytes.insert(at, bytes.substr(random.below(bytes.size() + 1), length));
        break;
    case 4:
        bytes.insert(at, random.oneOf(DifficultTexts()));
        break;
    case 5:
        bytes.insert(at, RandomBytes(random));
        break;
    case 6:
        bytes.resize(at); // cut off
        break;
    default:
        bytes.insert(at, 1 + random.below(6), static_cast<char>(random.below(256)));
        break;
    }
}

Json::Value AnyValue(Random& random) {
    switch (random.below(13)) {
    case 0:
        return Json::Value();
    case 1:
        return random.oneIn(2);
    case 2:
        return std::numeric_limits<Json::Int64>::max();
    case 3:
        return std::numeric_limits<Json::Int64>::min();
    case 4:
        return std::numeric_limits<Json::UInt64>::max();
    case 5:
        return std::numeric_limits<Json::Int>::min();
    case 6:
        return static_cast<Json::Int64>(random.below(5)) - 2;
    case 7:
        return random.oneIn(2) ? 1e300 : 0.1;
    case 8:
        return Json::Value(random.oneIn(2) ? Json::arrayValue : Json::objectValue);
    case 9: {
        Json::Value array(Json::arrayValue);
        for (std::size_t i = 1 + random.below(4); i > 0; --i)
            array.append(AnyText(random));
        return array;
    }
    default:
        return AnyText(random);
    }
}

// A value somewhere below `value`, or that itself.
Json::Value* AnyNode(Json::Value& value, Random& random) {
    Json::Value* node = &value;
    while ((node->isObject() || node->isArray()) && !node->empty() && !random.oneIn(5)) {
        auto child = node->begin();
        for (std::size_t skipped = random.below(node->size()); skipped > 0; --skipped)
            ++child;
        node = &*child;
    }
    return node;
}

void RemoveChild(Json::Value& node, Random& random) {
    if (node.isObject() && !node.empty()) {
        node.removeMember(node.getMemberNames()[random.below(node.size())]);
    } else if (node.isArray() && !node.empty()) {
        Json::Value removed;
        node.removeIndex(static_cast<Json::ArrayIndex>(random.below(node.size())), &removed);
    }
}

void AddChild(Json::Value& node, Random& random) {
    const Json::Value child =
        random.oneIn(3) ? Json::Value(*AnyNode(node, random)) : AnyValue(random);
    if (node.isArray())
        node.append(child);
    else if (node.isObject())
        node[AnyText(random)] = child;
}

void MutateTree(Json::Value& root, Random& random) {
    Json::Value& node = *AnyNode(root, random);
    switch (random.below(6)) {
    case 0:
        RemoveChild(node, random);
        break;
    case 1:
        AddChild(node, random);
        break;
    case 2: { // one level deeper
        Json::Value inner = node;
        node = Json::Value(Json::arrayValue);
        node.append(inner);
        break;
    }
    case 3: { // a value from elsewhere
        const Json::Value other = *AnyNode(root, random);
        if (other.size() < 64)
            node = other;
        break;
    }
    case 4:
        node =
            node.isString() ? Json::Value(MutateBytes(node.asString(), random)) : AnyValue(random);
        break;
    default:
        node = AnyValue(random);
        break;
    }
}

// Seeds are few and read once.
const Json::Value& ParsedSeed(const std::string& json) {
    static std::map<std::string, Json::Value> seeds;
    const auto known = seeds.find(json);
    if (known != seeds.end())
        return known->second;
    Json::Value value;
    Json::Reader().parse(json, value);
    return seeds.emplace(json, value).first->second;
}

} // namespace

std::string AnyText(Random& random) {
    switch (random.below(4)) {
    case 0:
        return RandomBytes(random);
    case 1:
        return RandomBytes(random) + random.oneOf(DifficultTexts());
    default:
        return random.oneOf(DifficultTexts());
    }
}

std::string MutateBytes(std::string bytes, Random& random) {
    for (std::size_t i = 1 + random.below(4); i > 0; --i)
        MutateOnce(bytes, random);
    if (bytes.size() > kLongestInput)
        bytes.resize(kLongestInput);
    return bytes;
}

std::string MutateJson(const std::string& json, Random& random) {
    Json::Value root = ParsedSeed(json);
    for (std::size_t i = 1 + random.below(4); i > 0; --i)
        MutateTree(root, random);
    return Json::FastWriter().write(root);
}

std::string HostileJson(const std::string& json, Random& random) {
    switch (random.below(8)) {
    case 0:
        return random.oneOf(DifficultJson());
    case 1:
        return MutateBytes(random.oneOf(DifficultJson()), random);
    case 2:
        return MutateBytes(json, random);
    case 3:
        return MutateBytes(MutateJson(json, random), random);
    default:
        return MutateJson(json, random);
    }
}

} // namespace fuzz
} // namespace orv
