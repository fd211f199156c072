#include "analysis/reference_names.h"

#include <algorithm>

namespace orv {
namespace {

// The class of each character is tested by itself. A regular expression would say the same, but the
// usual libraries recurse once a character, and a path of 30,000 characters overflows the stack.

constexpr wchar_t kAsciiPunctuation[] = L"~!@#$&^(){}:\\; '`,.[]+_=/-";

// Full-width forms and typographic punctuation. Written by number, because several of them look
// alike.
constexpr wchar_t kWidePunctuation[] = {
    0xFF01, 0xFFE5, 0x2026, 0xFF08, 0xFF09, 0x2014, // exclamation, yen, ellipsis, parentheses, dash
    0x300C, 0x300D, 0x3010, 0x3011, 0x300A, 0x300B, // brackets in three forms
    0x3001, 0xFF1B, 0xFF0C, 0x3002, 0x00B7, // enumeration comma, semicolon, comma, stop, dot
    0x201C, 0x201D, 0x2018, 0x2019,         // quotation marks
};

bool IsBetween(wchar_t character, wchar_t first, wchar_t last) {
    return first <= character && character <= last;
}

template<std::size_t count>
bool IsOneOf(wchar_t character, const wchar_t (&set)[count]) {
    return std::find(set, set + count, character) != set + count;
}

bool IsLegal(wchar_t character) {
    return IsBetween(character, L'A', L'Z') || IsBetween(character, L'a', L'z') ||
           IsBetween(character, L'0', L'9') || IsBetween(character, 0x4E00, 0x9FFF) ||
           (character != 0 && IsOneOf(character, kAsciiPunctuation)) ||
           IsOneOf(character, kWidePunctuation);
}

} // namespace

bool HasCyrillic(const std::wstring& path) {
    return std::any_of(path.begin(), path.end(),
                       [](wchar_t character) { return IsBetween(character, 0x0400, 0x052F); });
}

bool IsLegalReferenceName(const std::wstring& path) {
    return !path.empty() && std::all_of(path.begin(), path.end(), IsLegal);
}

} // namespace orv
