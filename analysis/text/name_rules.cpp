#include "analysis/text/name_rules.h"

#include <algorithm>

namespace orv {
namespace {

constexpr wchar_t kIllegalNameChars[] = L"\\/:*?\"<>|%";

} // namespace

std::wstring TrimSpaces(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring::npos)
        return std::wstring();
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring StripChars(const std::wstring& text, const std::wstring& set) {
    std::wstring kept = text;
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&set](wchar_t c) { return set.find(c) != std::wstring::npos; }),
               kept.end());
    return kept;
}

bool HasIllegalNameChar(const std::wstring& text, const std::wstring& /*set*/) {
    // One look at each character. A regular expression would decide the same, but the standard
    // libraries match one with a call for each character, and a long text then overflows the stack.
    return text.find_first_of(kIllegalNameChars) != std::wstring::npos;
}

} // namespace orv
