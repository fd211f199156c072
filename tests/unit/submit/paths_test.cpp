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

} // namespace
} // namespace orv
