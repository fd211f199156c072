// A scene of 5,000 objects and 3,000 assets. Its time is printed, not judged.
#include "tests/system/scripts/scenes.h"

#include "base/windows.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

constexpr int kObjects = 5000;
constexpr int kAssets = 3000;
constexpr int kCameras = 50;

TEST(LargeScene, IsReportedWhole) {
    Json::Value description(Json::objectValue);
    for (int i = 0; i < kObjects; ++i)
        description["objects"].append("Object " + std::to_string(i));
    for (int i = 0; i < kAssets; ++i)
        description["external_files"].append("D:\\maps " + std::to_string(i % 7) + "\\map " +
                                             std::to_string(i / 2) + ".png");
    for (int i = 0; i < kCameras; ++i)
        description["cameras"].append("Camera " + std::to_string(i));
    orv::test::SceneUnderTest scene(description, L"large.max");

    const ULONGLONG begin = ::GetTickCount64();
    const Json::Value report = orv::test::ParsedJson(scene.analyse());
    const ULONGLONG analysed = ::GetTickCount64();
    scene.clean();
    std::printf("5,000 objects and 3,000 assets: analysed in %llu ms, cleaned in %llu ms\n",
                analysed - begin, ::GetTickCount64() - analysed);
    EXPECT_EQ(report["cameras"].size(), static_cast<unsigned>(kCameras));
    EXPECT_EQ(report["reference_file"].size(), static_cast<unsigned>(kAssets));
    EXPECT_EQ(report["missing_file"].size(), static_cast<unsigned>(kAssets));
    EXPECT_EQ(report["same_file"].size(), static_cast<unsigned>(kAssets));
}

} // namespace
