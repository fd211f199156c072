#include "submit/scene_file.h"

#include "resources/controls.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/test_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SceneSave : public ::testing::Test {
protected:
    SceneSave() { host_.sceneFilePath = L"D:\\scenes\\room.max"; }

    std::string save(const std::string& fileName) {
        return SaveSceneAs(analysis_, dialog_.control(IDC_SCENE_NAME), fileName);
    }

    TestProductFolder product_;
    FakeDoor host_;
    TestDialog dialog_;
    SceneAnalysis analysis_;
};

TEST_F(SceneSave, SavesBesideTheOpenSceneUnderTheTypedName) {
    EXPECT_EQ(save("shot.max"), "D:\\scenes\\shot.max");
    EXPECT_THAT(host_.savedPaths(), ElementsAre(L"D:\\scenes\\shot.max"));
    EXPECT_EQ(analysis_.recordedSceneName, "shot.max");
    EXPECT_EQ(analysis_.sceneFilePath, "D:\\scenes\\room.max")
        << "the scene as it was before its first save";
}

TEST_F(SceneSave, TakesAChineseName) {
    EXPECT_EQ(save("\xE5\x9C\xBA\xE6\x99\xAF.max"), "D:\\scenes\\\xE5\x9C\xBA\xE6\x99\xAF.max");
    EXPECT_THAT(host_.savedPaths(), ElementsAre(L"D:\\scenes\\\x573A\x666F.max"));
}

TEST_F(SceneSave, SavesNothingUnderTheRecordedName) {
    ASSERT_EQ(save("shot.max"), "D:\\scenes\\shot.max");
    EXPECT_EQ(save("shot.max"), "D:\\scenes\\shot.max");
    EXPECT_EQ(host_.savedPaths().size(), 1U);
    EXPECT_EQ(save("Shot.max"), "D:\\scenes\\Shot.max") << "names are compared byte for byte";
    EXPECT_EQ(host_.savedPaths().size(), 2U);
    EXPECT_EQ(analysis_.sceneFilePath, "D:\\scenes\\room.max")
        << "recorded before the first save only";
}

TEST_F(SceneSave, KeepsTheScenesNameWhenNoneIsTyped) {
    EXPECT_EQ(save(""), "D:\\scenes\\room.max");
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
    EXPECT_EQ(dialog_.text(IDC_SCENE_NAME), L"room");
}

TEST_F(SceneSave, CutsTheFolderAtTheLastSlashBeforeAnyBackslash) {
    host_.sceneFilePath = L"D:/work\\room.max";
    EXPECT_EQ(save("shot.max"), "D:/shot.max");
    host_.sceneFilePath = L"D:\\work/sub/room.max";
    EXPECT_EQ(save("other.max"), "D:\\work/sub/other.max");
}

TEST_F(SceneSave, SavesAgainAfterTheHostRefused) {
    host_.onSaveTo = [](const std::wstring&) { return false; };
    EXPECT_EQ(save("shot.max"), "");
    EXPECT_EQ(analysis_.recordedSceneName, "");
    EXPECT_NE(product_.log(L"rud_data").find("[ERROR] Save scene to D:\\scenes\\shot.max failed."),
              std::string::npos);
    host_.onSaveTo = nullptr;
    EXPECT_EQ(save("shot.max"), "D:\\scenes\\shot.max");
    EXPECT_EQ(host_.savedPaths().size(), 2U);
}

TEST_F(SceneSave, LeavesASceneAloneThatWasNeverSaved) {
    host_.sceneFilePath.clear();
    dialog_.setText(IDC_SCENE_NAME, L"shot");
    EXPECT_EQ(save("shot.max"), "");
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
    EXPECT_EQ(dialog_.text(IDC_SCENE_NAME), L"shot");
    EXPECT_NE(product_.log(L"rud_data").find("the scene has no file yet"), std::string::npos);
    EXPECT_EQ(save(""), "");
}

TEST_F(SceneSave, SavesNothingUnderTheNameThatTheAnalysisFound) {
    analysis_.recordedSceneName = "room.max";
    EXPECT_EQ(save("room.max"), "D:\\scenes\\room.max");
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
}

TEST_F(SceneSave, FindsTheOtherSceneThatItWouldReplace) {
    const TemporaryFolder folder(L"\x573A\x666F");
    host_.sceneFilePath = folder.file(L"room.max");
    WriteFileBytes(folder.file(L"room.max"), "open");
    WriteFileBytes(folder.file(L"shot.max"), "another");
    ::CreateDirectoryW(folder.file(L"sub.max").c_str(), nullptr);
    EXPECT_EQ(SceneToReplace(analysis_, "shot.max"), folder.file(L"shot.max"));
    EXPECT_EQ(SceneToReplace(analysis_, "SHOT.max"), folder.file(L"SHOT.max"));
    for (const char* name : {"", "new.max", "room.max", "ROOM.max", "sub.max", "../x.max"})
        EXPECT_EQ(SceneToReplace(analysis_, name), L"") << name;
    analysis_.recordedSceneName = "shot.max";
    EXPECT_EQ(SceneToReplace(analysis_, "shot.max"), L"") << "nothing is saved under this name";
}

TEST_F(SceneSave, RefusesANameThatIsNoPlainFiles) {
    for (const char* name : {"a:b.max", "sub\\shot.max", "sub/shot.max", "..\\shot.max", "con.max",
                             "shot.max ", "shot.max.", "a\nb.max", "*.max"}) {
        EXPECT_EQ(save(name), "") << name;
        EXPECT_EQ(analysis_.recordedSceneName, "") << name;
    }
    EXPECT_THAT(host_.savedPaths(), IsEmpty());
    EXPECT_NE(
        product_.log(L"rud_data").find("[ERROR] Save scene: no file can have this name: a:b.max"),
        std::string::npos);
}

TEST_F(SceneSave, RefusesAPathThatWindowsCannotTake) {
    const std::string longest(259 - std::string("D:\\scenes\\.max").size(), 'n');
    EXPECT_EQ(save(longest + ".max"), "D:\\scenes\\" + longest + ".max");
    EXPECT_EQ(save(longest + "n.max"), "");
    EXPECT_EQ(host_.savedPaths().size(), 1U);
    EXPECT_NE(product_.log(L"rud_data").find("the path is too long"), std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
