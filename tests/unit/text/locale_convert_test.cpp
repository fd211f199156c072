#include "analysis/text/locale_convert.h"

#include "analysis/text/text_convert.h"

#include <gtest/gtest.h>

#include <atomic>
#include <clocale>
#include <thread>
#include <vector>

namespace orv {
namespace {

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
