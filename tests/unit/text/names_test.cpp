// The rules for names, and the characters that names can have.
#include "analysis/text/names.h"

#include "analysis/text/text_convert.h"

#include <gtest/gtest.h>

#include <set>

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

TEST(OutputName, IsJudgedByLengthThenByCharacters) {
    const struct {
        std::wstring typed;
        OutputName judgement;
    } cases[] = {
        {L"", OutputName::Accepted},
        {L"Hall \u5BA2\u5385", OutputName::Accepted},
        {L" hall. `", OutputName::Accepted},
        {std::wstring(100, L'n'), OutputName::Accepted},
        {std::wstring(101, L'n'), OutputName::TooLong},
        {std::wstring(100, L'n') + L":", OutputName::TooLong},
        {std::wstring(99, L'n') + L":", OutputName::HasForbidden},
        {std::wstring(5000, L'n'), OutputName::TooLong},
    };
    for (const auto& one : cases)
        EXPECT_EQ(CheckOutputName(one.typed), one.judgement) << one.typed.size();
    for (const wchar_t forbidden : std::wstring(L"\\/:*?\"<>|%")) {
        const std::wstring name = std::wstring(L"a") + forbidden + L"b";
        EXPECT_EQ(CheckOutputName(name), OutputName::HasForbidden) << static_cast<int>(forbidden);
        EXPECT_EQ(WithoutIllegalNameChars(name), L"ab") << static_cast<int>(forbidden);
    }
    EXPECT_EQ(WithoutIllegalNameChars(L"%%%"), L"");
}

TEST(OuterBlankOf, LooksAtTheFrontFirst) {
    EXPECT_EQ(OuterBlankOf(L""), OuterBlank::None);
    EXPECT_EQ(OuterBlankOf(L"a b"), OuterBlank::None);
    EXPECT_EQ(OuterBlankOf(L"\ta\t"), OuterBlank::None); // tabs do not count as blanks
    EXPECT_EQ(OuterBlankOf(L" a"), OuterBlank::Front);
    EXPECT_EQ(OuterBlankOf(L"a "), OuterBlank::Back);
    EXPECT_EQ(OuterBlankOf(L" a "), OuterBlank::Front);
    EXPECT_EQ(OuterBlankOf(L" "), OuterBlank::Front);
}

struct NameCase {
    const wchar_t* name;
    bool isUsable;
};

TEST(IsUsableCameraName, RefusesWhatFilesAndTheFarmCannotTake) {
    const NameCase cases[] = {
        {L"Camera01", true}, {L"a b.c", true}, {L"\x76F8\x673A", true}, {L"", false},
        {L" a", false},      {L".a", false},   {L"a ", false},          {L"a.", false},
        {L" ", false},       {L"a`b", false},  {L"100%", false},        {L"a\\b", false},
        {L"a/b", false},     {L"a:b", false},  {L"a*b", false},         {L"a?b", false},
        {L"a\"b", false},    {L"a<b", false},  {L"a>b", false},         {L"a|b", false},
    };
    for (const NameCase& name : cases)
        EXPECT_EQ(IsUsableCameraName(name.name), name.isUsable) << std::wstring(name.name).size();
}

struct TypedCase {
    const wchar_t* typed;
    const wchar_t* name;
    const wchar_t* fileName;
};

TEST(SceneNameText, TakesOneExtensionOff) {
    const TypedCase cases[] = {
        {L"shot", L"shot", L"shot.max"},
        {L"shot.max", L"shot", L"shot.max"},
        {L"shot.MAX", L"shot", L"shot.max"},
        {L"shot.max.max", L"shot.max", L"shot.max.max"},
        {L"shot.v2", L"shot.v2", L"shot.v2.max"},
        {L"max", L"max", L"max.max"},
        {L".max", L"", L".max"},
        {L"", L"", L".max"},
        {L"\x573A\x666F", L"\x573A\x666F", L"\x573A\x666F.max"},
    };
    for (const TypedCase& typed : cases) {
        EXPECT_EQ(SceneNameOf(typed.typed), typed.name);
        EXPECT_EQ(SceneFileNameOf(typed.typed), typed.fileName);
    }
}

TEST(IsUsableSceneName, RefusesEndsThatWindowsDropsAndBackQuotes) {
    for (const wchar_t* name : {L"shot", L" shot", L".shot", L"", L"a b.c", L"\x573A"})
        EXPECT_TRUE(IsUsableSceneName(name));
    for (const wchar_t* name : {L"shot.", L"shot ", L"sh`ot", L"`", L".", L" "})
        EXPECT_FALSE(IsUsableSceneName(name));
}

// Every punctuation character that a scene name may have, by code.
const std::set<unsigned> kAllowedPunctuation = {
    0x20,   0x21,   0x23,   0x24,   0x26,   0x27,   0x28,   0x29,   0x2B,   0x2C,   0x2D,
    0x2E,   0x3A,   0x3B,   0x3D,   0x40,   0x5B,   0x5C,   0x5D,   0x5E,   0x5F,   0x7B,
    0x7D,   0x7E,   0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2026, 0x3001, 0x3002, 0x300A,
    0x300B, 0x300C, 0x300D, 0x3010, 0x3011, 0xFF01, 0xFF08, 0xFF09, 0xFF0C, 0xFF1B, 0xFFE5};

bool IsAllowed(unsigned code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
           (code >= 'a' && code <= 'z') || (code >= 0x4E00 && code <= 0x9FFF) ||
           kAllowedPunctuation.count(code) != 0;
}

TEST(SceneNameCharacters, AreExactlyTheListedOnesOfAllUtf16Units) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const std::wstring name = {L'a', static_cast<wchar_t>(code), L'b'};
        EXPECT_EQ(HasOnlySceneNameCharacters(name), IsAllowed(code)) << std::hex << code;
    }
}

TEST(SceneNameCharacters, RefuseAnEmptyName) {
    EXPECT_FALSE(HasOnlySceneNameCharacters(L""));
}

TEST(SceneNameCharacters, RefuseOneBadCharacterWhereverItStands) {
    for (const wchar_t* name : {L"%shot", L"sh%ot", L"shot%"})
        EXPECT_FALSE(HasOnlySceneNameCharacters(name));
}

TEST(SceneNameCharacters, JudgeANameLongerThanTheStackCouldRecurse) {
    std::wstring name(1000000, L'a');
    EXPECT_TRUE(HasOnlySceneNameCharacters(name));
    name.back() = L'`';
    EXPECT_FALSE(HasOnlySceneNameCharacters(name));
}

struct FileNameCase {
    const wchar_t* fileName;
    bool accepted;
};

class SceneFileName : public ::testing::TestWithParam<FileNameCase> {};

TEST_P(SceneFileName, IsAcceptedOrRefused) {
    EXPECT_EQ(IsSceneFileNameAccepted(GetParam().fileName), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(
    Names, SceneFileName,
    ::testing::Values(FileNameCase{L"", true}, // never saved
                      FileNameCase{L"shot.max", true}, FileNameCase{L"shot", true},
                      FileNameCase{L"\u5BA2\u5385 01.max", true}, // 客厅
                      FileNameCase{L" shot.max", true}, FileNameCase{L".shot.max", true},
                      FileNameCase{L"shot .max", false}, FileNameCase{L"shot..max", false},
                      FileNameCase{L"sh`ot.max", false}, FileNameCase{L"`.max", false},
                      FileNameCase{L"shot%20.max", false},
                      FileNameCase{L"\u0441\u0446\u0435\u043D\u0430.max", false}, // сцена
                      FileNameCase{L"shot\u3000.max", false},                     // wide blank
                      FileNameCase{L"\U0001F3AC.max", false}, FileNameCase{L".max", false}));

// What stands behind the last full stop is not judged.
TEST(SceneFileNameExtension, MayHoldAnything) {
    EXPECT_TRUE(IsSceneFileNameAccepted(L"shot.m%x"));
}

TEST(PlainFileNames, StayInTheFolderTheyArePutIn) {
    for (const wchar_t* name : {L"shot.max", L"shot", L".max", L"a b.v2.max", L"-sdel.max",
                                L"@list.max", L"console.max", L"com.max", L"com10.max", L"lpt.max",
                                L"xcon.max", L"it's 'so' \u201Cas\u201D \u2018is\u2019.max",
                                L"\x573A\x666F \xD83C\xDFA5.max", L"a%b`c.max"})
        EXPECT_TRUE(IsPlainFileName(name)) << ::testing::PrintToString(std::wstring(name));
}

TEST(PlainFileNames, AreNoneThatWindowsTakesForSomethingElse) {
    for (const wchar_t* name :
         {L"",           L"a:b.max",   L"a\\b.max",  L"a/b.max",  L"..\\a.max",  L"a*.max",
          L"a?.max",     L"a\"b.max",  L"a<b.max",   L"a>b.max",  L"a|b.max",    L"a\tb.max",
          L"a\x1F.max",  L"shot.max ", L"shot.max.", L".",        L"..",         L" ",
          L"con",        L"con.max",   L"CON.max",   L"Con .max", L"con.v2.max", L"prn.max",
          L"aux.max",    L"nul.max",   L"com1.max",  L"COM9.max", L"lpt1",       L"com\u00B9.max",
          L"conin$.max", L"CONOUT$"})
        EXPECT_FALSE(IsPlainFileName(name)) << ::testing::PrintToString(std::wstring(name));
}

bool IsLegal(const std::wstring& path) {
    return IsLegalReferenceName(WideToUtf8(path).c_str());
}

struct CyrillicCase {
    const char* what;
    std::wstring path;
    bool hasCyrillic;
};

TEST(HasCyrillic, IsTrueForTheTwoBlocksOnly) {
    const CyrillicCase cases[] = {
        {"nothing", L"", false},
        {"before the first block", L"\x03FF", false},
        {"first of the first block", L"\x0400", true},
        {"last of the first block", L"\x04FF", true},
        {"first of the second block", L"\x0500", true},
        {"last of the second block", L"\x052F", true},
        {"behind the second block", L"\x0530", false},
        {"in the middle of a path", L"C:\\\x0434om\\a.png", true},
        {"at the end of a path", L"a\x0416", true},
        {"Latin look-alikes", L"C:\\home\\\x4E2D.png", false},
        {"Cyrillic Extended-A is another block", L"\x2DE0\xA640", false},
    };
    for (const CyrillicCase& item : cases)
        EXPECT_EQ(HasCyrillic(item.path), item.hasCyrillic) << item.what;
}

TEST(IsLegalReferenceName, DecidesEachAsciiCharacter) {
    const std::string punctuation = "~!@#$&^(){}:\\; '`,.[]+_=/-";
    for (int code = 1; code < 128; ++code) {
        const char character = static_cast<char>(code);
        const bool isLetterOrDigit = ('A' <= character && character <= 'Z') ||
                                     ('a' <= character && character <= 'z') ||
                                     ('0' <= character && character <= '9');
        const bool isPunctuation = punctuation.find(character) != std::string::npos;
        const char path[] = {character, 0};
        EXPECT_EQ(IsLegalReferenceName(path), isLetterOrDigit || isPunctuation) << code;
    }
}

// Each character of the class beyond ASCII, one by one, with the neighbours that are not in it.
struct RangeCase {
    char32_t first;
    char32_t last;
};

constexpr RangeCase kBeyondAscii[] = {
    {0x00B7, 0x00B7}, {0x2014, 0x2014}, {0x2018, 0x2019}, {0x201C, 0x201D}, {0x2026, 0x2026},
    {0x3001, 0x3002}, {0x300A, 0x300D}, {0x3010, 0x3011}, {0x4E00, 0x9FFF}, {0xFF01, 0xFF01},
    {0xFF08, 0xFF09}, {0xFF0C, 0xFF0C}, {0xFF1B, 0xFF1B}, {0xFFE5, 0xFFE5},
};

TEST(IsLegalReferenceName, AcceptsTheEndsOfEachRangeAndRefusesTheirNeighbours) {
    for (const RangeCase& range : kBeyondAscii) {
        const auto path = [](char32_t code) { return std::wstring(1, static_cast<wchar_t>(code)); };
        EXPECT_FALSE(IsLegal(path(range.first - 1))) << range.first;
        EXPECT_TRUE(IsLegal(path(range.first))) << range.first;
        EXPECT_TRUE(IsLegal(path(range.last))) << range.last;
        EXPECT_FALSE(IsLegal(path(range.last + 1))) << range.last;
    }
}

TEST(IsLegalReferenceName, DecidesEveryOtherUtf16Unit) {
    std::size_t legal = 0;
    for (char32_t code = 0x80; code <= 0xFFFF; ++code) {
        bool isInClass = false;
        for (const RangeCase& range : kBeyondAscii)
            isInClass = isInClass || (range.first <= code && code <= range.last);
        const bool isLegal = IsLegal(std::wstring(1, static_cast<wchar_t>(code)));
        ASSERT_EQ(isLegal, isInClass) << code;
        legal += isLegal ? 1 : 0;
    }
    EXPECT_EQ(legal, 0x9FFFU - 0x4E00U + 1U + 21U); // the ideographs, and 21 marks
}

struct ReferenceCase {
    const char* what;
    const char* path; // UTF-8
    bool isLegal;
};

TEST(IsLegalReferenceName, DecidesPaths) {
    const ReferenceCase cases[] = {
        {"nothing", "", false},
        {"a Windows path", "D:\\maps\\oak floor (2).png", true},
        {"a share", "\\\\server\\maps$\\a.png", true},
        {"Chinese", "D:/\xE5\xAE\xA2\xE5\x8E\x85/\xE6\x9C\xA8.jpg", true},
        {"a per cent sign", "D:/100%.png", false},
        {"a quotation mark", "D:/\"a\".png", false},
        {"wildcards", "D:/*.png", false},
        {"a tab", "D:/a\tb.png", false},
        {"a line end", "D:/a.png\n", false},
        {"an umlaut", "D:/W\xC3\xA4nde.png", false},
        {"Japanese kana", "D:/\xE3\x81\x82.png", false},
        {"beyond the basic plane", "D:/\xF0\xA0\x80\x80.png", false},
        {"the last character decides", "D:/a.png%", false},
        {"the first character decides", "%D:/a.png", false},
        {"a character cut after one byte", "D:/\xE4", false},
        {"a character cut after two bytes", "D:/\xE4\xB8", false},
        {"a continuation without a start", "D:/\x80.png", false},
        {"a longer form of a slash", "D:\xC0\xAF", false},
        {"a longer form of the middle dot", "D:/\xE0\x82\xB7", false},
        {"half of a surrogate pair", "D:/\xED\xA0\x80", false},
        {"a byte that UTF-8 does not have", "D:/\xFF", false},
    };
    for (const ReferenceCase& item : cases)
        EXPECT_EQ(IsLegalReferenceName(item.path), item.isLegal) << item.what;
}

TEST(IsLegalReferenceName, JudgesAPathOfAMillionCharacters) {
    std::string path(1000000, 'a');
    EXPECT_TRUE(IsLegalReferenceName(path.c_str()));
    path.back() = '%';
    EXPECT_FALSE(IsLegalReferenceName(path.c_str()));
}

} // namespace
} // namespace orv
