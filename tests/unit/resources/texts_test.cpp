// The texts themselves, read from the compiled resources without the product's lookup.
#include "base/product.h"
#include "resources/texts.h"
#include "tests/support/module_scope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <string>

namespace orv {
namespace test {
namespace {

struct TextNumber {
    unsigned id;
    const char* name;
};

const TextNumber kTextNumbers[] = {
#include "text_numbers.inc"
};

// The text of `id` in exactly this language, empty when it has none. Sixteen texts share a block;
// each is a length followed by that many characters.
std::wstring TextIn(LANGID language, unsigned id) {
    const HMODULE module = ::GetModuleHandleW(nullptr);
    const HRSRC found =
        ::FindResourceExW(module, RT_STRING, MAKEINTRESOURCEW(id / 16 + 1), language);
    if (found == nullptr)
        return {};
    const auto* text = static_cast<const wchar_t*>(::LockResource(::LoadResource(module, found)));
    for (unsigned skip = id % 16; skip != 0; --skip)
        text += *text + 1;
    return std::wstring(text + 1, *text);
}

// What a translation must not lose: how often each of these stands in the text.
std::string Skeleton(const std::wstring& text) {
    std::string counts;
    for (const wchar_t mark : {L'%', L'\n', L'\\', L'"', L'|'})
        counts += std::to_string(std::count(text.begin(), text.end(), mark)) + " ";
    return counts;
}

std::wstring English(unsigned id) {
    return TextIn(kEnglishLanguage, id);
}

std::wstring Chinese(unsigned id) {
    return TextIn(kChineseLanguage, id);
}

bool IsAscii(const std::wstring& text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; });
}

TEST(Texts, EveryNumberHasATextInEachLanguageThatFitsTheLookupBuffer) {
    for (const TextNumber& number : kTextNumbers) {
        for (const LANGID language : {kEnglishLanguage, kChineseLanguage}) {
            const std::wstring text = TextIn(language, number.id);
            EXPECT_FALSE(text.empty()) << number.name << " in language " << language;
            EXPECT_LT(text.size(), 256U) << number.name << " in language " << language;
        }
    }
}

TEST(Texts, TheResourcesHoldNoTextWithoutAName) {
    std::set<unsigned> named;
    for (const TextNumber& number : kTextNumbers)
        named.insert(number.id);
    EXPECT_EQ(named.size(),
              static_cast<std::size_t>(std::end(kTextNumbers) - std::begin(kTextNumbers)))
        << "two names share a number";
    for (unsigned id = 0; id < 2048; ++id) {
        if (named.count(id) == 0) {
            EXPECT_TRUE(English(id).empty()) << id;
            EXPECT_TRUE(Chinese(id).empty()) << id;
        }
    }
}

TEST(Texts, TranslationsKeepPercentSignsLineBreaksAndForbiddenCharacters) {
    for (const TextNumber& number : kTextNumbers)
        EXPECT_EQ(Skeleton(English(number.id)), Skeleton(Chinese(number.id))) << number.name;
}

TEST(Texts, TheLanguageMarkerTellsTheLanguages) {
    EXPECT_EQ(English(IDS_LANGUAGE_MARKER), L"0");
    EXPECT_EQ(Chinese(IDS_LANGUAGE_MARKER), L"1");
}

TEST(Texts, SentencesAreReallyTranslated) {
    const std::set<unsigned> sameInBoth = {IDS_CLASS_CATEGORY, IDS_CLASS_NAME, IDS_MENU_TITLE,
                                           IDS_CAPTION};
    for (const TextNumber& number : kTextNumbers) {
        const bool isFormat = std::string(number.name).compare(0, 11, "IDS_FORMAT_") == 0;
        if (isFormat || sameInBoth.count(number.id) != 0) {
            EXPECT_EQ(English(number.id), Chinese(number.id)) << number.name;
        } else {
            EXPECT_NE(English(number.id), Chinese(number.id)) << number.name;
            EXPECT_TRUE(number.id == IDS_LANGUAGE_MARKER || !IsAscii(Chinese(number.id)))
                << number.name;
        }
    }
}

TEST(Texts, TheAboutTextNamesTheProductAndItsVersion) {
    const std::wstring expected = std::wstring(L"Orv Rendering ") + kPluginVersion + L"\n";
    EXPECT_EQ(English(IDS_ABOUT_TEXT).compare(0, expected.size(), expected), 0);
    EXPECT_EQ(Chinese(IDS_ABOUT_TEXT).compare(0, expected.size(), expected), 0);
}

// Start removes the menu under its old title: it must not be the title of today's menu.
TEST(Texts, TheOldMenuTitleIsNotTheMenuTitle) {
    EXPECT_NE(English(IDS_OLD_MENU_TITLE), English(IDS_MENU_TITLE));
    EXPECT_NE(Chinese(IDS_OLD_MENU_TITLE), Chinese(IDS_MENU_TITLE));
}

// Formats are compared with the report's, which is in upper case.
TEST(Texts, FormatsAreDistinctAndInUpperCase) {
    std::set<std::wstring> formats;
    for (const unsigned id :
         {IDS_FORMAT_PNG, IDS_FORMAT_JPG, IDS_FORMAT_BMP, IDS_FORMAT_TGA, IDS_FORMAT_EXR,
          IDS_FORMAT_HDR, IDS_FORMAT_RLA, IDS_FORMAT_RPF, IDS_FORMAT_DDS, IDS_FORMAT_EPS,
          IDS_FORMAT_RGB, IDS_FORMAT_CIN, IDS_FORMAT_TIFF, IDS_FORMAT_VRIMG}) {
        const std::wstring format = English(id);
        EXPECT_TRUE(std::all_of(format.begin(), format.end(), [](wchar_t c) {
            return c >= L'A' && c <= L'Z';
        })) << id;
        formats.insert(format);
    }
    EXPECT_EQ(formats.size(), 14U);
}

} // namespace
} // namespace test
} // namespace orv
