#include "analysis/report_json.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

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
    for (const DecimalCase& number : kDecimals)
        EXPECT_EQ(DecimalNumber(number.text), number.number) << number.text.substr(0, 40);
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

TEST(DecimalNumber, DoesNotDependOnTheHostsLanguage) {
    const char* const german = std::setlocale(LC_ALL, "German");
    EXPECT_EQ(DecimalNumber("2.5"), 2.5) << (german != nullptr ? german : "no such locale");
    std::setlocale(LC_ALL, "C");
}

TEST(ParseReport, RefusesWhatIsNotJson) {
    for (const wchar_t* text : {L"", L"   ", L"no", L"{", L"{\"a\":}", L"\xFEFF{}"}) {
        Json::Value report;
        EXPECT_FALSE(ParseReport(text, report));
    }
}

std::string Nested(std::size_t levels, char opening, char closing) {
    return std::string(levels, opening) + std::string(levels, closing);
}

TEST(ParseReport, TellsAReportThatIsNestedTooDeeplyFromOneThatIsNotJson) {
    Json::Value report;
    EXPECT_EQ(ParseReportJson(Nested(1000, '[', ']'), report), ParseOutcome::Parsed);
    EXPECT_EQ(ParseReportJson(Nested(1001, '[', ']'), report), ParseOutcome::TooDeep);
    EXPECT_EQ(ParseReportJson(std::string(900, '['), report), ParseOutcome::NotJson);
    EXPECT_FALSE(ParseReport(std::wstring(5000, L'['), report));
}

TEST(ParseReport, KeepsCharactersBeyondTheBasicPlane) {
    Json::Value report;
    ASSERT_TRUE(ParseReport(L"{\"a\":\"\xD83C\xDFA5\"}", report));
    EXPECT_EQ(report["a"].asString(), "\xF0\x9F\x8E\xA5");
}

TEST(ParseReport, KeepsCommentsWithTheirValues) {
    Json::Value report;
    ASSERT_TRUE(ParseReport(L"{\"a\": 1, // first\n // second\n \"b\": 2}", report));
    EXPECT_EQ(report["a"].getComment(Json::commentAfterOnSameLine), "// first");
    EXPECT_EQ(report["b"].getComment(Json::commentBefore), "// second");
}

TEST(MemberOf, IsNullForWhatIsNoObject) {
    EXPECT_TRUE(MemberOf(Json::Value(), "a").isNull());
    EXPECT_TRUE(MemberOf(Json::Value(5), "a").isNull());
    EXPECT_TRUE(MemberOf(Json::Value(Json::arrayValue), "a").isNull());
    Json::Value object;
    object["a"] = 1;
    EXPECT_EQ(MemberOf(object, "a").asInt(), 1);
    EXPECT_TRUE(MemberOf(object, "b").isNull());
}

TEST(TextOf, IsEmptyForWhatHasNoText) {
    EXPECT_EQ(TextOf(Json::Value("abc")), "abc");
    EXPECT_EQ(TextOf(Json::Value(2019)), "2019");
    EXPECT_EQ(TextOf(Json::Value(true)), "true");
    EXPECT_EQ(TextOf(Json::Value()), "");
    EXPECT_EQ(TextOf(Json::Value(Json::objectValue)), "");
    EXPECT_EQ(TextOf(Json::Value(Json::arrayValue)), "");
}

TEST(RawText, EndsAtTheFirstZeroCharacter) {
    EXPECT_STREQ(RawText(Json::Value("abc")), "abc");
    EXPECT_STREQ(RawText(Json::Value(std::string("ab\0c", 4))), "ab");
    EXPECT_STREQ(RawText(Json::Value("")), "");
    EXPECT_STREQ(RawText(Json::Value(5)), "");
    EXPECT_STREQ(RawText(Json::Value()), "");
}

} // namespace
} // namespace orv
