// Real files for tests. Failures throw std::runtime_error, which fails the test that meets them.
#pragma once

#include "base/handles.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

std::string ReadFileBytes(const std::wstring& path);

// Writes the whole file; folders that are missing are created first.
void WriteFileBytes(const std::wstring& path, const std::string& bytes);

bool PathExists(const std::wstring& path);

// Creates the folder and every missing folder above it; either slash separates them.
void MakeFolders(const std::wstring& path);

// The names in a folder, sorted, without "." and ".."; empty when the folder does not exist.
std::vector<std::wstring> ListFolder(const std::wstring& path);

// Deletes a file, or a folder with all that is in it. A log file (.log) that is still held open is
// emptied instead, so that the next test starts with an empty log. True when nothing is left
// behind.
bool DeleteTree(const std::wstring& path);

// Opens or creates the file and denies all access to others as long as the owner lives.
FileHandle HoldExclusively(const std::wstring& path);

// The bytes of UTF-16LE text without a byte-order mark, as custom.bin holds them.
std::string Utf16Bytes(const std::wstring& text);

} // namespace test
} // namespace orv
