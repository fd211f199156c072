#include "analysis/text/paths.h"

#include "analysis/text/names.h"
#include "base/windows.h"

#include <algorithm>

namespace orv {
namespace {

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

bool CanStandInPaths(wchar_t character) {
    return IsSeparator(character) || CanStandInFileNames(character);
}

bool IsLetter(wchar_t character) {
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

// Where the folders begin behind a drive or in front of a computer's name; 0 when the path has
// neither.
std::size_t RootLength(const std::wstring& path) {
    if (path.size() < 3)
        return 0;
    if (IsLetter(path[0]) && path[1] == L':' && IsSeparator(path[2]))
        return 3;
    const bool isNetwork = IsSeparator(path[0]) && IsSeparator(path[1]) && !IsSeparator(path[2]) &&
                           path[2] != L'.' && path[2] != L'?';
    return isNetwork ? 2 : 0;
}

std::size_t NameStart(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring::npos ? 0 : separator + 1;
}

std::size_t ExtensionStart(const std::wstring& path) {
    const std::size_t stop = path.rfind(L'.');
    return stop == std::wstring::npos || stop < NameStart(path) ? path.size() : stop;
}

template<class Text>
std::size_t BehindLastSlash(const Text& path) {
    std::size_t separator = path.rfind(typename Text::value_type('/'));
    if (separator == Text::npos)
        separator = path.rfind(typename Text::value_type('\\'));
    return separator == Text::npos ? 0 : separator + 1;
}

} // namespace

std::wstring FolderPart(const std::wstring& path) {
    return path.substr(0, NameStart(path));
}

std::wstring StemPart(const std::wstring& path) {
    return path.substr(NameStart(path), ExtensionStart(path) - NameStart(path));
}

std::wstring ExtensionPart(const std::wstring& path) {
    return path.substr(ExtensionStart(path));
}

std::wstring WithoutExtension(const std::wstring& path) {
    return path.substr(0, ExtensionStart(path));
}

std::size_t SceneFileNameStart(const std::string& path) {
    return BehindLastSlash(path);
}

std::size_t SceneFileNameStart(const std::wstring& path) {
    return BehindLastSlash(path);
}

bool IsSamePath(const std::wstring& left, const std::wstring& right) {
    return ::CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool IsFullPath(const std::wstring& path) {
    const std::size_t root = RootLength(path);
    return root != 0 && std::all_of(path.begin() + static_cast<std::ptrdiff_t>(root), path.end(),
                                    CanStandInPaths);
}

} // namespace orv
