// The report against tables: what each part of a scene's description becomes.
#include "standin/host/report.h"
#include "standin/host/text.h"
#include "tests/system/host/scene_folder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

Json::Value Parsed(const std::string& text) {
    Json::Value value;
    std::istringstream(text) >> value;
    return value;
}

Json::Value ReportOf(const std::string& description) {
    standin::Scene scene;
    std::string error;
    EXPECT_TRUE(scene.describe(description, error)) << error;
    return standin::MakeReport(scene);
}

struct Row {
    const char* description;
    const char* key;
    const char* expected; // JSON
};

class ReportTable : public ::testing::TestWithParam<Row> {};

TEST_P(ReportTable, HoldsTheKey) {
    const Json::Value report = ReportOf(GetParam().description);
    const Json::Value expected = Parsed(std::string("[") + GetParam().expected + "]")[0];
    EXPECT_EQ(report[GetParam().key], expected) << report.toStyledString();
}

INSTANTIATE_TEST_SUITE_P(
    Scene, ReportTable,
    ::testing::Values(
        Row{"{}", "app_version", R"("2019")"}, Row{"{}", "version", R"("21.0")"},
        Row{R"({"app_version": "2020", "version": "22.1"})", "app_version", R"("2020")"},
        Row{R"({"app_version": "2020", "version": "22.1"})", "version", R"("22.1")"},
        Row{"{}", "name", R"("")"}, //
        Row{R"({"frames": {"start": -5, "end": 250}})", "start_frame", R"("-5")"},
        Row{R"({"frames": {"start": -5, "end": 250}})", "end_frame", R"("250")"},
        Row{R"({"output": {"width": 4000, "height": 2250}})", "image_width", R"("4000")"},
        Row{R"({"output": {"width": 4000, "height": 2250}})", "image_height", R"("2250")"},
        Row{R"({"output": {"format": "exr"}})", "image_format", R"("exr")"},
        Row{R"({"output": {"gamma": 1.0}})", "gamma_out", R"("1")"},
        Row{"{}", "gamma_out", R"("2.2")"}, Row{"{}", "is_region", R"("false")"},
        Row{R"({"output": {"region": true}})", "is_region", R"("true")"}));

INSTANTIATE_TEST_SUITE_P(
    Renderer, ReportTable,
    ::testing::Values(
        Row{"{}", "renderer_full_name", R"("Default_Scanline_Renderer")"},
        Row{R"({"renderer": {"name": "Missing_Renderer"}})", "renderer_full_name",
            R"("Missing_Renderer")"},
        Row{"{}", "vray_setting", "null"}, Row{"{}", "corona_setting", "null"},
        Row{R"({"renderer": {"vray": {"imagesampler_type": 3, "gi_irradmap_minRate": -3,
                "camera_override_fov": true, "camera_fov": 360.0, "is_spherical": true}}})",
            "vray_setting",
            R"({"imagesampler_type": "3", "gi_irradmap_minRate": "-3", "camera_override_fov": true,
                "camera_fov": "360", "is_spherical": "true"})"},
        Row{R"({"renderer": {"corona": {"pass_limit": 0, "time_limit": 3600000,
                "noise_level_limit": "0.0"}}})",
            "corona_setting",
            R"({"pass_limit": "0", "time_limit": "3600000", "noise_level_limit": "0.0"})"}));

INSTANTIATE_TEST_SUITE_P(
    Cameras, ReportTable,
    ::testing::Values(
        Row{"{}", "cameras", "[]"}, Row{R"({"cameras": ["A"]})", "dupl_cameras", "null"},
        Row{R"({"cameras": ["A", {"name": "\u4e2d", "width": 800, "height": 600}]})", "cameras",
            R"([{"name": "A"}, {"name": "\u4e2d", "camWidth": "800", "camHeight": "600"}])"},
        Row{R"({"cameras": ["A", "B", "A", "A", "B"]})", "dupl_cameras",
            R"([{"name": "A"}, {"name": "B"}])"}));

INSTANTIATE_TEST_SUITE_P(
    Files, ReportTable,
    ::testing::Values(
        Row{"{}", "missing_file", "[]"}, Row{"{}", "reference_file", "[]"},
        Row{R"({"external_files": [{"path": "D:\\a.png", "missing": true},
                                   {"path": "D:\\b.png", "missing": false}, "Q:\\no\\c.png"]})",
            "missing_file", R"([{"path": "D:\\a.png"}, {"path": "Q:\\no\\c.png"}])"},
        Row{R"({"external_files": ["D:\\a.png"], "xrefs": ["D:\\x.max"]})", "reference_file",
            R"([{"path": "D:\\a.png"}, {"path": "D:\\x.max"}])"},
        Row{R"({"external_files": ["D:\\1\\Wood.png", "D:\\2\\wood.PNG", "D:\\other.png"]})",
            "same_file", R"([{"path": "D:\\1\\Wood.png"}, {"path": "D:\\2\\wood.PNG"}])"},
        Row{R"({"external_files": ["D:\\1\\Wood.png", "d:\\1\\wood.png"]})", "same_file", "[]"},
        Row{"{}", "errors", "null"},
        Row{R"({"error_codes": ["107", "5"]})", "errors",
            R"({"error_code": [{"code": "107"}, {"code": "5"}]})"}));

TEST(Report, NamesTheOpenFileWithItsFullPath) {
    SceneFolder folder;
    standin::Scene scene;
    std::string error;
    ASSERT_TRUE(scene.open(folder.write(L"\u573A\u666F 1.max", "x"), error)) << error;
    EXPECT_EQ(standin::MakeReport(scene)["name"].asString(),
              standin::ToUtf8(folder.file(L"\u573A\u666F 1.max")));
}

TEST(Report, LooksForABareFileNameBesideTheScene) {
    SceneFolder folder;
    folder.write(L"here.png", "x");
    folder.write(L"a.max.json", R"({"external_files": ["here.png", "gone.png"]})");
    standin::Scene scene;
    std::string error;
    ASSERT_TRUE(scene.open(folder.write(L"a.max", "x"), error)) << error;
    const Json::Value missing = standin::MakeReport(scene)["missing_file"];
    ASSERT_EQ(missing.size(), 1U);
    EXPECT_EQ(missing[0]["path"].asString(), "gone.png");
}

TEST(Report, IsUtf8WithoutAMark) {
    const std::string text =
        standin::ReportText(ReportOf(R"({"cameras": ["\u4e2d", "\ud840\udc0b"]})"));
    EXPECT_EQ(text[0], '{');
    EXPECT_NE(text.find("\"\xE4\xB8\xAD\""), std::string::npos);
    EXPECT_NE(text.find("\"\xF0\xA0\x80\x8B\""), std::string::npos);
}

} // namespace
