#pragma once

#include <string>

namespace orv {

// The password of an archive with base name `baseName` (UTF-8): 24 lower-case hexadecimal
// characters, by the rule in docs/archive.md, which the client follows too. Empty when no digest
// could be made. Not to be logged, shown or kept.
std::string ArchivePassword(const std::string& baseName);

} // namespace orv
