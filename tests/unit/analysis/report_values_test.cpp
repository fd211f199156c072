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

TEST(ParseReport, FollowsAThousandLevels) {
    Json::Value report;
    EXPECT_TRUE(ParseReportJson(Nested(1000, '[', ']'), report));
    EXPECT_FALSE(ParseReportJson(Nested(1001, '[', ']'), report));
    EXPECT_FALSE(ParseReportJson(std::string(900, '['), report));
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

TEST(CTextOf, EndsAtTheFirstZeroCharacter) {
    EXPECT_EQ(CTextOf(Json::Value("abc")), "abc");
    EXPECT_EQ(CTextOf(Json::Value(std::string("ab\0c", 4))), "ab");
    EXPECT_EQ(CTextOf(Json::Value("")), "");
    EXPECT_EQ(CTextOf(Json::Value(5)), "5");
    EXPECT_EQ(CTextOf(Json::Value(360.0)), "360.0");
    EXPECT_EQ(CTextOf(Json::Value(true)), "true");
    EXPECT_EQ(CTextOf(Json::Value()), "");
    EXPECT_EQ(CTextOf(Json::Value(Json::arrayValue)), "");
    EXPECT_EQ(CTextOf(Json::Value(Json::objectValue)), "");
}

TEST(EntriesOf, AreNoneOfWhatIsNoList) {
    const Json::Value object =
        test::ParseJson(R"({"list": [1, 2], "object": {"a": 1}, "text": "a", "number": 5})");
    EXPECT_EQ(EntriesOf(object, "list").size(), 2U);
    for (const char* member : {"object", "text", "number", "missing"})
        EXPECT_TRUE(EntriesOf(object, member).empty()) << member;
    EXPECT_TRUE(EntriesOf(Json::Value(5), "list").empty());
}

} // namespace
} // namespace orv
