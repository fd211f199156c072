// Opening, saving and refusing scenes, through real files.
#include "standin/host/scene.h"
#include "standin/host/text.h"
#include "tests/system/host/scene_folder.h"

#include "base/windows.h"

#include <gtest/gtest.h>

namespace {

using standin::Scene;

class SceneFile : public ::testing::Test {
protected:
    std::wstring put(const std::string& description, const std::string& bytes = "scene bytes") {
        folder.write(L"\u6837\u677F shot.max.json", description);
        return folder.write(L"\u6837\u677F shot.max", bytes);
    }

    SceneFolder folder;
    Scene scene;
    std::string error;
};

TEST_F(SceneFile, ANewSceneHasNeitherNameNorPath) {
    EXPECT_FALSE(scene.hasFile());
    EXPECT_EQ(scene.path(), L"");
    EXPECT_EQ(scene.fileName(), L"");
    EXPECT_FALSE(scene.save());
}

TEST_F(SceneFile, OpeningTakesNamePathAndDescription) {
    const std::wstring path = put(R"({"cameras": ["Kitchen"], "modified": true})");
    ASSERT_TRUE(scene.open(path, error)) << error;
    EXPECT_EQ(scene.path(), path);
    EXPECT_EQ(scene.fileName(), L"\u6837\u677F shot.max");
    EXPECT_TRUE(scene.modified());
    ASSERT_EQ(scene.description().cameras.size(), 1U);
    EXPECT_EQ(scene.description().cameras[0].name, L"Kitchen");
}

TEST_F(SceneFile, ASceneWithoutADescriptionIsEmpty) {
    ASSERT_TRUE(scene.open(folder.write(L"bare.max", "x"), error)) << error;
    EXPECT_TRUE(scene.description().cameras.empty());
}

TEST_F(SceneFile, WhatCannotBeOpenedLeavesTheOpenSceneAlone) {
    const std::wstring path = put("{}");
    ASSERT_TRUE(scene.open(path, error));
    folder.write(L"broken.max", "x");
    folder.write(L"broken.max.json", "{ this is no JSON");
    EXPECT_FALSE(scene.open(folder.file(L"broken.max"), error));
    EXPECT_NE(error, "");
    EXPECT_FALSE(scene.open(folder.file(L"absent.max"), error));
    EXPECT_EQ(scene.path(), path);
}

TEST_F(SceneFile, SavingToANewPathCopiesBytesAndDescriptionAndBecomesTheOpenFile) {
    const std::string bytes("bytes\0with\r\nall\xFF kinds", 22);
    const std::string description = R"({"cameras": ["A"], "modified": true, "kept": {"as": "is"}})";
    ASSERT_TRUE(scene.open(put(description, bytes), error)) << error;
    const std::wstring target = folder.file(L"\u65B0 name");
    ASSERT_TRUE(scene.saveTo(target, true, true));
    EXPECT_EQ(orv::test::ReadFileBytes(target), bytes);
    EXPECT_EQ(orv::test::ReadFileBytes(target + L".json"), description);
    EXPECT_EQ(scene.path(), target);
    EXPECT_FALSE(scene.modified());
}

TEST_F(SceneFile, SavingACopyKeepsTheOpenFileAndTheModifiedMark) {
    const std::wstring path = put(R"({"modified": true})");
    ASSERT_TRUE(scene.open(path, error)) << error;
    ASSERT_TRUE(scene.saveTo(folder.file(L"copy.max"), false, false));
    EXPECT_TRUE(standin::FileExists(folder.file(L"copy.max")));
    EXPECT_EQ(scene.path(), path);
    EXPECT_TRUE(scene.modified());
}

TEST_F(SceneFile, ASceneNeverSavedGetsAFileWhenSavedTo) {
    ASSERT_TRUE(scene.describe(R"({"cameras": ["A"]})", error)) << error;
    ASSERT_TRUE(scene.saveTo(folder.file(L"first.max"), true, true));
    Scene again;
    ASSERT_TRUE(again.open(folder.file(L"first.max"), error)) << error;
    EXPECT_EQ(again.description().cameras.size(), 1U);
}

TEST_F(SceneFile, ARefusalIsObeyed) {
    const std::wstring path = put(R"({"refuse_save": true, "modified": true})");
    ASSERT_TRUE(scene.open(path, error)) << error;
    EXPECT_FALSE(scene.save());
    EXPECT_FALSE(scene.saveTo(folder.file(L"other.max"), true, true));
    EXPECT_FALSE(standin::FileExists(folder.file(L"other.max")));
    EXPECT_EQ(scene.path(), path);
    EXPECT_TRUE(scene.modified());
}

TEST_F(SceneFile, SavingIntoAFolderThatIsNotThereFails) {
    ASSERT_TRUE(scene.open(put("{}"), error)) << error;
    EXPECT_FALSE(scene.saveTo(folder.file(L"no folder\\a.max"), true, true));
    EXPECT_EQ(scene.fileName(), L"\u6837\u677F shot.max");
}

TEST_F(SceneFile, AReadOnlyFileCannotBeSaved) {
    const std::wstring path = put("{}");
    ASSERT_TRUE(scene.open(path, error)) << error;
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(scene.save());
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(scene.save());
}

TEST_F(SceneFile, AFileThatAnotherProgramHoldsCannotBeSaved) {
    const std::wstring path = put("{}");
    ASSERT_TRUE(scene.open(path, error)) << error;
    orv::FileHandle held = orv::test::HoldExclusively(path);
    EXPECT_FALSE(scene.save());
    held.reset();
    EXPECT_TRUE(scene.save());
}

struct OddDescription {
    const char* json;
    bool accepted;
};

class OddDescriptions : public ::testing::TestWithParam<OddDescription> {};

TEST_P(OddDescriptions, NeverStopTheHost) {
    standin::SceneDescription description;
    std::string error;
    EXPECT_EQ(standin::ReadSceneDescription(GetParam().json, description, error),
              GetParam().accepted);
    EXPECT_EQ(error.empty(), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(
    Descriptions, OddDescriptions,
    ::testing::Values(OddDescription{"", false}, OddDescription{"[1, 2]", false},
                      OddDescription{"\"text\"", false}, OddDescription{"{} trailing", true},
                      OddDescription{R"({"output": {"width": "wide"}})", true},
                      OddDescription{R"({"output": {"width": 99999999999}})", true},
                      OddDescription{R"({"output": 7, "frames": [], "cameras": {"a": 1}})", true},
                      OddDescription{R"({"cameras": [1, null, {"name": 5}]})", true},
                      OddDescription{R"({"scripts": {"a.ms": 3, "b.ms": {"does": 4}}})", true},
                      OddDescription{R"({"renderer": "text"})", true}));

} // namespace
