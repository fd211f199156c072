// The rules for names that end up in file names of the farm.
#pragma once

#include <string>

namespace orv {

// The characters that are deleted from a camera's name. A per cent sign is refused by
// HasIllegalNameChar as well, but stays in the name.
constexpr wchar_t kDeletedNameChars[] = L"\\/:*?\"<>|";

// `text` without leading and trailing blanks (U+0020 only; tabs stay).
std::wstring TrimSpaces(const std::wstring& text);

// `text` without every character of `set`; unchanged when either is empty.
std::wstring StripChars(const std::wstring& text, const std::wstring& set);

// Whether `text` holds a backslash, slash, colon, asterisk, question mark, double quote, less-than,
// greater-than, vertical bar or per cent sign. `set` does not change the answer: the set is fixed.
bool HasIllegalNameChar(const std::wstring& text, const std::wstring& set = std::wstring());

} // namespace orv
