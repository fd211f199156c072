#include "base/folders.h"

#include "tests/support/files.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using test::TestProductFolder;

TEST(Folders, KeepTheSlashBehindTheShellsBackslashes) {
    ASSERT_FALSE(CommonAppDataFolder().empty());
    EXPECT_NE(CommonAppDataFolder().back(), L'\\');
    EXPECT_EQ(ProductFolder(), CommonAppDataFolder() + L"/Orv Rendering");
    EXPECT_EQ(SettingsFile(), CommonAppDataFolder() + L"/Orv Rendering/script/rud_plugin.ini");
}

TEST(GeneralSetting, IsEmptyWithoutASettingsFile) {
    const TestProductFolder product;
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"");
}

TEST(GeneralSetting, IsEmptyInAnEmptyFileAndWithoutItsKey) {
    const TestProductFolder product;
    product.write(L"/script/rud_plugin.ini", "");
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"");
    product.writeSettings("ip=10.0.0.5\r\n");
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"");
}

TEST(GeneralSetting, IsReadFromItsSectionOnly) {
    const TestProductFolder product;
    product.write(L"/script/rud_plugin.ini",
                  "[other]\r\nport=1\r\n[general]\r\nport=2\r\n[last]\r\nport=3\r\n");
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"2");
}

TEST(GeneralSetting, FollowsChangesOfTheFile) {
    const TestProductFolder product;
    product.writeSettings("port=1\r\n");
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"1");
    product.writeSettings("port=2345\r\n");
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"2345");
}

TEST(GeneralSetting, KeepsChineseTextOfAUnicodeFile) {
    const TestProductFolder product;
    product.write(L"/script/rud_plugin.ini",
                  test::Utf16Bytes(L"\uFEFF[general]\r\nip=\u4e3b\u673a\r\n"));
    EXPECT_EQ(ReadGeneralSetting(L"ip"), L"\u4e3b\u673a");
}

TEST(GeneralSetting, IsCutAt2047Characters) {
    const TestProductFolder product;
    product.writeSettings("ip=" + std::string(3000, 'x') + "\r\nport=1\r\n");
    EXPECT_EQ(ReadGeneralSetting(L"ip"), std::wstring(2047, L'x'));
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"1");
}

TEST(GeneralSetting, SurvivesAFileThatIsNoText) {
    const TestProductFolder product;
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 31);
    product.write(L"/script/rud_plugin.ini", bytes);
    EXPECT_EQ(ReadGeneralSetting(L"port"), L"");
}

TEST(WhatIsOnTheDisk, IsAFileAFolderOrNothing) {
    const TestProductFolder product;
    product.write(L"/script/a.txt", "");
    const std::wstring folder = ProductFolder() + L"/script";
    const std::wstring file = folder + L"/a.txt";
    const std::wstring nothing = folder + L"/b.txt";
    EXPECT_TRUE(PathExists(folder) && IsFolder(folder));
    EXPECT_FALSE(IsFile(folder));
    EXPECT_TRUE(PathExists(file) && IsFile(file));
    EXPECT_FALSE(IsFolder(file));
    EXPECT_FALSE(PathExists(nothing) || IsFile(nothing) || IsFolder(nothing));
    EXPECT_FALSE(PathExists(L"") || IsFile(L"") || IsFolder(L""));
}

} // namespace
} // namespace orv
