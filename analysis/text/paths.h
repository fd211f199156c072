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

// FolderPart and StemPart together.
std::wstring WithoutExtension(const std::wstring& path);

// Where the file's name begins in the path of a scene: behind the last slash or, in a path without
// any, behind the last backslash; 0 when the path has no separator. The host's scripts write
// slashes, and a backslash between them is part of a name.
std::size_t SceneFileNameStart(const std::string& path);
std::size_t SceneFileNameStart(const std::wstring& path);

// Whether two paths are the same text but for capitals, which Windows ignores in a path.
bool IsSamePath(const std::wstring& left, const std::wstring& right);

// Whether the path says by itself where it is, from a drive ("D:\a", "D:/a") or a computer of the
// network ("\\server\a"), and has no character that names cannot have (CanStandInFileNames). Device
// paths ("\\.\pipe") are none.
bool IsFullPath(const std::wstring& path);

} // namespace orv
