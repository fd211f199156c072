#include "analysis/text/names.h"

#include "analysis/text/paths.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <iterator>

namespace orv {
namespace {

// Every rule looks at one character after the other. A regular expression would say the same, but
// the usual libraries recurse once a character, and a text of 30,000 characters overflows the
// host's stack.

constexpr wchar_t kPerCent = L'%';
constexpr wchar_t kBackQuote = L'`';

// The punctuation of scene names, the full-width kind by code so that no editor can change it. The
// back quote is missing on purpose.
constexpr wchar_t kScenePunctuation[] =
    L" ~!@#$&^(){}:.\\;',[]+_=-"
    L"\u2014\u2018\u2019\u201C\u201D\u2026"             // — ‘ ’ “ ” …
    L"\u3001\u3002\u300A\u300B\u300C\u300D\u3010\u3011" // 、 。 《 》 「 」 【 】
    L"\uFF01\uFF08\uFF09\uFF0C\uFF1B\uFFE5";            // ！ （ ） ， ； ￥

// What the path of a reference may have besides.
constexpr wchar_t kReferencePunctuation[] = L"/`\u00B7"; // the last is ·

constexpr wchar_t kSceneExtension[] = L".max";
constexpr std::size_t kSceneExtensionLength = 4;

constexpr std::size_t kMostOutputCharactersRead = 260;
constexpr std::size_t kMostOutputCharacters = 100;

const wchar_t* const kDevices[] = {L"con", L"prn", L"aux", L"nul", L"conin$", L"conout$"};
const wchar_t* const kNumberedDevices[] = {L"com", L"lpt"};
constexpr std::size_t kNumberedDeviceLength = 3;

// The digits that Windows takes for a port's number, among them the raised ones.
constexpr wchar_t kPortDigits[] = L"123456789\u00B9\u00B2\u00B3";

bool IsBetween(wchar_t character, wchar_t first, wchar_t last) {
    return first <= character && character <= last;
}

// Whether `set`, which ends with a zero character, has `character`.
bool IsIn(wchar_t character, const wchar_t* set) {
    return character != L'\0' && std::wcschr(set, character) != nullptr;
}

bool IsSceneNameCharacter(wchar_t character) {
    return IsBetween(character, L'A', L'Z') || IsBetween(character, L'a', L'z') ||
           IsBetween(character, L'0', L'9') || IsBetween(character, L'\u4E00', L'\u9FFF') ||
           IsIn(character, kScenePunctuation);
}

bool IsReferenceCharacter(wchar_t character) {
    return IsSceneNameCharacter(character) || IsIn(character, kReferencePunctuation);
}

// Windows drops a blank or full stop at the end of a name.
bool IsBlankOrStop(wchar_t character) {
    return character == L' ' || character == L'.';
}

bool HasBackQuote(const std::wstring& name) {
    return name.find(kBackQuote) != std::wstring::npos;
}

bool IsSameText(const std::wstring& left, const wchar_t* right) {
    return ::_wcsicmp(left.c_str(), right) == 0;
}

bool IsDevice(const std::wstring& name) {
    return std::any_of(std::begin(kDevices), std::end(kDevices),
                       [&name](const wchar_t* device) { return IsSameText(name, device); });
}

bool IsNumberedDevice(const std::wstring& name) {
    if (name.size() != kNumberedDeviceLength + 1 || !IsIn(name.back(), kPortDigits))
        return false;
    const std::wstring kind = name.substr(0, kNumberedDeviceLength);
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices),
                       [&kind](const wchar_t* device) { return IsSameText(kind, device); });
}

// Windows compares the part before the first full stop, without blanks at its end.
bool NamesDevice(const std::wstring& fileName) {
    std::wstring name = fileName.substr(0, fileName.find(L'.'));
    name.erase(name.find_last_not_of(L' ') + 1);
    return IsDevice(name) || IsNumberedDevice(name);
}

constexpr std::size_t kAsciiCount = 128;

struct ReferenceAscii {
    ReferenceAscii() {
        for (std::size_t code = 0; code < kAsciiCount; ++code)
            isLegal[code] = IsReferenceCharacter(static_cast<wchar_t>(code));
    }

    std::array<bool, kAsciiCount> isLegal{};
};

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

struct Character {
    wchar_t code;
    std::size_t length; // bytes, 0 when the bytes are not a character of this range
};

// The character of two or three bytes at `bytes`, which end with a zero byte. That zero is no
// continuation, so nothing behind it is looked at. Forms that are longer than they have to be, and
// halves of surrogate pairs, come out as characters that are not legal anyway.
Character CharacterAt(const unsigned char* bytes) {
    const bool hasTwo = bytes[0] >= 0xC2 && bytes[0] < 0xF0 && IsContinuation(bytes[1]);
    if (hasTwo && bytes[0] < 0xE0)
        return {static_cast<wchar_t>(((bytes[0] & 0x1FU) << 6U) | (bytes[1] & 0x3FU)), 2};
    if (hasTwo && bytes[0] > 0xE0 && IsContinuation(bytes[2]))
        return {static_cast<wchar_t>(((bytes[0] & 0x0FU) << 12U) | ((bytes[1] & 0x3FU) << 6U) |
                                     (bytes[2] & 0x3FU)),
                3};
    return {0, 0};
}

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
    return text.find_first_of(kDeletedNameChars) != std::wstring::npos ||
           text.find(kPerCent) != std::wstring::npos;
}

OutputName CheckOutputName(const std::wstring& text) {
    const std::wstring name = text.substr(0, kMostOutputCharactersRead);
    if (name.size() > kMostOutputCharacters)
        return OutputName::TooLong;
    return HasIllegalNameChar(name) ? OutputName::HasForbidden : OutputName::Accepted;
}

std::wstring WithoutIllegalNameChars(const std::wstring& text) {
    return StripChars(text, std::wstring(kDeletedNameChars) + kPerCent);
}

OuterBlank OuterBlankOf(const std::wstring& name) {
    if (name.empty())
        return OuterBlank::None;
    if (name.front() == L' ')
        return OuterBlank::Front;
    return name.back() == L' ' ? OuterBlank::Back : OuterBlank::None;
}

bool IsUsableCameraName(const std::wstring& name) {
    return !name.empty() && !IsBlankOrStop(name.front()) && !IsBlankOrStop(name.back()) &&
           !HasBackQuote(name) && !HasIllegalNameChar(name);
}

std::wstring SceneNameOf(const std::wstring& typed) {
    if (typed.size() < kSceneExtensionLength)
        return typed;
    const std::size_t stemLength = typed.size() - kSceneExtensionLength;
    return IsSameText(typed.substr(stemLength), kSceneExtension) ? typed.substr(0, stemLength)
                                                                 : typed;
}

std::wstring SceneFileNameOf(const std::wstring& typed) {
    return SceneNameOf(typed) + kSceneExtension;
}

bool HasOnlySceneNameCharacters(const std::wstring& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), IsSceneNameCharacter);
}

bool IsSceneFileNameAccepted(const std::wstring& fileName) {
    if (fileName.empty())
        return true;
    // The client makes a folder of this name.
    const std::wstring name = WithoutExtension(fileName);
    return HasOnlySceneNameCharacters(name) && !IsBlankOrStop(name.back());
}

bool IsUsableSceneName(const std::wstring& name) {
    return name.empty() || (!IsBlankOrStop(name.back()) && !HasBackQuote(name));
}

bool CanStandInFileNames(wchar_t character) {
    return character >= L' ' && !IsIn(character, kDeletedNameChars);
}

bool IsPlainFileName(const std::wstring& name) {
    return !name.empty() && !IsBlankOrStop(name.back()) &&
           std::all_of(name.begin(), name.end(), CanStandInFileNames) && !NamesDevice(name);
}

bool IsLegalReferenceName(const char* path) {
    static const ReferenceAscii ascii;
    const unsigned char* at = reinterpret_cast<const unsigned char*>(path);
    const bool isEmpty = *at == 0;
    while (*at != 0) {
        if (*at < kAsciiCount) {
            if (!ascii.isLegal[*at])
                return false;
            ++at;
            continue;
        }
        const Character character = CharacterAt(at);
        if (character.length == 0 || !IsReferenceCharacter(character.code))
            return false;
        at += character.length;
    }
    return !isEmpty;
}

bool HasCyrillic(const std::wstring& path) {
    return std::any_of(path.begin(), path.end(),
                       [](wchar_t character) { return IsBetween(character, 0x0400, 0x052F); });
}

} // namespace orv
