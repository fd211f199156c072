// Taking paths apart. Paths of this product mix both separators, so both count everywhere.
#pragma once

#include <string>

namespace orv {

// Windows refuses longer paths to most programs, and so do we, rather than cut one.
constexpr std::size_t kLongestPath = 259;

// Everything up to and including the last separator; empty when there is none.
std::wstring FolderPart(const std::wstring& path);

// The file's name without folder and extension, and the extension with its full stop (may be
// empty).
std::wstring StemPart(const std::wstring& path);
std::wstring ExtensionPart(const std::wstring& path);

} // namespace orv
