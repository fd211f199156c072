// What a log writes, and what it does when it cannot.
#include "log/module_log.h"

#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace orv {
namespace {

using test::TestProductFolder;

constexpr std::int32_t kLimitMB = 5;

// The lines of a log without their time stamps; each line has to end with CR LF.
std::vector<std::string> LinesWithoutTime(const std::string& content) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < content.size()) {
        const std::size_t end = content.find("\r\n", start);
        if (end == std::string::npos) {
            lines.push_back("no line end: " + content.substr(start));
            break;
        }
        const std::string line = content.substr(start, end - start);
        lines.push_back(line.substr(std::min(line.find(" ["), line.size())));
        start = end + 2;
    }
    return lines;
}

// `text` with every digit as "9".
std::string Shape(std::string text) {
    for (char& c : text) {
        if (c >= '0' && c <= '9')
            c = '9';
    }
    return text;
}

std::string LocalTime(const char* format) {
    SYSTEMTIME now = {};
    ::GetLocalTime(&now);
    char text[64] = {};
    std::snprintf(text, sizeof(text), format, now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond, now.wMilliseconds);
    return text;
}

TEST(ModuleLog, HasNoFileBeforeItIsOpened) {
    const TestProductFolder product;
    ModuleLog log;
    EXPECT_EQ(log.basePath(), "");
    log.setMaxSizeMB(kLimitMB);
    log.write("lost", kInfo);
    EXPECT_TRUE(test::ListFolder(product.path(L"/log")).empty());
}

// Without a name, its files would be those of the host's current folder.
TEST(ModuleLog, RotatesNothingBeforeItIsOpened) {
    const TestProductFolder product;
    const test::TemporaryFolder current;
    test::WriteFileBytes(current.file(L".log"), "somebody's");
    std::wstring former(MAX_PATH, L'\0');
    ::GetCurrentDirectoryW(MAX_PATH, &former[0]);
    ::SetCurrentDirectoryW(current.path().c_str());
    {
        ModuleLog log; // its limit is 0: each line is one too many
        log.write("lost", kInfo);
    }
    ::SetCurrentDirectoryW(former.c_str());
    EXPECT_EQ(test::ListFolder(current.path()), std::vector<std::wstring>{L".log"});
    EXPECT_EQ(test::ReadFileBytes(current.file(L".log")), "somebody's");
}

TEST(ModuleLog, WritesALineOfTimeLevelAndMessage) {
    const TestProductFolder product;
    ModuleLog log;
    log.open("rud_test");
    log.setMaxSizeMB(kLimitMB);
    const std::string before = LocalTime("%4d-%02d-%02d %02d:%02d:%02d:%03d");
    log.write("Get client infomation successfully.", kInfo);
    const std::string after = LocalTime("%4d-%02d-%02d %02d:%02d:%02d:%03d");

    const std::string content = product.log(L"rud_test");
    EXPECT_EQ(Shape(content),
              "9999-99-99 99:99:99:999 [INFO] Get client infomation successfully.\r\n");
    EXPECT_LE(before, content.substr(0, before.size()));
    EXPECT_GE(after, content.substr(0, after.size()));
}

TEST(ModuleLog, WritesDatesWithoutDashesWhenAskedTo) {
    const TestProductFolder product;
    ModuleLog log("rud_test", kLimitMB, 2, 1);
    const std::string before = LocalTime("%4d%02d%02d %02d:%02d:%02d:%03d");
    log.write("short", kWarn);
    const std::string content = product.log(L"rud_test");
    EXPECT_EQ(Shape(content), "99999999 99:99:99:999 [WARN] short\r\n");
    EXPECT_LE(before, content.substr(0, before.size()));
}

TEST(ModuleLog, TakesAnyLevelWord) {
    const TestProductFolder product;
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("message", "odd level");
    EXPECT_EQ(LinesWithoutTime(product.log(L"rud_test")),
              std::vector<std::string>{" [odd level] message"});
}

TEST(ModuleLog, WritesTheBytesOfAMessageUnchanged) {
    const TestProductFolder product;
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    const std::string message("\xe9\x95\x9c\xd6\xd0\xff 100%s \0 \x1a \x01", 18);
    log.write(message, kInfo);
    log.write("", kInfo);
    EXPECT_EQ(LinesWithoutTime(product.log(L"rud_test")),
              (std::vector<std::string>{" [INFO] " + message, " [INFO] "}));
}

TEST(ModuleLog, WritesVeryLongMessages) {
    const TestProductFolder product;
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    const std::string message(1000000, 'x');
    log.write(message, kInfo);
    EXPECT_TRUE(LinesWithoutTime(product.log(L"rud_test")) ==
                std::vector<std::string>{" [INFO] " + message});
}

TEST(ModuleLog, ShowsEachLineAtOnceAndDeniesNothing) {
    const TestProductFolder product;
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("first", kInfo);
    // Another program that shares everything can read and write.
    const FileHandle other(::CreateFileW(product.path(L"/log/rud_test.log").c_str(),
                                         GENERIC_READ | GENERIC_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(other);
    log.write("second", kInfo);
    EXPECT_EQ(LinesWithoutTime(product.log(L"rud_test")),
              (std::vector<std::string>{" [INFO] first", " [INFO] second"}));
}

TEST(ModuleLog, AppendsToWhatIsThere) {
    const TestProductFolder product;
    {
        ModuleLog log("rud_test", kLimitMB, 2, 0);
        log.write("first run", kInfo);
    }
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("second run", kInfo);
    EXPECT_EQ(LinesWithoutTime(product.log(L"rud_test")),
              (std::vector<std::string>{" [INFO] first run", " [INFO] second run"}));
}

TEST(ModuleLog, AppendsBehindWhatAnotherLogWrote) {
    const TestProductFolder product;
    ModuleLog first("rud_test", kLimitMB, 2, 0);
    ModuleLog second("rud_test", kLimitMB, 2, 0);
    first.write("1", kInfo);
    second.write("2", kInfo);
    first.write("3", kInfo);
    EXPECT_EQ(LinesWithoutTime(product.log(L"rud_test")),
              (std::vector<std::string>{" [INFO] 1", " [INFO] 2", " [INFO] 3"}));
}

TEST(ModuleLog, OpenedAnewWritesToTheNewFile) {
    const TestProductFolder product;
    ModuleLog log("one", kLimitMB, 2, 0);
    log.write("1", kInfo);
    log.open("two");
    log.write("2", kInfo);
    EXPECT_EQ(LinesWithoutTime(product.log(L"one")), std::vector<std::string>{" [INFO] 1"});
    EXPECT_EQ(LinesWithoutTime(product.log(L"two")), std::vector<std::string>{" [INFO] 2"});
}

TEST(ModuleLog, LosesItsLinesWhileAnotherProgramHoldsTheFile) {
    const TestProductFolder product;
    product.write(L"/log/rud_test.log", "old\r\n");
    {
        const FileHandle held = test::HoldExclusively(product.path(L"/log/rud_test.log"));
        ModuleLog log("rud_test", kLimitMB, 2, 0);
        log.write("lost", kInfo);
    }
    EXPECT_EQ(product.log(L"rud_test"), "old\r\n");
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("kept", kInfo);
    EXPECT_EQ(Shape(product.log(L"rud_test")), "old\r\n9999-99-99 99:99:99:999 [INFO] kept\r\n");
}

TEST(ModuleLog, StaysSilentAfterItCouldNotBeOpened) {
    const TestProductFolder product;
    test::MakeFolders(product.path(L"/log"));
    FileHandle held = test::HoldExclusively(product.path(L"/log/rud_test.log"));
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    held.reset();
    log.write("lost", kInfo);
    EXPECT_EQ(product.log(L"rud_test"), "");
}

TEST(ModuleLog, LosesItsLinesWhenAFolderHasItsName) {
    const TestProductFolder product;
    test::MakeFolders(product.path(L"/log/rud_test.log"));
    ModuleLog log("rud_test", kLimitMB, 2, 0);
    log.write("lost", kInfo);
    EXPECT_EQ(test::ListFolder(product.path(L"/log")), std::vector<std::wstring>{L"rud_test.log"});
    EXPECT_TRUE(test::ListFolder(product.path(L"/log/rud_test.log")).empty());
}

} // namespace
} // namespace orv
