// The script runner of the host: the product's own parser, and what the scene's description makes
// scripts do.
#include "standin/host/maxscript_runner.h"
#include "standin/host/text.h"
#include "tests/support/product_folder.h"
#include "tests/system/host/scene_folder.h"

#include "base/windows.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <sstream>

namespace {

using standin::ScriptOutcome;

class Scripts : public ::testing::Test {
protected:
    Scripts() {
        product.installScripts();
        parser = product.path(L"/script/MaxRenderGlobalsParser.mse");
        report = folder.file(L"report.ret");
    }

    void describe(const std::string& json) {
        std::string error;
        ASSERT_TRUE(scene.describe(json, error)) << error;
    }
    ScriptOutcome analyse() {
        return runner.run(L"fileIn @\"" + parser + L"\"\ngMax.analysis @\"" + report + L"\" \"\"");
    }
    Json::Value written() const {
        Json::Value json;
        std::istringstream(orv::test::ReadFileBytes(report)) >> json;
        return json;
    }

    orv::test::TestProductFolder product;
    SceneFolder folder;
    standin::Scene scene;
    standin::MaxscriptRunner runner{scene, [](const std::wstring&) { return std::wstring(); },
                                    [](const std::wstring&) {}};
    std::wstring parser;
    std::wstring report;
};

TEST_F(Scripts, TheAnalysisWritesReportAndLogAndGivesTrue) {
    describe(R"({"cameras": ["A"]})");
    const ScriptOutcome outcome = analyse();
    EXPECT_TRUE(outcome.ok) << standin::ToUtf8(outcome.error);
    EXPECT_EQ(outcome.type, ScriptOutcome::Type::Boolean);
    EXPECT_TRUE(outcome.boolean);
    EXPECT_EQ(written()["cameras"][0]["name"].asString(), "A");
    EXPECT_TRUE(standin::FileExists(report + L".log"));
}

TEST_F(Scripts, AScriptFileThatIsNotThereIsAnError) {
    ASSERT_TRUE(DeleteFileW(parser.c_str()));
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

TEST_F(Scripts, ASceneThatIsOpenedInPlaceOfAnotherIsTheOneThatIsAnalysed) {
    describe(R"({"cameras": ["A"]})");
    ASSERT_TRUE(analyse().ok);
    describe(R"({"cameras": ["B"]})");
    ASSERT_TRUE(analyse().ok);
    EXPECT_EQ(written()["cameras"][0]["name"].asString(), "B");
}

TEST_F(Scripts, WhatAScriptChangesOfTheSceneIsSavedWithIt) {
    describe(R"({"cameras": ["A", "B"], "kept": [1]})");
    ASSERT_TRUE(runner.run(L"delete cameras[1]").ok);
    EXPECT_TRUE(scene.modified());
    ASSERT_EQ(scene.description().cameras.size(), 1U);
    EXPECT_EQ(scene.description().cameras[0].name, L"B");
    EXPECT_NE(scene.descriptionText().find("kept"), std::string::npos);
}

TEST_F(Scripts, WhatOneScriptDeletedTheNextDoesNotMistakeForAnother) {
    describe(R"({"cameras": ["A", "B", "C"], "objects": ["Box"], "nodes": [{"name": "N"}],
        "callbacks": [{"id": "kept", "persistent": false}]})");
    ASSERT_TRUE(runner.run(L"delete cameras[1]").ok);
    ASSERT_TRUE(runner.run(L"delete cameras[1]").ok);
    Json::Value saved;
    std::istringstream(scene.descriptionText()) >> saved;
    ASSERT_EQ(saved["cameras"].size(), 1U);
    EXPECT_EQ(saved["cameras"][0], "C");
    EXPECT_EQ(saved["objects"][0], "Box");
    EXPECT_EQ(saved["nodes"].size(), 1U);
    EXPECT_FALSE(saved["callbacks"][0].isMember("persistent"));
}

TEST_F(Scripts, AReportThatCannotBeWrittenIsAnError) {
    report = folder.file(L"no folder\\report.ret");
    EXPECT_FALSE(analyse().ok);
}

// No description makes the parser fail: what is odd in it is as if it were not there.
class OddScenes : public Scripts, public ::testing::WithParamInterface<const char*> {};

TEST_P(OddScenes, AreAnalysed) {
    describe(GetParam());
    const ScriptOutcome outcome = analyse();
    EXPECT_TRUE(outcome.ok) << standin::ToUtf8(outcome.error);
    EXPECT_EQ(written()["image_width"].asString(), "640");
}

INSTANTIATE_TEST_SUITE_P(
    Scenes, OddScenes,
    ::testing::Values(R"({"output": {"width": "wide", "gamma": []}})",
                      R"({"output": {"width": 99999999999, "render_type": 4}})",
                      R"({"output": 7, "frames": [], "cameras": {"a": 1}, "nodes": 3})",
                      R"({"cameras": [1, null, {"name": 5}], "nodes": [1, {"class": 2}]})",
                      R"({"renderer": "text", "maps": [null], "external_files": [4, {"path": 5}]})",
                      R"({"globals": 4, "callbacks": [5], "persistents": [6], "xrefs": [7, {}]})",
                      R"({"renderer": {"name": 4, "properties": ["x"]}})"));

TEST_F(Scripts, AScriptToldToFailFailsWithItsMessage) {
    describe(R"({"scripts": {"MaxRenderGlobalsParser.mse": {"does": "error", "message": "no"}}})");
    const ScriptOutcome outcome = analyse();
    EXPECT_FALSE(outcome.ok);
    EXPECT_EQ(outcome.error.substr(0, 3), L"no;");
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
