// Texts that programs are known to stumble over. Each table holds one example of a kind.
#pragma once

#include <string>
#include <vector>

namespace orv {
namespace fuzz {

// Bytes that are or resemble UTF-8: names, paths, numbers, control characters, broken sequences,
// quoting, and names that Windows gives a meaning.
const std::vector<std::string>& DifficultTexts();

// Whole documents that are JSON, nearly JSON, or JSON that strains a reader: deep, long, with
// numbers beyond every type, with doubled keys, comments, marks and broken escapes.
const std::vector<std::string>& DifficultJson();

} // namespace fuzz
} // namespace orv
