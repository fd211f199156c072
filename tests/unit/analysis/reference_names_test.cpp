#include "analysis/reference_names.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(HasCyrillic, IsTrueForTheTwoBlocksOnly) {
    for (const wchar_t* path : {L"\x0400", L"\x052F", L"C:\\\x0434om\\a.png", L"a\x0416"})
        EXPECT_TRUE(HasCyrillic(path));
    for (const wchar_t* path : {L"", L"\x03FF", L"\x0530", L"C:\\home\\\x4E2D.png"})
        EXPECT_FALSE(HasCyrillic(path));
}

TEST(IsLegalReferenceName, AcceptsEveryCharacterOfTheClass) {
    const wchar_t legal[] =
        L"AZaz09~!@#$&^(){}:\\; '`,.[]+_=/-"
        L"\xFF01\xFFE5\x2026\xFF08\xFF09\x2014\x300C\x300D\x3010\x3011\x3001\xFF1B"
        L"\x201C\x201D\x2019\x2018\x300A\x300B\x00B7\xFF0C\x3002\x4E00\x9FFF";
    EXPECT_TRUE(IsLegalReferenceName(legal));
    for (const wchar_t character : std::wstring(legal))
        EXPECT_TRUE(IsLegalReferenceName({character})) << static_cast<unsigned>(character);
}

TEST(IsLegalReferenceName, RefusesEveryOtherCharacter) {
    const std::wstring others =
        std::wstring(L"%\"*?<>|\t\n\r\x007F\x00E9\x0416\x3042\xAC00\x4DFF\xA000") + L'\0' +
        L"\xD83C\xDFA5";
    for (const wchar_t character : others) {
        const std::wstring path = std::wstring(L"C:/a") + character + L".png";
        EXPECT_FALSE(IsLegalReferenceName(path)) << static_cast<unsigned>(character);
    }
}

TEST(IsLegalReferenceName, RefusesAnEmptyPath) {
    EXPECT_FALSE(IsLegalReferenceName(L""));
}

TEST(IsLegalReferenceName, JudgesAPathOfAMillionCharacters) {
    std::wstring path(1000000, L'a');
    EXPECT_TRUE(IsLegalReferenceName(path));
    path.back() = L'%';
    EXPECT_FALSE(IsLegalReferenceName(path));
}

} // namespace
} // namespace orv
