#include "analysis/text/paths.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct PathCase {
    const wchar_t* path;
    const wchar_t* folder;
    const wchar_t* stem;
    const wchar_t* extension;
};

TEST(Paths, AreTakenApartAtTheLaterSeparator) {
    const PathCase cases[] = {
        {L"C:\\a/b\\c.max", L"C:\\a/b\\", L"c", L".max"},
        {L"C:\\a\\b/c.max", L"C:\\a\\b/", L"c", L".max"},
        {L"c.max", L"", L"c", L".max"},
        {L"C:\\a.b\\c", L"C:\\a.b\\", L"c", L""},
        {L"C:\\a.b.max", L"C:\\", L"a.b", L".max"},
        {L"C:\\a\\", L"C:\\a\\", L"", L""},
        {L"", L"", L"", L""},
    };
    for (const PathCase& path : cases) {
        EXPECT_EQ(FolderPart(path.path), path.folder);
        EXPECT_EQ(StemPart(path.path), path.stem);
        EXPECT_EQ(ExtensionPart(path.path), path.extension);
    }
}

TEST(WithoutExtension, CutsAtTheLastFullStop) {
    EXPECT_EQ(WithoutExtension(L"shot.max"), L"shot");
    EXPECT_EQ(WithoutExtension(L"shot.v2.max"), L"shot.v2");
    EXPECT_EQ(WithoutExtension(L"shot"), L"shot");
    EXPECT_EQ(WithoutExtension(L".max"), L"");
    EXPECT_EQ(WithoutExtension(L""), L"");
}

TEST(WithoutExtension, KeepsFoldersAndTheirFullStops) {
    EXPECT_EQ(WithoutExtension(L"C:\\a.b/shot.max"), L"C:\\a.b/shot");
    EXPECT_EQ(WithoutExtension(L"C:\\a.b\\shot"), L"C:\\a.b\\shot");
}

TEST(SceneFileNameStart, IsBehindTheLastSlashOrElseTheLastBackslash) {
    const struct {
        std::string path;
        std::size_t start;
    } cases[] = {
        {"", 0},
        {"shot.max", 0},
        {"C:\\a\\shot.max", 5},
        {"C:/a/shot", 5},
        {"C:/a\\shot.max", 3},
        {"C:\\a/b\\shot.max", 5},
        {"C:/a/", 5},
        {"/", 1},
        {"\\", 1},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(SceneFileNameStart(one.path), one.start) << one.path;
        const std::wstring wide(one.path.begin(), one.path.end());
        EXPECT_EQ(SceneFileNameStart(wide), one.start) << one.path;
    }
}

TEST(IsSamePath, IgnoresCapitalsOnly) {
    EXPECT_TRUE(IsSamePath(L"D:\\Shot.max", L"d:\\shot.MAX"));
    EXPECT_TRUE(IsSamePath(L"D:\\\u00C4.max", L"D:\\\u00E4.max"));
    EXPECT_FALSE(IsSamePath(L"D:\\shot.max", L"D:\\shot2.max"));
    EXPECT_FALSE(IsSamePath(L"D:\\shot.max", L"D:/shot.max"));
}

TEST(FullPaths, BeginAtADriveOrAComputer) {
    for (const wchar_t* path : {L"D:\\", L"D:\\a b\\c", L"d:/a\\b/", L"\\\\farm\\out",
                                L"//server/out", L"C:\\ProgramData/Orv", L"D:\\\x8F93\x51FA",
                                L"D:\\-sdel", L"D:\\@list", L"D:\\it's \u201Cso\u201D"})
        EXPECT_TRUE(IsFullPath(path)) << ::testing::PrintToString(std::wstring(path));
}

TEST(FullPaths, AreNoneThatDependOnAnythingOrHoldWhatNamesCannot) {
    for (const wchar_t* path : {L"",
                                L"a",
                                L"D:",
                                L"D:a",
                                L"\\a",
                                L"/a",
                                L"..\\a",
                                L"-oD:\\a",
                                L"@D:\\a",
                                L"1:\\a",
                                L"\\\\.\\pipe\\a",
                                L"\\\\?\\D:\\a",
                                L"\\\\\\a",
                                L"D:\\a\" -sdel",
                                L"D:\\a*",
                                L"D:\\a?",
                                L"D:\\a:b",
                                L"D:\\a|b",
                                L"D:\\a<b",
                                L"D:\\a\nb",
                                L"D:\\a\x01",
                                L" D:\\a",
                                L"http://server/out"})
        EXPECT_FALSE(IsFullPath(path)) << ::testing::PrintToString(std::wstring(path));
}

} // namespace
} // namespace orv
