// The names that a loaded library exports and imports.
#pragma once

#include "base/windows.h"

#include <map>
#include <set>
#include <string>

namespace orv {
namespace test {

std::set<std::string> ExportedNames(HMODULE module);

// By library, in lower case; an import by number is "#" and the number.
std::map<std::string, std::set<std::string>> ImportedNames(HMODULE module);

} // namespace test
} // namespace orv
