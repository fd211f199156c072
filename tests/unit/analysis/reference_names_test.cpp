#include "analysis/reference_names.h"

#include "analysis/text/text_convert.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

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

struct PathCase {
    const char* what;
    const char* path; // UTF-8
    bool isLegal;
};

TEST(IsLegalReferenceName, DecidesPaths) {
    const PathCase cases[] = {
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
    for (const PathCase& item : cases)
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
