// Making inputs hostile. All of it is decided by the Random that is handed in.
#pragma once

#include "tests/fuzz/random.h"

#include <string>

namespace orv {
namespace fuzz {

// A text from nothing: a difficult one, a short random one, or two joined.
std::string AnyText(Random& random);

// `bytes` after one to four changes that know nothing of their meaning: bits, bytes, pieces
// removed, doubled, moved or put in.
std::string MutateBytes(std::string bytes, Random& random);

// `json` (a JSON document) after one to four changes of its values: other types, difficult texts,
// numbers at the limits, members gone, doubled, renamed, nested. Still JSON.
std::string MutateJson(const std::string& json, Random& random);

// What a reader of JSON is given: mostly MutateJson, often with MutateBytes after it, sometimes a
// difficult document.
std::string HostileJson(const std::string& json, Random& random);

} // namespace fuzz
} // namespace orv
