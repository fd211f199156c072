// Where a log lies.
#include "log/module_log.h"

#include "base/folders.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using test::TestProductFolder;

constexpr std::int32_t kLimitMB = 5;

std::string Narrow(const std::wstring& ascii) {
    return std::string(ascii.begin(), ascii.end());
}

TEST(LogFolder, IsCreatedWithTheLog) {
    const TestProductFolder product;
    ModuleLog log;
    EXPECT_TRUE(test::PathExists(product.path(L"/log")));
    EXPECT_EQ(log.folder(), Narrow(CommonAppDataFolder()) + "/Orv Rendering/log");
    log.open("rud_test");
    EXPECT_EQ(log.basePath(), log.folder() + "\\rud_test");
    EXPECT_TRUE(test::PathExists(product.path(L"/log/rud_test.log")));
}

TEST(LogFolder, IsCreatedAgainWhenItIsGone) {
    const TestProductFolder product;
    ModuleLog log;
    ASSERT_TRUE(test::DeleteTree(product.path(L"/log")));
    log.open("rud_test");
    log.setMaxSizeMB(kLimitMB);
    log.write("kept", kInfo);
    EXPECT_NE(product.log(L"rud_test").find("[INFO] kept"), std::string::npos);
}

TEST(LogFolder, ThatExistsIsUsed) {
    const TestProductFolder product;
    product.write(L"/log/other.txt", "stays");
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("kept", kInfo);
    EXPECT_NE(product.log(L"rud_test"), "");
    EXPECT_EQ(product.read(L"/log/other.txt"), "stays");
}

TEST(LogFolder, EndsInTheLowestVersion) {
    const TestProductFolder product;
    product.writeSettings("lowerversion=2\r\n");
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("kept", kInfo);
    EXPECT_EQ(log.folder(), Narrow(CommonAppDataFolder()) + "/Orv Rendering/log2");
    EXPECT_NE(product.log(L"rud_test", L"2"), "");
    EXPECT_FALSE(test::PathExists(product.path(L"/log")));
}

TEST(LogFolder, ThatCannotBeCreatedLosesTheLines) {
    const TestProductFolder product;
    product.write(L"/log", "a file is in the way");
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("lost", kInfo);
    ModuleLog rotating("rud_test", 0, 2, 0);
    rotating.write("lost", kInfo);
    EXPECT_EQ(product.read(L"/log"), "a file is in the way");
    EXPECT_EQ(test::ListFolder(product.path()), (std::vector<std::wstring>{L"log", L"script"}));
}

TEST(LogFolder, IsNotCreatedWithoutAProductFolder) {
    const TestProductFolder product;
    test::DeleteTree(product.path());
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("lost", kInfo);
    EXPECT_FALSE(test::PathExists(product.path()));
}

TEST(LogFolder, WithIllegalCharactersLosesTheLines) {
    const TestProductFolder product;
    product.writeSettings("lowerversion=<?>|\r\n");
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("lost", kInfo);
    EXPECT_EQ(test::ListFolder(product.path()), std::vector<std::wstring>{L"script"});
}

TEST(LogFolder, OfThousandsOfCharactersLosesTheLines) {
    const TestProductFolder product;
    product.writeSettings("lowerversion=" + std::string(3000, '9') + "\r\n");
    ModuleLog log("rud_test", 0, 5, 0);
    log.write("lost", kInfo);
    EXPECT_EQ(test::ListFolder(product.path()), std::vector<std::wstring>{L"script"});
}

// A folder without a name in the run-time's code page must not end up as "\rud_test.log", in the
// root of whatever drive is current.
TEST(LogFolder, ThatTheRunTimeCannotNameLosesTheLines) {
    const TestProductFolder product;
    product.write(L"/script/rud_plugin.ini",
                  test::Utf16Bytes(L"\uFEFF[general]\r\nlowerversion=\U0001F600\r\n"));
    test::DeleteTree(L"\\rud_test.log");
    test::DeleteTree(L"\\rud_test1.log");
    ModuleLog log("rud_test", 0, 2, 0);
    EXPECT_EQ(log.folder(), "");
    log.write("lost", kInfo);
    EXPECT_FALSE(test::PathExists(L"\\rud_test.log"));
    EXPECT_FALSE(test::PathExists(L"\\rud_test1.log"));
    EXPECT_TRUE(test::ListFolder(product.path(L"/log\U0001F600")).empty());
}

} // namespace
} // namespace orv
