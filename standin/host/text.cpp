#include "standin/host/text.h"

#include "base/windows.h"

namespace standin {
namespace {

std::size_t LastSeparator(const std::wstring& path) {
    return path.find_last_of(L"/\\");
}

} // namespace

std::string ToBytes(const std::wstring& text, unsigned codePage) {
    const int length = static_cast<int>(text.size());
    const int need =
        WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(need), '\0');
    if (need > 0) {
        WideCharToMultiByte(codePage, 0, text.data(), length, &bytes[0], need, nullptr, nullptr);
    }
    return bytes;
}

std::wstring FromBytes(const std::string& bytes, unsigned codePage) {
    const int length = static_cast<int>(bytes.size());
    const int need = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(need), L'\0');
    if (need > 0) {
        MultiByteToWideChar(codePage, 0, bytes.data(), length, &text[0], need);
    }
    return text;
}

std::string ToUtf8(const std::wstring& text) {
    return ToBytes(text, CP_UTF8);
}

std::wstring ToWide(const std::string& utf8) {
    return FromBytes(utf8, CP_UTF8);
}

bool SameText(const std::wstring& left, const std::wstring& right) {
    return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

std::wstring FileNameOf(const std::wstring& path) {
    const std::size_t separator = LastSeparator(path);
    return separator == std::wstring::npos ? path : path.substr(separator + 1);
}

std::wstring FolderOf(const std::wstring& path) {
    const std::size_t separator = LastSeparator(path);
    return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator);
}

bool FileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

Stream OpenStream(const std::wstring& path, const wchar_t* mode) {
    return Stream(_wfopen(path.c_str(), mode));
}

bool CanBeWritten(const std::wstring& existingFile) {
    // An administrator may open a read-only file all the same, so the mark is asked for.
    const DWORD attributes = GetFileAttributesW(existingFile.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) == 0 &&
           OpenStream(existingFile, L"r+b") != nullptr;
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes) {
    const Stream file = OpenStream(path, L"rb");
    if (!file) {
        return false;
    }
    std::string content;
    char block[16384];
    std::size_t count = 0;
    while ((count = std::fread(block, 1, sizeof(block), file.get())) > 0) {
        content.append(block, count);
    }
    if (std::ferror(file.get()) != 0) {
        return false;
    }
    bytes.swap(content);
    return true;
}

bool WriteWholeFile(const std::wstring& path, const std::string& bytes) {
    const Stream file = OpenStream(path, L"wb");
    if (!file) {
        return false;
    }
    return std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
           std::fflush(file.get()) == 0;
}

} // namespace standin
