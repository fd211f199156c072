#include "submit/paths.h"

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

TEST(PlainFileNames, StayInTheFolderTheyArePutIn) {
    for (const wchar_t* name : {L"shot.max", L"shot", L".max", L"a b.v2.max", L"-sdel.max",
                                L"@list.max", L"console.max", L"com.max", L"com10.max", L"lpt.max",
                                L"xcon.max", L"it's 'so' \u201Cas\u201D \u2018is\u2019.max",
                                L"\x573A\x666F \xD83C\xDFA5.max", L"a%b`c.max"})
        EXPECT_TRUE(IsPlainFileName(name)) << ::testing::PrintToString(std::wstring(name));
}

TEST(PlainFileNames, AreNoneThatWindowsTakesForSomethingElse) {
    for (const wchar_t* name :
         {L"",           L"a:b.max",   L"a\\b.max",  L"a/b.max",  L"..\\a.max",  L"a*.max",
          L"a?.max",     L"a\"b.max",  L"a<b.max",   L"a>b.max",  L"a|b.max",    L"a\tb.max",
          L"a\x1F.max",  L"shot.max ", L"shot.max.", L".",        L"..",         L" ",
          L"con",        L"con.max",   L"CON.max",   L"Con .max", L"con.v2.max", L"prn.max",
          L"aux.max",    L"nul.max",   L"com1.max",  L"COM9.max", L"lpt1",       L"com\u00B9.max",
          L"conin$.max", L"CONOUT$"})
        EXPECT_FALSE(IsPlainFileName(name)) << ::testing::PrintToString(std::wstring(name));
}

} // namespace
} // namespace orv
