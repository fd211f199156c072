// The script that makes the encrypted parser after the installation.
#include "tests/support/files.h"
#include "tests/system/scripts/scenes.h"

#include "base/windows.h"

#include <gtest/gtest.h>

namespace {

using orv::test::PathExists;
using orv::test::SceneUnderTest;

constexpr wchar_t kEncrypted[] = L"/script/MaxRenderGlobalsParser.mse";
constexpr wchar_t kSource[] = L"/script/MaxRenderGlobalsParser.ms";

class Installation : public ::testing::Test {
protected:
    Installation() { ::DeleteFileW(scene.product.path(kEncrypted).c_str()); }

    bool install() {
        return scene.run(L"fileIn \"" + scene.product.path(L"/script/OrvInstallParser.ms") + L"\"")
            .ok;
    }

    SceneUnderTest scene{orv::test::ParsedJson(R"({"cameras": ["A"]})"), L"shot.max"};
};

TEST_F(Installation, MakesTheParserOnce) {
    ASSERT_TRUE(install());
    EXPECT_TRUE(PathExists(scene.product.path(kEncrypted)));
    EXPECT_EQ(scene.listener, L"Orv Rendering: the scene parser is ready.\n");
    EXPECT_FALSE(scene.analyse().empty());
    scene.listener.clear();
    ASSERT_TRUE(install());
    EXPECT_EQ(scene.listener, L"");
}

TEST_F(Installation, WorksFromTheBundle) {
    const std::wstring copy = scene.folder.file(L"bundle\\OrvInstallParser.ms");
    orv::test::WriteFileBytes(copy, scene.product.read(L"/script/OrvInstallParser.ms"));
    ASSERT_TRUE(scene.run(L"fileIn @\"" + copy + L"\"").ok);
    EXPECT_TRUE(PathExists(scene.product.path(kEncrypted)));
}

TEST_F(Installation, TellsTheUserAboutAParserThatDoesNotLoadAndKeepsNone) {
    scene.product.write(kSource, "this is (no script");
    ASSERT_TRUE(install());
    EXPECT_EQ(scene.listener.find(L"messageBox: Orv Rendering cannot prepare its scene parser:"),
              0U);
    EXPECT_FALSE(PathExists(scene.product.path(kEncrypted)));
}

TEST_F(Installation, TellsTheUserAboutAFileThatDefinesSomethingElse) {
    scene.product.write(kSource, "1 + 1");
    ASSERT_TRUE(install());
    EXPECT_NE(scene.listener.find(L"does not define the parser"), std::wstring::npos);
    EXPECT_FALSE(PathExists(scene.product.path(kEncrypted)));
}

TEST_F(Installation, DoesNothingWithoutTheSource) {
    ::DeleteFileW(scene.product.path(kSource).c_str());
    ASSERT_TRUE(install());
    EXPECT_EQ(scene.listener, L"");
}

} // namespace
