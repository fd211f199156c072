#include "ui/main_dialog/scene_name_rule.h"

#include <algorithm>
#include <cwchar>

namespace orv {
namespace {

// The punctuation of names, the full-width kind by code so that no editor can change it. The back
// quote is missing on purpose.
const wchar_t kPunctuation[] =
    L" ~!@#$&^(){}:.\\;',[]+_=-"
    L"\u2014\u2018\u2019\u201C\u201D\u2026"             // — ‘ ’ “ ” …
    L"\u3001\u3002\u300A\u300B\u300C\u300D\u3010\u3011" // 、 。 《 》 「 」 【 】
    L"\uFF01\uFF08\uFF09\uFF0C\uFF1B\uFFE5";            // ！ （ ） ， ； ￥

bool IsBetween(wchar_t character, wchar_t first, wchar_t last) {
    return first <= character && character <= last;
}

// A class test, not a regular expression: std::wregex recurses once a character and a long enough
// name would overflow the host's stack.
bool IsSceneNameCharacter(wchar_t character) {
    return IsBetween(character, L'A', L'Z') || IsBetween(character, L'a', L'z') ||
           IsBetween(character, L'0', L'9') || IsBetween(character, L'\u4E00', L'\u9FFF') ||
           (character != L'\0' && std::wcschr(kPunctuation, character) != nullptr);
}

} // namespace

bool HasOnlySceneNameCharacters(const std::wstring& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), IsSceneNameCharacter);
}

std::wstring WithoutExtension(const std::wstring& fileName) {
    return fileName.substr(0, fileName.rfind(L'.'));
}

bool IsSceneFileNameAccepted(const std::wstring& fileName) {
    if (fileName.empty())
        return true;
    const std::wstring name = WithoutExtension(fileName);
    // The client makes a folder of this name, and Windows drops a blank or "." at the end of one.
    return HasOnlySceneNameCharacters(name) && name.back() != L' ' && name.back() != L'.';
}

} // namespace orv
