// A part of the scene that cannot be read costs only its part of the report.
#include "standin/host/text.h"
#include "tests/support/files.h"
#include "tests/system/scripts/scenes.h"

#include <gtest/gtest.h>

namespace {

using orv::test::SceneUnderTest;

Json::Value Scene() {
    return orv::test::ParsedJson(R"({"cameras": ["A"], "output": {"width": 100, "height": 50},
        "external_files": ["D:\\a.png"], "xrefs": ["D:\\x.max"],
        "nodes": [{"name": "T", "class": "VRayProxy", "superclass": "GeometryClass"}]})");
}

struct Failing {
    const wchar_t* global;  // of the host, which then throws
    const char* logged;     // what the log says has failed
    const char* unaffected; // a member that is there all the same
};

void PrintTo(const Failing& row, std::ostream* out) {
    *out << standin::ToUtf8(row.global);
}

class FailingProbes : public ::testing::TestWithParam<Failing> {};

TEST_P(FailingProbes, CostTheirOwnPartOfTheReport) {
    SceneUnderTest scene(Scene(), L"shot.max");
    // A host without this global: reading it is an error.
    ASSERT_TRUE(scene.run(L"1").ok);
    scene.breakGlobal(GetParam().global);
    const Json::Value report = orv::test::ParsedJson(scene.analyse());
    EXPECT_TRUE(report["is_region"].isString());
    EXPECT_TRUE(report["image_width"].isString());
    EXPECT_FALSE(report[GetParam().unaffected].empty()) << report.toStyledString();
    bool told = false;
    for (const Json::Value& code : report["errors"]["error_code"])
        told = told || code["code"] == "105";
    EXPECT_TRUE(told);
    const std::string log = orv::test::ReadFileBytes(scene.reportFile() + L".log");
    EXPECT_NE(log.find(GetParam().logged), std::string::npos) << log;
}

INSTANTIATE_TEST_SUITE_P(
    Host, FailingProbes,
    ::testing::Values(Failing{L"maxVersion", "probe of the version", "cameras"},
                      Failing{L"renderers", "probe of the renderer", "cameras"},
                      Failing{L"renderWidth", "probe of the image size", "cameras"},
                      Failing{L"rendOutputFilename", "probe of the image format", "cameras"},
                      Failing{L"getRenderType", "probe of the region", "cameras"},
                      Failing{L"rendTimeType", "probe of the frames", "cameras"},
                      Failing{L"fileOutGamma", "probe of the gamma", "cameras"},
                      Failing{L"cameras", "probe of the cameras", "reference_file"},
                      Failing{L"AssetManager", "probe of the assets", "reference_file"},
                      Failing{L"xrefs", "probe of the references", "reference_file"},
                      Failing{L"getClassInstances", "probe of the plug-ins' files",
                              "reference_file"}));

TEST(Parser, ThrowsWhenTheReportCannotBeWritten) {
    SceneUnderTest scene(Scene(), L"shot.max");
    ASSERT_FALSE(scene.analyse().empty());
    const auto outcome =
        scene.run(L"gMax.analysis @\"" + scene.folder.file(L"absent\\r.ret") + L"\" \"\"");
    EXPECT_FALSE(outcome.ok);
    EXPECT_EQ(outcome.error.find(L"The report cannot be written"), 0U);
}

TEST(Parser, ReplacesAReportThatIsThere) {
    SceneUnderTest scene(Scene(), L"shot.max");
    orv::test::WriteFileBytes(scene.reportFile(), "an older report");
    EXPECT_EQ(orv::test::ParsedJson(scene.analyse())["image_width"].asString(), "100");
}

TEST(Cleaners, MakeNoneOfTheNamesThatTheyLookFor) {
    SceneUnderTest scene(Scene(), L"shot.max");
    scene.clean();
    EXPECT_TRUE(scene
                    .run(L"for n in globalVars.gather() where (matchPattern (n as string) "
                         L"pattern:\"*CRP*\") or "
                         L"(matchPattern (n as string) pattern:\"*CleanBeta*\") do throw n")
                    .ok);
    EXPECT_FALSE(scene.scene.modified());
}

TEST(Cleaners, WorkWithoutALog) {
    SceneUnderTest scene(orv::test::ParsedJson(R"({"globals": {"CRP_AScript": "marker"}})"),
                         L"shot.max");
    scene.product.write(L"/log", "a file where the folder belongs");
    scene.clean();
    EXPECT_NE(scene.listener.find(L"CRP check: cleaned, 1 removed"), std::wstring::npos);
    EXPECT_TRUE(scene.run(L"if globalVars.isGlobal #CRP_AScript do throw \"still there\"").ok);
}

TEST(Cleaners, ReportALongScriptThatIsNoneOfTheirs) {
    const std::string script(5000, 'x');
    SceneUnderTest scene(orv::test::ParsedJson(
                             R"({"nodes": [{"name": "Rig", "class": "Point", "superclass": "Helper",
        "controllers": {"scale": ")" +
                             script + R"("}}]})"),
                         L"shot.max");
    scene.clean();
    EXPECT_EQ(scene.cleaned(),
              (std::vector<std::string>{"clean result ADSL", "suspicious node Rig",
                                        "suspicious only result ALC", "clean result CRP"}));
    EXPECT_EQ(scene.description()["nodes"].size(), 1U);
    EXPECT_FALSE(scene.scene.modified());
}

} // namespace
