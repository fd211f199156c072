#include "analysis/text/name_rules.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(TrimSpaces, RemovesBlanksAtBothEnds) {
    EXPECT_EQ(TrimSpaces(L"  ab  "), L"ab");
}

TEST(TrimSpaces, KeepsBlanksInside) {
    EXPECT_EQ(TrimSpaces(L" a  b "), L"a  b");
}

TEST(TrimSpaces, MakesAllBlanksEmpty) {
    EXPECT_EQ(TrimSpaces(L"   "), L"");
}

TEST(TrimSpaces, KeepsEmptyEmpty) {
    EXPECT_EQ(TrimSpaces(L""), L"");
}

TEST(TrimSpaces, KeepsTabsLineBreaksAndWideBlanks) {
    EXPECT_EQ(TrimSpaces(L" \ta\r\n "), L"\ta\r\n");
    EXPECT_EQ(TrimSpaces(L"\u3000a\u00A0"), L"\u3000a\u00A0");
}

TEST(TrimSpaces, KeepsZeroCharacters) {
    const std::wstring text(L" \0a ", 4);
    EXPECT_EQ(TrimSpaces(text), std::wstring(L"\0a", 2));
}

TEST(StripChars, DeletesEveryCharacterOfTheNameSet) {
    EXPECT_EQ(StripChars(L"a::b?c", kDeletedNameChars), L"abc");
    EXPECT_EQ(StripChars(L"\\/:*?\"<>|", kDeletedNameChars), L"");
}

TEST(StripChars, LeavesThePerCentSignInNames) {
    EXPECT_EQ(StripChars(L"100%", kDeletedNameChars), L"100%");
}

TEST(StripChars, LeavesTextAloneWhenTextOrSetIsEmpty) {
    EXPECT_EQ(StripChars(L"", kDeletedNameChars), L"");
    EXPECT_EQ(StripChars(L"a:b", L""), L"a:b");
}

TEST(StripChars, DeletesCharactersOtherThanAscii) {
    EXPECT_EQ(StripChars(L"\u955c\u5934\u955c", L"\u955c"), L"\u5934");
}

TEST(HasIllegalNameChar, FindsEachIllegalCharacterAnywhere) {
    for (const wchar_t c : std::wstring(L"\\/:*?\"<>|%")) {
        EXPECT_TRUE(HasIllegalNameChar(std::wstring(1, c))) << static_cast<int>(c);
        EXPECT_TRUE(HasIllegalNameChar(c + std::wstring(L"Camera"))) << static_cast<int>(c);
        EXPECT_TRUE(HasIllegalNameChar(std::wstring(L"Camera") + c)) << static_cast<int>(c);
    }
    EXPECT_TRUE(HasIllegalNameChar(L"100%"));
}

TEST(HasIllegalNameChar, AcceptsEveryOtherCharacter) {
    EXPECT_FALSE(HasIllegalNameChar(L""));
    EXPECT_FALSE(HasIllegalNameChar(L"Camera01"));
    const std::wstring illegal = L"\\/:*?\"<>|%";
    for (int c = 0; c < 0x10000; ++c) {
        const auto character = static_cast<wchar_t>(c);
        EXPECT_EQ(HasIllegalNameChar(std::wstring(1, character)),
                  illegal.find(character) != std::wstring::npos)
            << c;
    }
}

TEST(HasIllegalNameChar, IgnoresTheSetOfItsCaller) {
    EXPECT_FALSE(HasIllegalNameChar(L"abc", L"abc"));
    EXPECT_TRUE(HasIllegalNameChar(L"a:c", L"x"));
}

TEST(HasIllegalNameChar, DecidesOnMillionsOfCharacters) {
    std::wstring text(4000000, L'a');
    EXPECT_FALSE(HasIllegalNameChar(text));
    text += L'%';
    EXPECT_TRUE(HasIllegalNameChar(text));
}

} // namespace
} // namespace orv
