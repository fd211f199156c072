#include "submit/scene_file.h"

#include "analysis/text/text_convert.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <set>

namespace orv {
namespace test {
namespace {

TEST(BackupPathOfTest, AddsAtLeastSixDigits) {
    EXPECT_EQ(BackupPathOf(L"C:\\scenes\\shot.max", 417), L"C:\\scenes\\shot_000417.max");
    EXPECT_EQ(BackupPathOf(L"C:\\scenes\\shot.max", 1234567), L"C:\\scenes\\shot_1234567.max");
    EXPECT_EQ(BackupPathOf(L"C:/a.b\\\x573A.v2.max", 0), L"C:/a.b\\\x573A.v2_000000.max");
}

class SceneBackupFile : public ::testing::Test {
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

TEST_F(SceneBackupFile, CopiesTheSceneBesideItself) {
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

// Files of the artist's own that have the very names: they are neither written over nor deleted.
TEST_F(SceneBackupFile, LeavesAFileAloneThatHasItsName) {
    const std::wstring scene = folder_.file(L"shot.max");
    WriteFileBytes(scene, "scene bytes");
    std::set<std::wstring> before = {scene};
    const auto now = static_cast<unsigned>(std::time(nullptr));
    for (unsigned second = now; second < now + 20; ++second) {
        std::srand(second); // the numbers that are drawn in the next seconds
        before.insert(BackupPathOf(scene, std::rand()));
    }
    for (const std::wstring& path : before)
        WriteFileBytes(path, path == scene ? "scene bytes" : "older");
    ASSERT_TRUE(backUp(scene));
    EXPECT_EQ(before.count(backupPath_), 0U);
    EXPECT_EQ(ReadFileBytes(backupPath_), "scene bytes");
    {
        SceneBackup backup;
        backup.path = backupPath_;
    }
    EXPECT_EQ(ListFolder(folder_.path()).size(), before.size());
    for (const std::wstring& path : before)
        EXPECT_EQ(ReadFileBytes(path), path == scene ? "scene bytes" : "older");
}

TEST_F(SceneBackupFile, LogsTheCodeWhenThereIsNoScene) {
    EXPECT_FALSE(backUp(folder_.file(L"none.max")));
    EXPECT_TRUE(backupPath_.empty());
    EXPECT_NE(product_.log(L"rud_data").find(" Error! Code is 2"), std::string::npos);
}

TEST_F(SceneBackupFile, DoesNotCutALongPath) {
    EXPECT_FALSE(backUp(L"C:\\" + std::wstring(250, L'n') + L".max"));
    EXPECT_NE(product_.log(L"rud_data").find(" Error! Code is 206"), std::string::npos);
}

TEST_F(SceneBackupFile, TakesTheLongestPath) {
    const std::wstring name(259 - folder_.path().size() - 12, L'n'); // "\" and "_012345.max"
    const std::wstring scene = folder_.file(name + L".max");
    WriteFileBytes(scene, "scene bytes");
    ASSERT_TRUE(backUp(scene));
    EXPECT_EQ(backupPath_.size(), 259U);
    EXPECT_EQ(ReadFileBytes(backupPath_), "scene bytes");
}

TEST_F(SceneBackupFile, DeletesTheCopyOfAWriteProtectedScene) {
    const std::wstring scene = folder_.file(L"shot.max");
    WriteFileBytes(scene, "scene bytes");
    ::SetFileAttributesW(scene.c_str(), FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(backUp(scene));
    {
        SceneBackup backup;
        backup.path = backupPath_;
    }
    EXPECT_EQ(ListFolder(folder_.path()), std::vector<std::wstring>{L"shot.max"});
    ::SetFileAttributesW(scene.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(SceneBackupFile, LogsACopyThatCannotBeDeleted) {
    const std::wstring copy = folder_.file(L"shot_000417.max");
    const FileHandle held = HoldExclusively(copy);
    SceneBackup backup;
    backup.path = copy;
    backup.remove();
    EXPECT_NE(
        product_.log(L"rud_data").find("[WARN] DeleteFileW " + WideToUtf8(copy) + " error no:32"),
        std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
