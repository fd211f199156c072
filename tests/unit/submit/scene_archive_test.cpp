#include "submit/scene_archive.h"

#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "submit/archive_password.h"
#include "submit/paths.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/archiver.h"

#include <gtest/gtest.h>

#include <regex>

namespace orv {
namespace test {
namespace {

class SceneArchive : public ::testing::Test {
protected:
    SceneArchive() {
        paths_.sevenZipPath = product_.path(L"/7-Zip/7z.exe");
        paths_.compressDir = folder_.path() + L"/compress";
    }

    bool pack(const std::wstring& sceneFile) {
        scene_ = folder_.file(sceneFile);
        return PackScene(WideToUtf8(scene_), paths_, session_);
    }

    std::wstring archive() const { return Utf8ToWide(paths_.archivePath); }
    std::wstring archiveName() const { return archive().substr(FolderPart(archive()).size()); }
    std::string log() const { return product_.log(L"rud_data"); }

    TestProductFolder product_;
    TemporaryFolder folder_{L"\x5BA2\x5385 living room"};
    JobPaths paths_;
    SessionData session_;
    std::wstring scene_;
};

TEST_F(SceneArchive, IsNamedAfterTheSceneWithARandomTextBehind) {
    ASSERT_TRUE(pack(L"shot one.max"));
    EXPECT_TRUE(std::regex_match(archiveName(), std::wregex(L"shot one_[A-Za-z0-9]{6}\\.7z")))
        << paths_.archivePath;
    EXPECT_EQ(FolderPart(archive()), paths_.compressDir + L"/");
    EXPECT_TRUE(PathExists(paths_.compressDir));
}

TEST_F(SceneArchive, GivesSevenZipItsArgumentsInOrder) {
    ASSERT_TRUE(pack(L"shot.max"));
    const std::string expected = " a -mx=3 -mmt=2 -t7z -p" + ArchivePassword("shot") + " \"" +
                                 paths_.archivePath + "\" \"" + WideToUtf8(scene_) + "\"";
    EXPECT_TRUE(paths_.archiverArguments == expected);
}

TEST_F(SceneArchive, GoesToTheClientsFolderWhenThereIsOne) {
    session_.present = true;
    session_.savePath = folder_.file(L"\x8F93\x51FA of the client");
    ASSERT_TRUE(pack(L"shot.max"));
    EXPECT_EQ(FolderPart(archive()), session_.savePath + L"/");
    EXPECT_TRUE(PathExists(session_.savePath)) << "made when missing";
}

TEST_F(SceneArchive, GoesToTheCompressFolderWhenTheClientsCannotBeUsed) {
    struct {
        bool isPresent;
        std::wstring path;
    } const cases[] = {
        {false, folder_.path()}, {true, L""}, {true, folder_.file(L"no\\such\\folder")}};
    for (const auto& save : cases) {
        session_.present = save.isPresent;
        session_.savePath = save.path;
        ASSERT_TRUE(pack(L"shot.max"));
        EXPECT_EQ(FolderPart(archive()), paths_.compressDir + L"/");
    }
}

TEST_F(SceneArchive, RefusesNamesThatWindowsWouldChange) {
    for (const wchar_t* name : {L"shot..max", L"shot .max", L".max", L"..max"}) {
        EXPECT_FALSE(pack(name));
        EXPECT_TRUE(paths_.archivePath.empty());
    }
    EXPECT_NE(log().find("[ERROR] Pack scene: no archive can be named after"), std::string::npos);
}

TEST_F(SceneArchive, RefusesAPathThatIsTooLong) {
    EXPECT_FALSE(pack(std::wstring(250, L'n') + L".max"));
    EXPECT_TRUE(paths_.archivePath.empty());
    EXPECT_NE(log().find("[ERROR] Pack scene: the archive's path is too long"), std::string::npos);
}

struct PackedScene {
    const wchar_t* file;
    const char* baseName;
};

TEST_F(SceneArchive, CanBeUnpackedWithItsPassword) {
    InstallArchiver();
    const std::string bytes = std::string(100000, 'm') + std::string("\0\xFF\r\n", 4);
    const PackedScene cases[] = {
        {L"shot.max", "shot"},
        {L"\x573A\x666F one \xD83C\xDFA5.max", "\xE5\x9C\xBA\xE6\x99\xAF one \xF0\x9F\x8E\xA5"},
        {L"-x [a] {b} & 'c' ^d;e,f=g!.v2.max", "-x [a] {b} & 'c' ^d;e,f=g!.v2"},
    };
    for (const PackedScene& packed : cases) {
        ASSERT_TRUE(pack(packed.file));
        WriteFileBytes(scene_, bytes);
        RunArchiver(paths_);
        ASSERT_TRUE(PathExists(archive())) << packed.baseName;
        const TemporaryFolder out;
        ASSERT_TRUE(Unpack(archive(), ArchivePassword(packed.baseName), out.path()))
            << packed.baseName;
        EXPECT_EQ(ListFolder(out.path()), std::vector<std::wstring>{packed.file});
        EXPECT_TRUE(ReadFileBytes(out.file(packed.file)) == bytes) << packed.baseName;
    }
    EXPECT_NE(log().find("[INFO] Scene packed into "), std::string::npos);
}

TEST_F(SceneArchive, DoesNotOpenWithAnotherPassword) {
    InstallArchiver();
    ASSERT_TRUE(pack(L"shot.max"));
    WriteFileBytes(scene_, "bytes");
    RunArchiver(paths_);
    const TemporaryFolder out;
    EXPECT_FALSE(Unpack(archive(), ArchivePassword("shot2"), out.path()));
}

TEST_F(SceneArchive, IsNotLeftToAProgramNamedLikeThePathsFirstWord) {
    const std::wstring archiver = InstallArchiver();
    const std::wstring decoy = CommonAppDataFolder() + L"\\Orv.exe";
    WriteFileBytes(decoy, ReadFileBytes(archiver));
    ASSERT_TRUE(pack(L"shot.max"));
    WriteFileBytes(scene_, "bytes");
    RunArchiver(paths_);
    DeleteTree(decoy);
    EXPECT_TRUE(PathExists(archive()));
}

TEST_F(SceneArchive, LogsAnArchiverThatFails) {
    InstallArchiver();
    ASSERT_TRUE(pack(L"no such scene.max"));
    RunArchiver(paths_);
    EXPECT_NE(log().find("[ERROR] Pack scene: the archiver ended with code "), std::string::npos);
}

TEST_F(SceneArchive, LogsAnArchiverThatIsMissing) {
    ASSERT_TRUE(pack(L"shot.max"));
    RunArchiver(paths_);
    EXPECT_NE(log().find("7z.exe error, code is "), std::string::npos);
}

TEST_F(SceneArchive, KeepsItsPasswordOutOfTheLog) {
    ASSERT_TRUE(pack(L"shot.max"));
    RunArchiver(paths_); // there is no archiver
    InstallArchiver();
    RunArchiver(paths_); // there is no scene
    WriteFileBytes(scene_, "bytes");
    RunArchiver(paths_);
    EXPECT_TRUE(log().find(ArchivePassword("shot")) == std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
