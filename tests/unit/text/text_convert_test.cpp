#include "analysis/text/text_convert.h"

#include "base/windows.h"

#include <gtest/gtest.h>

#include <atomic>
#include <clocale>
#include <random>
#include <thread>
#include <vector>

namespace orv {
namespace {

// Text that every conversion through UTF-8 has to keep.
struct ExactPair {
    const char* what;
    std::wstring wide;
    std::string utf8;
};

std::vector<ExactPair> ExactPairs() {
    return {
        {"nothing", L"", ""},
        {"ASCII", L"Camera01", "Camera01"},
        {"two bytes", L"\u00e9\u07ff", "\xc3\xa9\xdf\xbf"},
        {"Chinese", L"\u955c\u5934", "\xe9\x95\x9c\xe5\xa4\xb4"},
        {"supplementary plane", L"a\U0001F600\U0010FFFFb",
         "a\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf"
         "b"},
        {"zero characters", std::wstring(L"a\0b\0", 4), std::string("a\0b\0", 4)},
        {"replacement character", L"\uFFFD", "\xef\xbf\xbd"},
        {"byte-order mark", L"\uFEFFa",
         "\xef\xbb\xbf"
         "a"},
        {"private use", L"\uE000\uF8FF", "\xee\x80\x80\xef\xa3\xbf"},
        {"long", std::wstring(1000000, L'\u4e2d'),
         [] {
             std::string text;
             for (int i = 0; i < 1000000; ++i)
                 text += "\xe4\xb8\xad";
             return text;
         }()},
    };
}

TEST(WideToUtf8, KeepsEveryCharacter) {
    for (const ExactPair& pair : ExactPairs()) {
        bool exact = false;
        EXPECT_TRUE(WideToUtf8(pair.wide, &exact) == pair.utf8) << pair.what;
        EXPECT_TRUE(exact) << pair.what;
    }
}

TEST(Utf8ToWide, KeepsEveryCharacter) {
    for (const ExactPair& pair : ExactPairs()) {
        bool exact = false;
        EXPECT_TRUE(Utf8ToWide(pair.utf8, &exact) == pair.wide) << pair.what;
        EXPECT_TRUE(exact) << pair.what;
    }
}

TEST(WideToUtf8, ReplacesALoneSurrogateAndSaysSo) {
    const wchar_t high = 0xD83D;
    const wchar_t low = 0xDE00;
    const std::wstring lone[] = {{high}, {low}, {low, high}, {L'a', high, L'b'}, {high, high, low}};
    for (const std::wstring& text : lone) {
        bool exact = true;
        const std::string result = WideToUtf8(text, &exact);
        EXPECT_NE(result.find("\xef\xbf\xbd"), std::string::npos);
        EXPECT_FALSE(exact);
    }
    EXPECT_EQ(WideToUtf8({L'a', high, L'b'}), "a\xef\xbf\xbd"
                                              "b");
}

TEST(Utf8SizeAt, AddsUpToTheSizeOfTheConversion) {
    const wchar_t units[] = {L'a',   0x7F,   0x80,   0x7FF,  0x800,  0x4E2D, 0xD7FF,
                             0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    for (const wchar_t first : units) {
        for (const wchar_t second : units) {
            for (const wchar_t third : units) {
                const std::wstring text = {first, second, third};
                std::size_t size = 0;
                for (std::size_t i = 0; i < text.size(); ++i)
                    size += Utf8SizeAt(text, i);
                ASSERT_EQ(size, WideToUtf8(text).size()) << first << " " << second << " " << third;
            }
        }
    }
}

// Texts are measured a piece at a time, and short ones are converted without being measured.
TEST(WideToUtf8, KeepsTextsOfEveryLength) {
    const wchar_t parts[] = {L'a', 0x00E4, 0x4E2D, 0xD83C, 0xDFA5};
    std::wstring text;
    for (std::size_t length = 0; length < 10000; ++length) {
        if (length < 300 || length % 611 == 0 || length % 4096 < 5) {
            bool exact = false;
            const std::string utf8 = WideToUtf8(text);
            ASSERT_EQ(Utf8ToWide(utf8), text) << length;
            WideToUtf8(text, &exact);
            ASSERT_TRUE(exact) << length;
        }
        text += parts[length % 5 < 3 ? length % 5 : 0];
        if (length % 5 == 4)
            text += {parts[3], parts[4]};
    }
}

// Runs of characters of one size, with the others between them, at any place.
TEST(WideToUtf8, ConvertsAsTheSystemDoes) {
    const std::wstring units = L"aaaaaaaaa/\u007F\u0080\u07FF\u0800\u5BA2\uFFFF\xD83D\xDCF7\xDC00";
    std::mt19937 random(20190507U);
    for (int round = 0; round < 2000; ++round) {
        std::wstring text(1 + random() % 60, L'b');
        for (wchar_t& unit : text)
            unit = random() % 4 == 0 ? units[random() % units.size()] : unit;
        char bytes[200] = {};
        const int size =
            ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes,
                                  static_cast<int>(sizeof(bytes)), nullptr, nullptr);
        ASSERT_EQ(WideToUtf8(text), std::string(bytes, static_cast<std::size_t>(size))) << round;
    }
}

TEST(Utf8ToWide, ReplacesIllFormedBytesAndSaysSo) {
    const char* const illFormed[] = {
        "\x80",             // continuation without a start
        "\xe4\xb8",         // cut short
        "\xc0\xaf",         // overlong slash
        "\xed\xa0\x80",     // an encoded surrogate
        "\xf4\x90\x80\x80", // above U+10FFFF
        "\xff",             // never in UTF-8
    };
    for (const char* bytes : illFormed) {
        bool exact = true;
        const std::wstring result = Utf8ToWide(std::string("a") + bytes + "b", &exact);
        EXPECT_FALSE(exact);
        ASSERT_GE(result.size(), 3U);
        EXPECT_EQ(result.front(), L'a');
        EXPECT_EQ(result.back(), L'b');
        EXPECT_EQ(result.find_first_not_of(L'\uFFFD', 1), result.size() - 1);
    }
}

TEST(Utf8ToAnsi, KeepsAscii) {
    bool exact = false;
    EXPECT_EQ(Utf8ToAnsi("C:/Orv Rendering", &exact), "C:/Orv Rendering");
    EXPECT_TRUE(exact);
}

TEST(Utf8ToAnsi, KeepsEmptyText) {
    bool exact = false;
    EXPECT_EQ(Utf8ToAnsi("", &exact), "");
    EXPECT_TRUE(exact);
}

TEST(Utf8ToAnsi, KeepsWhatTheCodePageHas) {
    // One byte above ASCII that stands for itself in the code page of this system, whichever it is.
    std::wstring wide;
    std::string ansi;
    for (int c = 0x80; c < 0x100 && wide.empty(); ++c) {
        const char byte = static_cast<char>(c);
        wchar_t character = 0;
        if (::MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &byte, 1, &character, 1) == 1) {
            wide = character;
            ansi = byte;
        }
    }
    if (wide.empty()) { // a double-byte code page
        wide = L"\u4e2d";
        ansi.resize(4);
        ansi.resize(static_cast<std::size_t>(
            ::WideCharToMultiByte(CP_ACP, 0, wide.c_str(), 1, &ansi[0], 4, nullptr, nullptr)));
    }
    bool exact = false;
    EXPECT_EQ(Utf8ToAnsi(WideToUtf8(wide), &exact), ansi);
    EXPECT_TRUE(exact);
}

TEST(Utf8ToAnsi, IsEmptyRatherThanWrong) {
    // No code page has both; a look-alike for the second ("A" for "Ā") is as wrong as "?".
    for (const char* text : {"a\xf0\x9f\x98\x80", "\xe4\xb8\xad\xc4\x80", "\xff"}) {
        bool exact = true;
        EXPECT_EQ(Utf8ToAnsi(text, &exact), "");
        EXPECT_FALSE(exact);
    }
}

TEST(AnsiToWide, ReadsChineseText) {
    bool exact = false;
    EXPECT_EQ(AnsiToWide("a\xd6\xd0\xce\xc4\x80", &exact), L"a\u4e2d\u6587\u20ac");
    EXPECT_TRUE(exact);
}

TEST(AnsiToWide, IsEmptyForBytesThatAreNoText) {
    for (const char* bytes : {"\x81", "a\xff", "\xd6 x", "\x81\x30"}) {
        bool exact = true;
        EXPECT_EQ(AnsiToWide(bytes, &exact), L"");
        EXPECT_FALSE(exact);
    }
}

TEST(WideToAnsi, WritesChineseText) {
    bool exact = false;
    EXPECT_EQ(WideToAnsi(L"a\u4e2d\u6587\u20ac", &exact), "a\xd6\xd0\xce\xc4\x80");
    EXPECT_TRUE(exact);
}

TEST(WideToAnsi, IsEmptyRatherThanWrong) {
    for (const std::wstring& text :
         {std::wstring(L"a\U0001F600"), std::wstring(L"\u00a9"), std::wstring(1, 0xD800)}) {
        bool exact = true;
        EXPECT_EQ(WideToAnsi(text, &exact), "");
        EXPECT_FALSE(exact);
    }
}

TEST(LocaleConversions, KeepZeroCharactersAndLongTexts) {
    const std::wstring zeros(L"\0a\0\0\u4e2d\0", 6);
    const std::string zeroBytes("\0a\0\0\xd6\xd0\0", 7);
    EXPECT_EQ(WideToAnsi(zeros), zeroBytes);
    EXPECT_EQ(AnsiToWide(zeroBytes), zeros);

    const std::wstring longText(300000, L'\u4e2d');
    bool exact = false;
    EXPECT_TRUE(AnsiToWide(WideToAnsi(longText), &exact) == longText);
    EXPECT_TRUE(exact);

    EXPECT_EQ(WideToAnsi(L"", &exact), "");
    EXPECT_TRUE(exact);
    EXPECT_EQ(AnsiToWide("", &exact), L"");
    EXPECT_TRUE(exact);
}

TEST(LocaleConversions, KeepCharactersFromEveryRegionOfTheChineseCodePage) {
    int kept = 0;
    for (int c = 1; c < 0x10000; c += 13) { // each call sets the locale, which is slow
        const std::wstring text(1, static_cast<wchar_t>(c));
        bool exact = false;
        const std::string bytes = WideToAnsi(text, &exact);
        EXPECT_EQ(exact, !bytes.empty()) << c;
        if (!exact)
            continue;
        EXPECT_EQ(AnsiToWide(bytes, &exact), text) << c;
        EXPECT_TRUE(exact) << c;
        ++kept;
    }
    EXPECT_GT(kept, 1500);
}

constexpr char kNoSuchLocale[] = "no such locale";

// Sets the process locale for a test and leaves "C" behind.
class LocaleConvert : public testing::Test {
protected:
    ~LocaleConvert() override { std::setlocale(LC_ALL, "C"); }

    static std::string setLocale(const char* name) {
        const char* set = std::setlocale(LC_ALL, name);
        EXPECT_NE(set, nullptr) << name;
        return set == nullptr ? "" : set;
    }
    static std::string current() { return std::setlocale(LC_ALL, nullptr); }
};

TEST_F(LocaleConvert, ToMultibyteRestoresTheLocaleThatWasSet) {
    for (const char* name : {"C", "English", "chs"}) {
        const std::string before = setLocale(name);
        WideToAnsi(L"\u4e2d");
        EXPECT_EQ(current(), before);
        WideToAnsi(L"\U0001F600"); // refused
        EXPECT_EQ(current(), before);
    }
}

TEST_F(LocaleConvert, ToWideLeavesTheLocaleAtC) {
    for (const char* name : {"C", "English", "chs"}) {
        setLocale(name);
        AnsiToWide("\xd6\xd0");
        EXPECT_EQ(current(), "C");
    }
    setLocale("English");
    AnsiToWide("\xff"); // refused
    EXPECT_EQ(current(), "C");
}

TEST_F(LocaleConvert, WithoutTheLocaleTheCurrentOneTakesItsPlace) {
    setLocale("chs");
    bool exact = true;
    EXPECT_EQ(WideToMultibyte(L"\u4e2d", kNoSuchLocale, exact), "\xd6\xd0");
    EXPECT_FALSE(exact);

    exact = true;
    EXPECT_EQ(MultibyteToWide("\xd6\xd0", kNoSuchLocale, exact), L"\u4e2d");
    EXPECT_FALSE(exact);
    EXPECT_EQ(current(), "C");
}

TEST_F(LocaleConvert, WithoutTheLocaleAsciiIsStillExact) {
    bool exact = false;
    EXPECT_EQ(WideToMultibyte(L"C:/log 2", kNoSuchLocale, exact), "C:/log 2");
    EXPECT_TRUE(exact);
    exact = false;
    EXPECT_EQ(MultibyteToWide("C:/log 2", kNoSuchLocale, exact), L"C:/log 2");
    EXPECT_TRUE(exact);
}

TEST_F(LocaleConvert, WithoutTheLocaleNothingIsInvented) {
    bool exact = true;
    EXPECT_EQ(WideToMultibyte(L"\u4e2d", kNoSuchLocale, exact), ""); // "C" has no Chinese
    EXPECT_FALSE(exact);
}

TEST_F(LocaleConvert, ThreadsTakeTurns) {
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&wrong, i] {
            for (int round = 0; round < 500; ++round) {
                const bool right = i % 2 == 0 ? WideToAnsi(L"\u4e2d\u6587") == "\xd6\xd0\xce\xc4"
                                              : AnsiToWide("\xd6\xd0\xce\xc4") == L"\u4e2d\u6587";
                if (!right)
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace orv
