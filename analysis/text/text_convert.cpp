#include "analysis/text/text_convert.h"

#include "base/noncopyable.h"
#include "base/windows.h"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

namespace orv {
namespace {

constexpr char kChineseLocale[] = "chs";

constexpr int kShortText = 260; // bytes; most paths and names are shorter

// The system's functions count in int and refuse the length 0.
bool FitsInt(std::size_t length) {
    return length > 0 && length <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

constexpr std::uint32_t kReplacement = 0xFFFD;

bool IsSurrogate(wchar_t unit) {
    return (unit & 0xF800) == 0xD800;
}

// The bytes that a text takes in UTF-8. The system's own measuring takes half as long as its
// conversion; these sums, which the compiler does for many characters at once, a tenth. That counts
// for the report of a large scene.
std::size_t Utf8Size(const std::wstring& text) {
    constexpr std::size_t kBlock = 4096; // its sums fit 32 bits
    std::size_t size = text.size();
    std::uint32_t surrogates = 0;
    for (std::size_t begin = 0; begin < text.size(); begin += kBlock) {
        const std::size_t count = std::min(kBlock, text.size() - begin);
        const wchar_t* const units = &text[begin];
        std::uint32_t more = 0;
        for (std::size_t i = 0; i < count; ++i) {
            more += (units[i] >= 0x80 ? 1U : 0U) + (units[i] >= 0x800 ? 1U : 0U);
            surrogates |= IsSurrogate(units[i]) ? 1U : 0U;
        }
        size += more;
    }
    if (surrogates == 0)
        return size;
    size = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        size += Utf8SizeAt(text, i);
    return size;
}

constexpr std::size_t kRun = 8; // units, as many as the processor takes at once

bool IsAsciiRun(const wchar_t* units) {
    unsigned all = 0;
    for (std::size_t i = 0; i < kRun; ++i)
        all |= units[i];
    return all < 0x80;
}

char* WriteBytes(std::uint32_t code, int following, char* to) {
    constexpr unsigned kLeads[] = {0, 0xC0, 0xE0, 0xF0}; // by the bytes that follow
    *to++ = static_cast<char>(kLeads[following] | code >> (6 * following));
    while (following > 0) {
        --following;
        *to++ = static_cast<char>(0x80 | (code >> (6 * following) & 0x3F));
    }
    return to;
}

// Writes the character at `at`, and moves `at` behind it.
char* WriteCharacter(const wchar_t*& at, const wchar_t* end, char* to) {
    const std::uint32_t unit = *at++;
    if (unit < 0x80)
        return WriteBytes(unit, 0, to);
    if (unit < 0x800)
        return WriteBytes(unit, 1, to);
    if (!IsSurrogate(static_cast<wchar_t>(unit)))
        return WriteBytes(unit, 2, to);
    if (at == end || !IS_SURROGATE_PAIR(unit, *at))
        return WriteBytes(kReplacement, 2, to);
    const std::uint32_t low = *at++;
    return WriteBytes(0x10000 + ((unit & 0x3FF) << 10 | (low & 0x3FF)), 3, to);
}

// The system's conversion takes a fifth of the time that parsing a large report takes, this one a
// tenth: most of a report are runs of ASCII characters.
std::string Utf8Of(const std::wstring& text) {
    const std::size_t size = Utf8Size(text);
    if (!FitsInt(size))
        return std::string();
    std::string result(size, '\0');
    char* to = &result[0];
    const wchar_t* at = text.data();
    const wchar_t* const end = at + text.size();
    while (at != end) {
        const std::size_t rest = static_cast<std::size_t>(end - at);
        const wchar_t* const runEnd = at + std::min(kRun, rest);
        if (rest >= kRun && IsAsciiRun(at)) {
            for (std::size_t i = 0; i < kRun; ++i)
                to[i] = static_cast<char>(at[i]);
            to += kRun;
            at = runEnd;
        }
        while (at < runEnd) // a pair may reach beyond
            to = WriteCharacter(at, end, to);
    }
    return result;
}

// Measures first, then converts into a buffer of that size. Empty when the system refuses.
std::string FromWide(UINT codePage, DWORD flags, const std::wstring& text) {
    if (!FitsInt(text.size()))
        return std::string();
    if (codePage == CP_UTF8)
        return Utf8Of(text);
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
    wchar_t units[kShortText]; // a text has never more UTF-16 units than bytes
    if (length <= kShortText)
        return std::wstring(units, static_cast<std::size_t>(::MultiByteToWideChar(
                                       codePage, flags, text.data(), length, units, kShortText)));
    const int size = ::MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    if (size > 0)
        ::MultiByteToWideChar(codePage, flags, text.data(), length, &result[0], size);
    return result;
}

constexpr std::size_t kRefused = static_cast<std::size_t>(-1);

// The dialog's thread and the submit worker both convert. Each sets the locale of the whole
// process, so without taking turns one would convert with the code page that the other has just
// restored.
std::mutex& LocaleMutex() {
    static std::mutex mutex;
    return mutex;
}

std::string CurrentLocale() {
    const char* name = std::setlocale(LC_ALL, nullptr);
    return name == nullptr ? "C" : name;
}

// Sets `locale` for its scope and `after` at the end. When the system lacks `locale`, the one that
// is current stays.
class LocaleScope : private rud_Noncopyable {
public:
    LocaleScope(const char* locale, std::string after)
        : after_(std::move(after)), found_(std::setlocale(LC_ALL, locale) != nullptr) {}
    ~LocaleScope() { std::setlocale(LC_ALL, after_.c_str()); }

    bool found() const { return found_; }

private:
    const std::string after_;
    const bool found_;
};

template<class Text>
bool IsAscii(const Text& text) {
    return std::all_of(text.begin(), text.end(),
                       [](typename Text::value_type c) { return c >= 0 && c < 128; });
}

// The run-time's functions end at a zero character. The text is therefore taken piece by piece, and
// the zeros between the pieces are put back. `convert` appends one piece and returns whether it
// could.
template<class To, class From, class Convert>
To ConvertPieces(const From& text, bool& exact, Convert convert) {
    To result;
    std::size_t start = 0;
    for (;;) {
        const std::size_t zero = text.find(typename From::value_type(0), start);
        const bool last = zero == From::npos;
        if (!convert(text.substr(start, last ? From::npos : zero - start), result)) {
            exact = false;
            return To();
        }
        if (last)
            return result;
        result += typename To::value_type(0);
        start = zero + 1;
    }
}

bool AppendWide(const std::string& piece, std::wstring& result) {
    std::vector<wchar_t> buffer(piece.size() + 1);
    const std::size_t count = std::mbstowcs(buffer.data(), piece.c_str(), buffer.size());
    if (count == kRefused)
        return false;
    result.append(buffer.data(), count);
    return true;
}

bool AppendMultibyte(const std::wstring& piece, std::string& result) {
    std::vector<char> buffer(2 * piece.size() + 1);
    const std::size_t count = std::wcstombs(buffer.data(), piece.c_str(), buffer.size());
    if (count == kRefused)
        return false;
    // The system may put a look-alike for a character that the code page lacks. Only what reads
    // back as the same text is that text.
    const std::string bytes(buffer.data(), count);
    std::wstring back;
    if (!AppendWide(bytes, back) || back != piece)
        return false;
    result += bytes;
    return true;
}

} // namespace

std::size_t Utf8SizeAt(const std::wstring& text, std::size_t position) {
    const wchar_t unit = text[position];
    if (!IsSurrogate(unit))
        return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
    const bool isPaired =
        (position + 1 < text.size() && IS_SURROGATE_PAIR(unit, text[position + 1])) ||
        (position > 0 && IS_SURROGATE_PAIR(text[position - 1], unit));
    return isPaired ? 2 : 3; // a lone one becomes U+FFFD
}

// A text is exact when it reads back as itself. That one question covers lone surrogates,
// ill-formed bytes, look-alikes, default characters and refusals, in every code page, UTF-8 as the
// ANSI one too.

std::string WideToUtf8(const std::wstring& text, bool* exact) {
    std::string result = FromWide(CP_UTF8, 0, text);
    if (exact != nullptr) // not computed unasked: a report is large
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
    if (exact != nullptr)
        *exact = same;
    return same ? result : std::string();
}

std::wstring MultibyteToWide(const std::string& text, const char* locale, bool& exact) {
    const std::lock_guard<std::mutex> lock(LocaleMutex());
    const LocaleScope scope(locale, "C");
    exact = scope.found() || IsAscii(text);
    return ConvertPieces<std::wstring>(text, exact, AppendWide);
}

std::string WideToMultibyte(const std::wstring& text, const char* locale, bool& exact) {
    const std::lock_guard<std::mutex> lock(LocaleMutex());
    const LocaleScope scope(locale, CurrentLocale());
    exact = scope.found() || IsAscii(text);
    return ConvertPieces<std::string>(text, exact, AppendMultibyte);
}

std::wstring AnsiToWide(const std::string& text, bool* exact) {
    bool same = false;
    std::wstring result = MultibyteToWide(text, kChineseLocale, same);
    if (exact != nullptr)
        *exact = same;
    return result;
}

std::string WideToAnsi(const std::wstring& text, bool* exact) {
    bool same = false;
    std::string result = WideToMultibyte(text, kChineseLocale, same);
    if (exact != nullptr)
        *exact = same;
    return result;
}

} // namespace orv
