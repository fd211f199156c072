// Conversions of text, and the rules for names and paths.
#include "analysis/text/names.h"
#include "analysis/text/numbers.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"

#include <cstring>

namespace orv {
namespace fuzz {
namespace {

std::string HostileText(Random& random) {
    const std::string text = AnyText(random);
    return random.oneIn(2) ? MutateBytes(text, random) : text;
}

// The bytes as UTF-16 units, lone halves of pairs among them.
std::wstring UnitsOf(const std::string& bytes) {
    std::wstring units(bytes.size() / sizeof(wchar_t), L'\0');
    if (!units.empty())
        std::memcpy(&units[0], bytes.data(), units.size() * sizeof(wchar_t));
    return units;
}

void Convert(const std::string& bytes) {
    bool exact = false;
    const std::wstring wide = Utf8ToWide(bytes, &exact);
    Require(!exact || WideToUtf8(wide) == bytes, "UTF-8 comes back as it went");
    const std::wstring units = UnitsOf(bytes);
    const std::string narrow = WideToUtf8(units, &exact);
    Require(!exact || Utf8ToWide(narrow) == units, "UTF-16 comes back as it went");

    Utf8ToAnsi(bytes, &exact);
    const std::wstring local = AnsiToWide(bytes, &exact);
    Require(exact || local.empty() || local.size() <= bytes.size(), "what is inexact is short");
    const std::string multibyte = WideToAnsi(wide, &exact);
    if (exact) {
        const std::wstring back = AnsiToWide(multibyte, &exact);
        Require(!exact || back == wide, "the locale's text comes back as it went");
    }
    WideToAnsi(units, &exact);
}

void ApplyNameRules(const std::wstring& name) {
    const std::wstring stripped = StripChars(name, kDeletedNameChars);
    Require(stripped.find_first_of(kDeletedNameChars) == std::wstring::npos, "deleted is gone");
    Require(HasIllegalNameChar(name) == (name.find_first_of(L"\\/:*?\"<>|%") != std::wstring::npos),
            "illegal characters are found, and nothing else");
    const std::wstring trimmed = TrimSpaces(name);
    Require(trimmed.empty() || (trimmed.front() != L' ' && trimmed.back() != L' '), "trimmed");
    HasCyrillic(name);

    Require(FolderPart(name) + StemPart(name) + ExtensionPart(name) == name, "a path is its parts");
    if (IsPlainFileName(name)) {
        Require(FolderPart(name).empty(), "a plain name has no folder");
        Require(name.find_first_of(L"\\/:*?\"<>|") == std::wstring::npos, "nor what names lack");
    }
    if (IsFullPath(name))
        Require(name.find(L'"') == std::wstring::npos, "a path cannot end its own quotes");
}

void ApplyRules(const std::string& bytes) {
    ApplyNameRules(Utf8ToWide(bytes));
    ApplyNameRules(UnitsOf(bytes));
    // Judged without a conversion, so that it has to see for itself what is no UTF-8.
    bool isUtf8 = false;
    const std::wstring text = Utf8ToWide(bytes.c_str(), &isUtf8);
    if (IsLegalReferenceName(bytes.c_str()))
        Require(isUtf8 && !text.empty() && !HasCyrillic(text), "a legal path can be read");
    WholeNumber(bytes);
    DecimalNumber(bytes);
}

} // namespace

std::vector<Target> TextTargets() {
    return {{"text", HostileText, Convert}, {"names", HostileText, ApplyRules}};
}

} // namespace fuzz
} // namespace orv
