// Small helpers for texts, paths and whole files. They are the stand-in's own, so that a mistake in
// the product's conversions cannot hide behind the same mistake here.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace standin {

// Converts between UTF-8 and UTF-16. What is not valid becomes U+FFFD.
std::string ToUtf8(const std::wstring& text);
std::wstring ToWide(const std::string& utf8);

// The same for a code page of Windows; CP_ACP is the system's own. What the page lacks becomes its
// question mark.
std::string ToBytes(const std::wstring& text, unsigned codePage);
std::wstring FromBytes(const std::string& bytes, unsigned codePage);

// True when both texts are equal apart from upper and lower case.
bool SameText(const std::wstring& left, const std::wstring& right);

// The part behind the last slash or backslash, and the part before it (without the separator).
std::wstring FileNameOf(const std::wstring& path);
std::wstring FolderOf(const std::wstring& path);

bool FileExists(const std::wstring& path);
bool CanBeWritten(const std::wstring& existingFile);

// An open stream of the C library, closed with its owner; null when it cannot be opened.
struct CloseStream {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;
Stream OpenStream(const std::wstring& path, const wchar_t* mode);

// Reads or writes a whole file as bytes. False when it cannot be done; `bytes` is then left as it
// was.
bool ReadWholeFile(const std::wstring& path, std::string& bytes);
bool WriteWholeFile(const std::wstring& path, const std::string& bytes);

} // namespace standin
