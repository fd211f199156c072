#include "submit/scene_archive.h"

#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "tests/support/files.h"
#include "tests/support/import_patch.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/archiver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
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
    for (const wchar_t separator : {L'/', L'\\'}) {
        session_.savePath.push_back(separator);
        ASSERT_TRUE(pack(L"shot.max"));
        EXPECT_EQ(FolderPart(archive()), session_.savePath) << "no second separator";
        session_.savePath.pop_back();
    }
}

TEST_F(SceneArchive, GoesToTheCompressFolderWhenTheClientsCannotBeUsed) {
    struct {
        bool isPresent;
        std::wstring path;
    } const cases[] = {
        {false, folder_.path()},
        {true, L""},
        {true, folder_.file(L"no\\such\\folder")},
        {true, L"archives"},
        {true, L"..\\archives"},
        {true, L"-sdel"},
        {true, L"@list"},
        {true, L"\\archives"},
        {true, L"C:archives"},
        {true, folder_.path() + L"\" -sdel \""},
        {true, folder_.file(L"a\nb")},
        {true, folder_.path() + L"\\" + std::wstring(230, L'n')},
    };
    for (const auto& save : cases) {
        session_.present = save.isPresent;
        session_.savePath = save.path;
        ASSERT_TRUE(pack(L"shot.max"));
        EXPECT_EQ(FolderPart(archive()), paths_.compressDir + L"/");
    }
    EXPECT_NE(log().find("[WARN] Pack scene: the client's folder cannot be used: -sdel"),
              std::string::npos);
    EXPECT_NE(log().find("a?b\r\n"), std::string::npos) << "one line, whatever the client says";
}

TEST_F(SceneArchive, RefusesASceneWithoutAFullPath) {
    for (const char* scene :
         {"shot.max", "-sdel.max", "@list.max", "sub\\shot.max", "C:shot.max"}) {
        EXPECT_FALSE(PackScene(scene, paths_, session_)) << scene;
        EXPECT_TRUE(paths_.archivePath.empty()) << scene;
    }
    EXPECT_NE(log().find("[ERROR] Pack scene: this is no full path: shot.max"), std::string::npos);
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

// The longest path that the archive of a scene in `folder` can have. Its own folder is named
// "compress", its name is the scene's with "_" and six characters and ".7z" behind.
std::wstring LongestName(const std::wstring& folder) {
    const std::size_t taken = folder.size() + 10 + 7 + 3; // "\\compress/"
    return std::wstring(259 - taken, L'n');
}

TEST_F(SceneArchive, ComesOutAsItWentInWhateverTheSceneIsCalled) {
    InstallArchiver();
    const std::string bytes = std::string(100000, 'm') + std::string("\0\xFF\r\n", 4);
    const std::wstring names[] = {
        L"shot",
        L"\x573A\x666F one \xD83C\xDFA5",
        L"it's \x201Cso\x201D \x2018or\x2019 \xAB"
        L"so\xBB \xFF02 \x300C\x300D",
        L"[a] {b} & 'c' ^d;e,f=g! $h %PATH% ~1.v2",
        L"-sdel",
        L"-x!shot.max",
        L"--",
        L"@list",
        L" blank first",
        LongestName(folder_.path()),
    };
    WriteFileBytes(folder_.file(L"list.max"), "other bytes");
    for (const std::wstring& name : names) {
        SCOPED_TRACE(WideToUtf8(name));
        ASSERT_TRUE(pack(name + L".max"));
        WriteFileBytes(scene_, bytes);
        RunArchiver(paths_);
        ASSERT_TRUE(PathExists(archive()));
        EXPECT_TRUE(ReadFileBytes(scene_) == bytes) << "the scene is where it was";
        const TemporaryFolder out;
        ASSERT_TRUE(Unpack(archive(), ArchivePassword(WideToUtf8(name)), out.path()));
        EXPECT_EQ(ListFolder(out.path()), std::vector<std::wstring>{name + L".max"});
        EXPECT_TRUE(ReadFileBytes(out.file(name + L".max")) == bytes);
    }
    EXPECT_EQ(ListFolder(paths_.compressDir).size(), 10U) << "an archive each, and nothing else";
    EXPECT_NE(log().find("[INFO] Scene packed into "), std::string::npos);
}

TEST_F(SceneArchive, TakesASceneWithTheLongestPath) {
    InstallArchiver();
    const TemporaryFolder farm;
    session_.present = true;
    session_.savePath = farm.path();
    const std::wstring folder =
        folder_.file(std::wstring(259 - folder_.path().size() - 1 - 1 - 8, L'd'));
    WriteFileBytes(folder + L"\\shot.max", "bytes");
    ASSERT_EQ(folder.size() + 9, 259U);
    ASSERT_TRUE(PackScene(WideToUtf8(folder + L"\\shot.max"), paths_, session_));
    RunArchiver(paths_);
    const TemporaryFolder out;
    ASSERT_TRUE(Unpack(archive(), ArchivePassword("shot"), out.path()));
    EXPECT_EQ(ReadFileBytes(out.file(L"shot.max")), "bytes");
}

TEST_F(SceneArchive, TakesPathsWithEitherSeparator) {
    InstallArchiver();
    for (const wchar_t separator : {L'\\', L'/'}) {
        std::wstring path = folder_.file(L"a\\b c\\shot.max");
        std::replace(path.begin(), path.end(), L'\\', separator);
        WriteFileBytes(path, "bytes");
        ASSERT_TRUE(PackScene(WideToUtf8(path), paths_, session_));
        RunArchiver(paths_);
        const TemporaryFolder out;
        ASSERT_TRUE(Unpack(archive(), ArchivePassword("shot"), out.path()));
        EXPECT_EQ(ReadFileBytes(out.file(L"shot.max")), "bytes");
        DeleteTree(archive()); // within one second the next has its name
    }
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
    EXPECT_TRUE(ListFolder(paths_.compressDir).empty()) << "nothing half-written is left";
}

TEST_F(SceneArchive, OfTheSameNameIsKeptWhenANewOneFails) {
    InstallArchiver();
    ASSERT_TRUE(pack(L"shot.max"));
    WriteFileBytes(archive(), "an archive of before");
    WriteFileBytes(archive() + L".tmp", "half of the new one");
    RunArchiver(paths_); // there is no scene
    EXPECT_EQ(ReadFileBytes(archive()), "an archive of before");
    EXPECT_FALSE(PathExists(archive() + L".tmp"));
}

struct StartedProcess {
    bool hasProgram = true;
    bool inheritsHandles = true;
    DWORD flags = 0;
    bool hasEnvironment = true;
    bool hasFolder = true;
    STARTUPINFOW startup = {};
};
StartedProcess started;

BOOL WINAPI NoteStart(LPCWSTR program, LPWSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES,
                      BOOL inheritsHandles, DWORD flags, LPVOID environment, LPCWSTR folder,
                      LPSTARTUPINFOW startup, LPPROCESS_INFORMATION) {
    started = {program != nullptr,     inheritsHandles != FALSE, flags,
               environment != nullptr, folder != nullptr,        *startup};
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return FALSE;
}

TEST_F(SceneArchive, IsPackedWithoutAWindowAtNormalPriority) {
    ASSERT_TRUE(pack(L"shot.max"));
    {
        const ImportPatch patch(::GetModuleHandleW(nullptr), "CreateProcessW",
                                reinterpret_cast<ULONGLONG>(&NoteStart));
        RunArchiver(paths_);
    }
    const DWORD untilItIsInItsJob = CREATE_SUSPENDED;
    EXPECT_EQ(started.flags & ~untilItIsInItsJob,
              static_cast<DWORD>(CREATE_NO_WINDOW | NORMAL_PRIORITY_CLASS));
    EXPECT_FALSE(started.hasProgram) << "the command line names it";
    EXPECT_FALSE(started.inheritsHandles);
    EXPECT_FALSE(started.hasEnvironment) << "the host's own";
    EXPECT_FALSE(started.hasFolder) << "the host's own";
    STARTUPINFOW plain = {};
    plain.cb = sizeof(plain);
    EXPECT_EQ(std::memcmp(&started.startup, &plain, sizeof(plain)), 0);
    EXPECT_NE(log().find("7z.exe error no:8"), std::string::npos);
}

TEST_F(SceneArchive, LogsAnArchiverThatIsMissing) {
    ASSERT_TRUE(pack(L"shot.max"));
    RunArchiver(paths_);
    EXPECT_NE(log().find("7z.exe error no:"), std::string::npos);
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
