#include "submit/paths.h"

namespace orv {
namespace {

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

} // namespace orv
