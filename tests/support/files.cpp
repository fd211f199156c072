#include "tests/support/files.h"

#include <algorithm>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void Fail(const char* what, const std::wstring& path) {
    const DWORD error = ::GetLastError();
    std::string message = std::string(what) + " ";
    for (const wchar_t c : path)
        message += c < 128 ? static_cast<char>(c) : '?';
    throw std::runtime_error(message + ": error " + std::to_string(error));
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool EmptyLog(const std::wstring& path) {
    const std::wstring suffix = L".log";
    if (path.size() < suffix.size() ||
        path.compare(path.size() - suffix.size(), suffix.size(), suffix) != 0)
        return false;
    const FileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr,
                                        TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(file);
}

} // namespace

std::string ReadFileBytes(const std::wstring& path) {
    const FileHandle file(::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        Fail("cannot open", path);
    std::string bytes;
    char buffer[65536];
    DWORD read = 0;
    do {
        if (!::ReadFile(file.get(), buffer, sizeof(buffer), &read, nullptr))
            Fail("cannot read", path);
        bytes.append(buffer, read);
    } while (read > 0);
    return bytes;
}

void WriteFileBytes(const std::wstring& path, const std::string& bytes) {
    const std::size_t slash = path.find_last_of(L"\\/");
    if (slash != std::wstring::npos)
        MakeFolders(path.substr(0, slash));
    const FileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr,
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        Fail("cannot create", path);
    DWORD written = 0;
    if (!::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) ||
        written != bytes.size())
        Fail("cannot write", path);
}

bool PathExists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void MakeFolders(const std::wstring& path) {
    if (path.empty() || path.back() == L':' || IsFolder(path))
        return;
    const std::size_t slash = path.find_last_of(L"\\/");
    if (slash != std::wstring::npos)
        MakeFolders(path.substr(0, slash));
    if (!::CreateDirectoryW(path.c_str(), nullptr) && !IsFolder(path))
        Fail("cannot create the folder", path);
}

std::vector<std::wstring> ListFolder(const std::wstring& path) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW entry = {};
    const FindHandle find(::FindFirstFileW((path + L"\\*").c_str(), &entry));
    if (!find)
        return names;
    do {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L"..")
            names.push_back(name);
    } while (::FindNextFileW(find.get(), &entry));
    std::sort(names.begin(), names.end());
    return names;
}

bool DeleteTree(const std::wstring& path) {
    if (!PathExists(path))
        return true;
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!IsFolder(path)) {
        if (::DeleteFileW(path.c_str()))
            return true;
        EmptyLog(path);
        return false;
    }
    bool complete = true;
    const std::wstring prefix = path + L"\\";
    for (const std::wstring& name : ListFolder(path))
        complete = DeleteTree(prefix + name) && complete;
    return ::RemoveDirectoryW(path.c_str()) && complete;
}

FileHandle HoldExclusively(const std::wstring& path) {
    FileHandle file(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        Fail("cannot hold", path);
    return file;
}

std::string Utf16Bytes(const std::wstring& text) {
    std::string bytes;
    for (const wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>((c >> 8) & 0xFF);
    }
    return bytes;
}

} // namespace test
} // namespace orv
