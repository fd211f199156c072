// The script runner: which texts it understands, and what the scene's description makes scripts do.
#include "standin/host/parser_call_runner.h"
#include "standin/host/text.h"
#include "tests/system/host/scene_folder.h"

#include "base/windows.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <sstream>

namespace {

using standin::ParserCallRunner;
using standin::ScriptCall;
using standin::ScriptOutcome;

std::vector<ScriptCall> Calls(const std::wstring& text) {
    std::vector<ScriptCall> calls;
    std::wstring error;
    EXPECT_TRUE(standin::ParseScriptText(text, calls, error)) << standin::ToUtf8(error);
    return calls;
}

struct Literal {
    const wchar_t* written;
    const wchar_t* meant;
};

class TextLiterals : public ::testing::TestWithParam<Literal> {};

TEST_P(TextLiterals, AreReadAsTheHostReadsThem) {
    const auto calls = Calls(std::wstring(L"fileIn ") + GetParam().written);
    ASSERT_EQ(calls.size(), 1U);
    ASSERT_EQ(calls[0].arguments.size(), 1U);
    EXPECT_EQ(calls[0].arguments[0], GetParam().meant);
}

INSTANTIATE_TEST_SUITE_P(Literals, TextLiterals,
                         ::testing::Values(Literal{LR"("C:\ProgramData/Orv/a.mse")",
                                                   L"C:\\ProgramData/Orv/a.mse"},
                                           Literal{LR"("C:\new\text")", L"C:\new\text"},
                                           Literal{LR"("a\\b\"c\*\?\%")", L"a\\b\"c*?%"},
                                           Literal{LR"("\x4e2d\xyz")", L"\u4E2D\\xyz"},
                                           Literal{LR"(@"C:\new\text\")", L"C:\\new\\text\\"},
                                           Literal{LR"("two
lines")",
                                                   L"two\nlines"},
                                           Literal{LR"("")", L""}));

TEST(ScriptText, ASecondLineIsASecondCall) {
    const auto calls = Calls(L"fileIn \"a.mse\"\ngMax.analysis \"b.ret\" \"\"");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[1].name, L"gMax.analysis");
    EXPECT_EQ(calls[1].arguments, (std::vector<std::wstring>{L"b.ret", L""}));
}

class StrangeTexts : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(StrangeTexts, AreErrors) {
    std::vector<ScriptCall> calls;
    std::wstring error;
    EXPECT_FALSE(standin::ParseScriptText(GetParam(), calls, error));
    EXPECT_NE(error, L"");
    standin::Scene scene;
    ParserCallRunner runner(scene);
    EXPECT_FALSE(runner.run(GetParam()).ok);
}

INSTANTIATE_TEST_SUITE_P(Texts, StrangeTexts,
                         ::testing::Values(L"", L"  \r\n ", L"fileIn \"open", L"fileIn \"a\" 5",
                                           L"(1 + 2)", L"fileIn \"path \"with quote\".mse\"",
                                           L"\"text first\"", L"fileIn @", L"\\"));

class Scripts : public ::testing::Test {
protected:
    Scripts()
        : parser(folder.write(L"MaxRenderGlobalsParser.mse", "-- parser")),
          report(folder.file(L"report.ret")) {}

    void describe(const std::string& json) {
        std::string error;
        ASSERT_TRUE(scene.describe(json, error)) << error;
    }
    ScriptOutcome analyse() {
        return runner.run(L"fileIn @\"" + parser + L"\"\ngMax.analysis @\"" + report + L"\" \"\"");
    }

    SceneFolder folder;
    standin::Scene scene;
    ParserCallRunner runner{scene};
    std::wstring parser;
    std::wstring report;
};

TEST_F(Scripts, TheAnalysisWritesReportAndLogAndGivesTrue) {
    describe(R"({"cameras": ["A"]})");
    const ScriptOutcome outcome = analyse();
    EXPECT_TRUE(outcome.ok) << standin::ToUtf8(outcome.error);
    EXPECT_EQ(outcome.type, ScriptOutcome::Type::Boolean);
    EXPECT_TRUE(outcome.boolean);
    Json::Value json;
    std::istringstream(orv::test::ReadFileBytes(report)) >> json;
    EXPECT_EQ(json["cameras"][0]["name"].asString(), "A");
    EXPECT_TRUE(standin::FileExists(report + L".log"));
}

TEST_F(Scripts, AScriptFileThatIsNotThereIsAnError) {
    DeleteFileW(parser.c_str());
    EXPECT_FALSE(analyse().ok);
    EXPECT_FALSE(standin::FileExists(report));
}

TEST_F(Scripts, TheAnalysisIsUnknownBeforeTheParserWasLoaded) {
    EXPECT_FALSE(runner.run(L"gMax.analysis \"a.ret\" \"\"").ok);
    folder.write(L"other.ms", "");
    EXPECT_TRUE(runner.run(L"fileIn @\"" + folder.file(L"other.ms") + L"\"").ok);
    EXPECT_FALSE(runner.run(L"gMax.analysis \"a.ret\" \"\"").ok);
}

TEST_F(Scripts, TheParserStaysLoaded) {
    ASSERT_TRUE(analyse().ok);
    EXPECT_TRUE(runner.run(L"GMAX.Analysis @\"" + folder.file(L"second.ret") + L"\" \"\"").ok);
    EXPECT_TRUE(standin::FileExists(folder.file(L"second.ret")));
}

TEST_F(Scripts, AReportThatCannotBeWrittenIsAnError) {
    report = folder.file(L"no folder\\report.ret");
    EXPECT_FALSE(analyse().ok);
}

TEST_F(Scripts, AScriptToldToFailFailsWithItsMessage) {
    describe(R"({"scripts": {"MaxRenderGlobalsParser.mse": {"does": "error", "message": "no"}}})");
    const ScriptOutcome outcome = analyse();
    EXPECT_FALSE(outcome.ok);
    EXPECT_EQ(outcome.error, L"no");
    EXPECT_FALSE(standin::FileExists(report));
}

TEST_F(Scripts, AScriptToldToWriteNothingStillSucceeds) {
    describe(R"({"scripts": {"maxrenderglobalsparser.MSE": {"does": "nothing"}}})");
    EXPECT_TRUE(analyse().ok);
    EXPECT_FALSE(standin::FileExists(report));
}

struct Written {
    const char* description;
    std::string bytes;
};

class GivenReports : public Scripts, public ::testing::WithParamInterface<Written> {};

TEST_P(GivenReports, AreWrittenToTheByte) {
    describe(std::string(R"({"scripts": {"MaxRenderGlobalsParser.mse": )") +
             GetParam().description + "}}");
    EXPECT_TRUE(analyse().ok);
    EXPECT_EQ(orv::test::ReadFileBytes(report), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Reports, GivenReports,
    ::testing::Values(Written{R"({"does": "bytes", "bytes": "EF BB BF 7b 7D 00 0a"})",
                              std::string("\xEF\xBB\xBF{}\0\n", 7)},
                      Written{R"({"does": "text", "text": "this is not JSON \u4e2d"})",
                              "this is not JSON \xE4\xB8\xAD"},
                      Written{R"({"does": "bytes"})", ""}));

TEST_F(Scripts, AScriptToldToWaitKeepsTheHostBusy) {
    describe(R"({"scripts": {"clean.ms": {"wait_ms": 120}}})");
    folder.write(L"clean.ms", "");
    const ULONGLONG begin = GetTickCount64();
    EXPECT_TRUE(runner.run(L"fileIn @\"" + folder.file(L"clean.ms") + L"\"").ok);
    EXPECT_GE(GetTickCount64() - begin, 100U);
}

TEST_F(Scripts, ACleaningScriptCanBeToldToFail) {
    describe(R"({"scripts": {"clean.ms": {"does": "error"}}})");
    folder.write(L"clean.ms", "");
    EXPECT_FALSE(runner.run(L"fileIn @\"" + folder.file(L"clean.ms") + L"\"").ok);
}

} // namespace
