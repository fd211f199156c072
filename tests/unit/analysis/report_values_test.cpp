#include "analysis/report_json.h"
#include "tests/unit/analysis/sample_report.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using test::ParseReport;

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
