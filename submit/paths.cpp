#include "submit/paths.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace orv {
namespace {

constexpr wchar_t kNeverInNames[] = L":*?\"<>|"; // and the separators, and control characters

const wchar_t* const kDevices[] = {L"con", L"prn", L"aux", L"nul", L"conin$", L"conout$"};
const wchar_t* const kNumberedDevices[] = {L"com", L"lpt"};
constexpr std::size_t kNumberedDeviceLength = 3;

// The digits that Windows takes for a port's number, among them the raised ones.
constexpr wchar_t kPortDigits[] = L"123456789\u00B9\u00B2\u00B3";

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

bool CanStandInNames(wchar_t character) {
    return character >= L' ' && std::wcschr(kNeverInNames, character) == nullptr;
}

bool IsLetter(wchar_t character) {
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

bool SameText(const std::wstring& left, const wchar_t* right) {
    return ::_wcsicmp(left.c_str(), right) == 0;
}

bool IsDevice(const std::wstring& name) {
    return std::any_of(std::begin(kDevices), std::end(kDevices),
                       [&name](const wchar_t* device) { return SameText(name, device); });
}

bool IsNumberedDevice(const std::wstring& name) {
    if (name.size() != kNumberedDeviceLength + 1 ||
        std::wcschr(kPortDigits, name.back()) == nullptr)
        return false;
    const std::wstring kind = name.substr(0, kNumberedDeviceLength);
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices),
                       [&kind](const wchar_t* device) { return SameText(kind, device); });
}

// Windows looks at what stands before the first full stop, blanks at its end left out.
bool NamesDevice(const std::wstring& fileName) {
    std::wstring name = fileName.substr(0, fileName.find(L'.'));
    name.erase(name.find_last_not_of(L' ') + 1);
    return IsDevice(name) || IsNumberedDevice(name);
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

bool IsFullPath(const std::wstring& path) {
    const std::size_t root = RootLength(path);
    return root != 0 && std::all_of(path.begin() + static_cast<std::ptrdiff_t>(root), path.end(),
                                    CanStandInNames);
}

bool IsPlainFileName(const std::wstring& name) {
    return !name.empty() && name.back() != L' ' && name.back() != L'.' &&
           std::all_of(name.begin(), name.end(),
                       [](wchar_t character) {
                           return CanStandInNames(character) && !IsSeparator(character);
                       }) &&
           !NamesDevice(name);
}

} // namespace orv
