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

// Whether the path says by itself where it is, from a drive ("D:\a", "D:/a") or a computer of the
// network ("\\server\a"), and has no character that names cannot have. Device paths
// ("\\.\pipe") are none.
bool IsFullPath(const std::wstring& path);

// Whether `name` names a plain file in whatever folder it is put: it has no separator, no colon
// (which would name a stream behind a file), no wildcard, quote, bar or control character, does not
// end in a blank or full stop, and is no name of a device, such as "con.max".
bool IsPlainFileName(const std::wstring& name);

} // namespace orv
