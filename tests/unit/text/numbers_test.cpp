// The number of a text, and the text of a number.
#include "analysis/text/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>

namespace orv {
namespace {

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr double kHighestDouble = std::numeric_limits<double>::max();

struct WholeNumberCase {
    std::string text;
    std::int32_t number;
};

const WholeNumberCase kWholeNumbers[] = {
    {"0", 0},
    {"12", 12},
    {"-7", -7},
    {"+3", 3},
    {"007", 7},
    {" 8", 8},
    {"\t\n\v\f\r 9", 9},
    {"8 9", 8},
    {"12abc", 12},
    {"8080x", 8080},
    {"3.9", 3},
    {"-3.9", -3},
    {"1e3", 1},
    {"0x10", 0},
    {"1,000", 1},
    {"", 0},
    {" ", 0},
    {"-", 0},
    {"--5", 0},
    {"- 5", 0},
    {"x", 0},
    {"x5", 0},
    {".5", 0},
    {"2147483647", kHighest},
    {"2147483648", kHighest},
    {"-2147483648", kLowest},
    {"-2147483649", kLowest},
    {"99999999999", kHighest},
    {"-99999999999", kLowest},
    {"99999999999999999999999999", kHighest},
    {std::string(30000, '9'), kHighest},
    {"-" + std::string(30000, '9'), kLowest},
    {std::string(30000, '0') + "5", 5},
};

TEST(WholeNumber, ReadsAsFarAsTheTextIsANumber) {
    for (const WholeNumberCase& number : kWholeNumbers) {
        EXPECT_EQ(WholeNumber(number.text), number.number) << number.text.substr(0, 40);
        const std::wstring wide(number.text.begin(), number.text.end());
        EXPECT_EQ(WholeNumber(wide), number.number) << number.text.substr(0, 40);
    }
}

TEST(WholeNumber, TakesDigitsOfOtherScriptsInWideTextsOnly) {
    EXPECT_EQ(WholeNumber(std::wstring(L"\xFF16\xFF14\xFF10")), 640);
    EXPECT_EQ(WholeNumber(std::wstring(L"\x0661\x0660")), 10);
    EXPECT_EQ(WholeNumber(std::string("\xEF\xBC\x96")), 0);
}

struct DecimalCase {
    std::string text;
    double number;
};

const DecimalCase kDecimals[] = {
    {"0", 0.0},
    {"0.0", 0.0},
    {"2.2", 2.2},
    {"-0.5", -0.5},
    {"+3", 3.0},
    {" 4", 4.0},
    {"\t\n\v\f\r 2.5", 2.5},
    {"360.0", 360.0},
    {"359.9", 359.9},
    {".5", 0.5},
    {"5.", 5.0},
    {"1e3", 1000.0},
    {"1E3", 1000.0},
    {"1e+3", 1000.0},
    {"25e-1", 2.5},
    {"5%", 5.0},
    {"5abc", 5.0},
    {"5e", 5.0},
    {"5e+", 5.0},
    {"5exposures", 5.0},
    {"5e 3", 5.0},
    {"1.5.2", 1.5},
    {"1,5", 1.0},
    {"1 5", 1.0},
    {"0x10", 0.0},
    {"", 0.0},
    {" ", 0.0},
    {".", 0.0},
    {"-", 0.0},
    {"+-5", 0.0},
    {"- 5", 0.0},
    {"e3", 0.0},
    {".e3", 0.0},
    {"none", 0.0},
    {"inf", 0.0},
    {"-infinity", 0.0},
    {"nan", 0.0},
    {"1.#INF", 1.0},
    {"1e308", 1e308},
    {"1e309", kHighestDouble},
    {"-1e309", -kHighestDouble},
    {"1e99999999999999999999", kHighestDouble},
    {"1e-400", 0.0},
    {"1e-99999999999999999999", 0.0},
    {std::string(30000, '9'), kHighestDouble},
    {"0." + std::string(30000, '0') + "1", 0.0},
    {"2." + std::string(30000, '0'), 2.0},
};

TEST(DecimalNumber, ReadsAsFarAsTheTextIsANumber) {
    for (const DecimalCase& number : kDecimals) {
        EXPECT_EQ(DecimalNumber(number.text), number.number) << number.text.substr(0, 40);
        const std::wstring wide(number.text.begin(), number.text.end());
        EXPECT_EQ(DecimalNumber(wide), number.number) << number.text.substr(0, 40);
    }
}

TEST(DecimalNumber, TakesNoDigitsOfOtherScripts) {
    EXPECT_EQ(DecimalNumber(L"\xFF16"), 0.0);
    EXPECT_EQ(DecimalNumber(L"6\xFF16"), 6.0);
}

TEST(DecimalNumber, AgreesWithTheCRunTimeWhereThatIsDefined) {
    for (const DecimalCase& number : kDecimals) {
        const double expected = std::atof(number.text.c_str());
        const bool isWordOrHexadecimal = number.text.find_first_of("nx") != std::string::npos;
        if (!isWordOrHexadecimal && std::isfinite(expected)) {
            EXPECT_EQ(DecimalNumber(number.text), expected) << number.text.substr(0, 40);
        }
    }
}

TEST(DecimalNumbers, DoNotDependOnTheRunTimesLocale) {
    const char* const german = std::setlocale(LC_ALL, "German");
    EXPECT_EQ(DecimalNumber("2.5"), 2.5) << (german != nullptr ? german : "no such locale");
    EXPECT_EQ(DecimalText(2.5, 1), L"2.5");
    std::setlocale(LC_ALL, "C");
}

struct CommaBeforeFraction : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST(DecimalNumbers, DoNotDependOnTheGlobalLocale) {
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaBeforeFraction));
    EXPECT_EQ(DecimalNumber("2.5"), 2.5);
    EXPECT_EQ(DecimalText(2.5, 1), L"2.5");
    std::locale::global(before);
}

TEST(ClampedWholeNumber, BringsTheNumberIntoTheRange) {
    EXPECT_EQ(ClampedWholeNumber(L"1", 2, 10), 2);
    EXPECT_EQ(ClampedWholeNumber(L"7", 2, 10), 7);
    EXPECT_EQ(ClampedWholeNumber(L"11", 2, 10), 10);
    EXPECT_EQ(ClampedWholeNumber(L"4294967301", 2, 10), 10); // 5, if its upper half were lost
    EXPECT_EQ(ClampedWholeNumber(L"2147483648", 0, kHighest), kHighest);
}

TEST(DecimalText, RoundsToTheDigitsAskedFor) {
    EXPECT_EQ(DecimalText(2.25, 1), L"2.2");
    EXPECT_EQ(DecimalText(2.25, 2), L"2.25");
    EXPECT_EQ(DecimalText(1000.0, 1), L"1000.0");
    EXPECT_EQ(DecimalText(1.0e300, 1).size(), 303U);
}

TEST(Within32Bits, DropsTheFractionAndKeepsTheNearestEnd) {
    EXPECT_EQ(Within32Bits(3.9), 3);
    EXPECT_EQ(Within32Bits(-3.9), -3);
    EXPECT_EQ(Within32Bits(2147483648.0), kHighest);
    EXPECT_EQ(Within32Bits(-2147483649.0), kLowest);
    EXPECT_EQ(Within32Bits(1e300), kHighest);
    EXPECT_EQ(Within32Bits(-1e300), kLowest);
}

} // namespace
} // namespace orv
