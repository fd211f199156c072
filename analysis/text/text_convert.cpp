#include "analysis/text/text_convert.h"

#include "analysis/text/locale_convert.h"
#include "base/windows.h"

#include <limits>

namespace orv {
namespace {

constexpr char kChineseLocale[] = "chs";

void Tell(bool* exact, bool value) {
    if (exact != nullptr)
        *exact = value;
}

// The system's functions count in int and refuse the length 0.
bool FitsInt(std::size_t length) {
    return length > 0 && length <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

// Measures first, then converts into a buffer of that size. Empty when the system refuses.
std::string FromWide(UINT codePage, DWORD flags, const std::wstring& text) {
    if (!FitsInt(text.size()))
        return std::string();
    const int length = static_cast<int>(text.size());
    const int size =
        ::WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    if (size > 0)
        ::WideCharToMultiByte(codePage, flags, text.data(), length, &result[0], size, nullptr,
                              nullptr);
    return result;
}

std::wstring ToWide(UINT codePage, DWORD flags, const std::string& text) {
    if (!FitsInt(text.size()))
        return std::wstring();
    const int length = static_cast<int>(text.size());
    const int size = ::MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    if (size > 0)
        ::MultiByteToWideChar(codePage, flags, text.data(), length, &result[0], size);
    return result;
}

} // namespace

// A text is exact when it reads back as itself. That one question covers lone surrogates,
// ill-formed bytes, look-alikes, default characters and refusals, in every code page, UTF-8 as the
// ANSI one too.

std::string WideToUtf8(const std::wstring& text, bool* exact) {
    std::string result = FromWide(CP_UTF8, 0, text);
    if (exact != nullptr) // a report is large: nobody waits for what nobody asks
        *exact = ToWide(CP_UTF8, 0, result) == text;
    return result;
}

std::wstring Utf8ToWide(const std::string& text, bool* exact) {
    std::wstring result = ToWide(CP_UTF8, 0, text);
    if (exact != nullptr)
        *exact = FromWide(CP_UTF8, 0, result) == text;
    return result;
}

std::string Utf8ToAnsi(const std::string& text, bool* exact) {
    bool exactWide = false;
    const std::wstring wide = Utf8ToWide(text, &exactWide);
    std::string result = FromWide(CP_ACP, 0, wide);
    const bool same = exactWide && ToWide(CP_ACP, 0, result) == wide;
    Tell(exact, same);
    return same ? result : std::string();
}

std::wstring AnsiToWide(const std::string& text, bool* exact) {
    bool same = false;
    std::wstring result = MultibyteToWide(text, kChineseLocale, same);
    Tell(exact, same);
    return result;
}

std::string WideToAnsi(const std::wstring& text, bool* exact) {
    bool same = false;
    std::string result = WideToMultibyte(text, kChineseLocale, same);
    Tell(exact, same);
    return result;
}

} // namespace orv
