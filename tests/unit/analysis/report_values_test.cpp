#include "analysis/report_json.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace orv {
namespace {

struct WholeNumberCase {
    const char* text;
    std::int32_t number;
};

TEST(WholeNumber, ReadsAsFarAsTheTextIsANumber) {
    const WholeNumberCase cases[] = {
        {"0", 0},
        {"12", 12},
        {"-7", -7},
        {" 8", 8},
        {"8080x", 8080},
        {"3.9", 3},
        {"", 0},
        {"x", 0},
        {"99999999999", std::numeric_limits<std::int32_t>::max()},
        {"-99999999999", std::numeric_limits<std::int32_t>::min()},
    };
    for (const WholeNumberCase& number : cases)
        EXPECT_EQ(WholeNumber(number.text), number.number) << number.text;
}

struct DecimalCase {
    const char* text;
    double number;
};

TEST(DecimalNumber, ReadsAsFarAsTheTextIsANumber) {
    const DecimalCase cases[] = {{"0", 0.0},    {"2.2", 2.2}, {"-0.5", -0.5},
                                 {" 4", 4.0},   {"5%", 5.0},  {"", 0.0},
                                 {"none", 0.0}, {"1,5", 1.0}, {"360.0", 360.0}};
    for (const DecimalCase& number : cases)
        EXPECT_DOUBLE_EQ(DecimalNumber(number.text), number.number) << number.text;
}

TEST(DecimalNumber, DoesNotDependOnTheHostsLanguage) {
    const char* const german = std::setlocale(LC_ALL, "German");
    EXPECT_DOUBLE_EQ(DecimalNumber("2.5"), 2.5) << (german != nullptr ? german : "no such locale");
    std::setlocale(LC_ALL, "C");
}

TEST(ParseReport, RefusesWhatIsNotJson) {
    for (const wchar_t* text : {L"", L"   ", L"no", L"{", L"{\"a\":}", L"\xFEFF{}"}) {
        Json::Value report;
        EXPECT_FALSE(ParseReport(text, report));
    }
}

TEST(ParseReport, RefusesAReportThatIsNestedTooDeeply) {
    Json::Value report;
    EXPECT_FALSE(ParseReport(std::wstring(5000, L'['), report));
    EXPECT_FALSE(ParseReport(std::wstring(5000, L'[') + std::wstring(5000, L']'), report));
}

TEST(ParseReport, KeepsCharactersBeyondTheBasicPlane) {
    Json::Value report;
    ASSERT_TRUE(ParseReport(L"{\"a\":\"\xD83C\xDFA5\"}", report));
    EXPECT_EQ(report["a"].asString(), "\xF0\x9F\x8E\xA5");
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

} // namespace
} // namespace orv
