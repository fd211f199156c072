#include "submit/scene_backup.h"

#include "analysis/text/text_convert.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(BackupPathOfTest, AddsAtLeastSixDigits) {
    EXPECT_EQ(BackupPathOf(L"C:\\scenes\\shot.max", 417), L"C:\\scenes\\shot_000417.max");
    EXPECT_EQ(BackupPathOf(L"C:\\scenes\\shot.max", 1234567), L"C:\\scenes\\shot_1234567.max");
    EXPECT_EQ(BackupPathOf(L"C:/a.b\\\x573A.v2.max", 0), L"C:/a.b\\\x573A.v2_000000.max");
}

class SceneBackup : public ::testing::Test {
protected:
    bool backUp(const std::wstring& scenePath) {
        SceneAnalysis analysis;
        analysis.sceneFilePath = WideToUtf8(scenePath);
        return BackupSceneFile(analysis, backupPath_);
    }

    TestProductFolder product_;
    TemporaryFolder folder_{L"scene \x573A\x666F"};
    std::wstring backupPath_;
};

TEST_F(SceneBackup, CopiesTheSceneBesideItself) {
    const std::wstring scene = folder_.file(L"shot one.max");
    WriteFileBytes(scene, "scene bytes");
    ASSERT_TRUE(backUp(scene));
    EXPECT_EQ(ReadFileBytes(backupPath_), "scene bytes");
    EXPECT_EQ(backupPath_.substr(0, folder_.path().size() + 10), folder_.file(L"shot one_"));
    EXPECT_EQ(ListFolder(folder_.path()).size(), 2U);
    EXPECT_NE(product_.log(L"rud_data")
                  .find("[WARN] Backup file from " + WideToUtf8(scene) + " to " +
                        WideToUtf8(backupPath_) + " Success!"),
              std::string::npos);
}

TEST_F(SceneBackup, LogsTheCodeWhenThereIsNoScene) {
    EXPECT_FALSE(backUp(folder_.file(L"none.max")));
    EXPECT_TRUE(backupPath_.empty());
    EXPECT_NE(product_.log(L"rud_data").find(" Error! Code is 2"), std::string::npos);
}

TEST_F(SceneBackup, DoesNotCutALongPath) {
    EXPECT_FALSE(backUp(L"C:\\" + std::wstring(250, L'n') + L".max"));
    EXPECT_NE(product_.log(L"rud_data").find(" Error! Code is 206"), std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
