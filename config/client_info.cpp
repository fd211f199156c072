#include "config/client_info.h"

#include <algorithm>

namespace orv {
namespace {

// Far more than any address; keeps a file of gigabytes from taking the host's memory.
constexpr LONGLONG kMaximumBytes = 64LL * 1024 * 1024;

} // namespace

bool ReadWideText(HANDLE file, std::wstring& text, DWORD& error) {
    LARGE_INTEGER size = {};
    if (!::GetFileSizeEx(file, &size)) {
        error = ::GetLastError();
        return false;
    }
    const auto length =
        static_cast<std::size_t>(std::min(size.QuadPart, kMaximumBytes)) / sizeof(wchar_t);
    std::wstring content(length + 1, L'\0'); // never without the zero that ends the text
    DWORD read = 0;
    if (!::ReadFile(file, &content[0], static_cast<DWORD>(length * sizeof(wchar_t)), &read,
                    nullptr)) {
        error = ::GetLastError();
        return false;
    }
    content.resize(content.find(L'\0'));
    text.swap(content);
    return true;
}

bool TakeCustomAddress(const std::wstring& text, std::wstring& address) {
    const std::size_t sign = text.find(L'=');
    if (sign == std::wstring::npos)
        return false;
    address = text.substr(sign + 1);
    return true;
}

} // namespace orv
