// Taking paths apart. Paths of this product mix both separators, so both count everywhere.
#pragma once

#include <string>

namespace orv {

// The longest path that Windows takes from most programs. Longer ones are refused, never cut.
constexpr std::size_t kLongestPath = 259;

// Everything up to and including the last separator; empty when there is none.
std::wstring FolderPart(const std::wstring& path);

// The file's name without folder and extension, and the extension with its full stop (may be
// empty).
std::wstring StemPart(const std::wstring& path);
std::wstring ExtensionPart(const std::wstring& path);

// FolderPart and StemPart together.
std::wstring WithoutExtension(const std::wstring& path);

// Where the file's name begins in the path of a scene: behind the last slash or, in a path without
// any, behind the last backslash; 0 when the path has no separator. The host's scripts write
// slashes, and a backslash between them is part of a name.
std::size_t SceneFileNameStart(const std::string& path);
std::size_t SceneFileNameStart(const std::wstring& path);

// Whether two paths are the same text but for capitals, which Windows ignores in a path.
bool IsSamePath(const std::wstring& left, const std::wstring& right);

// Whether `path` is absolute, from a drive ("D:\a", "D:/a") or a computer of the network
// ("\\server\a"), and has only characters that names can have (CanStandInFileNames). False for
// device paths ("\\.\pipe").
bool IsFullPath(const std::wstring& path);

} // namespace orv
