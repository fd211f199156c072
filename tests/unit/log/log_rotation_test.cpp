// The old files of a log.
#include "log/module_log.h"

#include "base/folders.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using test::TestProductFolder;
using Names = std::vector<std::wstring>;

constexpr std::size_t kMebibyte = 1024 * 1024;
constexpr std::size_t kLineOverhead =
    23 + 9 + 1 + 1; // "time", " [LEVEL] ", CR, LF, for five letters

class LogRotation : public testing::Test {
protected:
    Names files() const { return test::ListFolder(product.path(L"/log")); }

    // The messages in a log file, joined by blanks.
    std::string messages(const std::wstring& name) const {
        const std::string content = product.log(name);
        std::string all;
        std::size_t at = 0;
        while ((at = content.find("] ", at)) != std::string::npos) {
            at += 2;
            all += (all.empty() ? "" : " ") + content.substr(at, content.find('\r', at) - at);
        }
        return all;
    }

    void writeEach(ModuleLog& log, const std::string& letters) {
        for (const char c : letters)
            log.write(std::string(1, c), kInfo);
    }

    TestProductFolder product;
};

TEST_F(LogRotation, WithLimitZeroFollowsEachLine) {
    ModuleLog log("rud_test", 0, 2, 0);
    log.write("a", kInfo);
    EXPECT_EQ(files(), (Names{L"rud_test.log", L"rud_test1.log"}));
    EXPECT_EQ(messages(L"rud_test"), "");
    EXPECT_EQ(messages(L"rud_test1"), "a");
}

TEST_F(LogRotation, KeepsTwoFiles) {
    ModuleLog log("rud_test", 0, 2, 0);
    writeEach(log, "abc");
    EXPECT_EQ(files(), (Names{L"rud_test.log", L"rud_test1.log"}));
    EXPECT_EQ(messages(L"rud_test1"), "c");
}

TEST_F(LogRotation, KeepsFiveFilesTheNewestFirst) {
    ModuleLog log("rud_test", 0, 5, 0);
    writeEach(log, "abc");
    EXPECT_EQ(files(),
              (Names{L"rud_test.log", L"rud_test1.log", L"rud_test2.log", L"rud_test3.log"}));
    writeEach(log, "defg");
    EXPECT_EQ(files(), (Names{L"rud_test.log", L"rud_test1.log", L"rud_test2.log", L"rud_test3.log",
                              L"rud_test4.log"}));
    EXPECT_EQ(messages(L"rud_test"), "");
    EXPECT_EQ(messages(L"rud_test1"), "g");
    EXPECT_EQ(messages(L"rud_test2"), "f");
    EXPECT_EQ(messages(L"rud_test3"), "e");
    EXPECT_EQ(messages(L"rud_test4"), "d");
}

TEST_F(LogRotation, ComesWithTheLineThatReachesTheLimit) {
    // One byte less than the limit, once the next line is written.
    const std::size_t overhead = kLineOverhead - 1; // "INFO" has four letters
    product.write(L"/log/rud_test.log", std::string(kMebibyte - 1 - overhead - 1, 'x'));
    ModuleLog log("rud_test", 1, 2, 0);
    log.write("a", kInfo);
    ASSERT_EQ(product.log(L"rud_test").size(), kMebibyte - 1);
    EXPECT_EQ(files(), Names{L"rud_test.log"});
    log.write("b", kInfo);
    EXPECT_EQ(files(), (Names{L"rud_test.log", L"rud_test1.log"}));
    EXPECT_EQ(messages(L"rud_test1"), "a b");
    log.write("c", kInfo);
    EXPECT_EQ(messages(L"rud_test"), "c");
}

TEST_F(LogRotation, ComesExactlyAtTheLimit) {
    const std::size_t overhead = kLineOverhead - 1;
    product.write(L"/log/rud_test.log", std::string(kMebibyte - overhead - 1, 'x'));
    ModuleLog log("rud_test", 1, 2, 0);
    log.write("a", kInfo);
    EXPECT_EQ(product.log(L"rud_test1").size(), kMebibyte);
    EXPECT_EQ(product.log(L"rud_test"), "");
}

TEST_F(LogRotation, FollowsTheLimitsThatAreSetAfterOpening) {
    ModuleLog log;
    log.open("rud_test");
    log.setMaxSizeMB(5);
    log.setFileCount(2);
    writeEach(log, "ab");
    EXPECT_EQ(files(), Names{L"rud_test.log"});
    EXPECT_EQ(messages(L"rud_test"), "a b");
}

TEST_F(LogRotation, WithOneFileKeepsTheFirstOldOne) {
    ModuleLog log("rud_test", 0, 1, 0);
    writeEach(log, "abc");
    EXPECT_EQ(messages(L"rud_test1"), "a");
    EXPECT_EQ(messages(L"rud_test"), "b c"); // the name of the old file is taken
}

TEST_F(LogRotation, SurvivesSenselessNumbers) {
    ModuleLog log("rud_test", -2147483647 - 1, -5, 0);
    writeEach(log, "ab");
    ModuleLog many("rud_many", 2147483647, 2147483647, 0);
    many.write("a", kInfo);
    EXPECT_EQ(messages(L"rud_test1"), "a");
    EXPECT_EQ(messages(L"rud_many"), "a");
}

TEST_F(LogRotation, LosesNoLineWhileAnotherProgramHoldsTheOldFile) {
    ModuleLog log("rud_test", 0, 2, 0);
    log.write("a", kInfo);
    FileHandle held = test::HoldExclusively(product.path(L"/log/rud_test1.log"));
    writeEach(log, "bc");
    EXPECT_EQ(messages(L"rud_test"), "b c");
    held.reset();
    EXPECT_EQ(messages(L"rud_test1"), "a");
    log.write("d", kInfo);
    EXPECT_EQ(messages(L"rud_test1"), "b c d");
}

TEST_F(LogRotation, LosesNoLineWhileAnotherProgramReadsTheLog) {
    ModuleLog log("rud_test", 0, 2, 0);
    FileHandle reader(::CreateFileW(product.path(L"/log/rud_test.log").c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(reader);
    writeEach(log, "ab");
    EXPECT_EQ(messages(L"rud_test"), "a b");
    EXPECT_EQ(files(), Names{L"rud_test.log"});
    reader.reset();
    log.write("c", kInfo);
    EXPECT_EQ(messages(L"rud_test1"), "a b c");
}

TEST_F(LogRotation, WithLimitZeroTriesAFileAgainThatCouldNotBeOpened) {
    test::MakeFolders(product.path(L"/log"));
    FileHandle held = test::HoldExclusively(product.path(L"/log/rud_test.log"));
    ModuleLog log("rud_test", 0, 2, 0);
    log.write("lost", kInfo);
    held.reset();
    log.write("lost", kInfo); // opens the file
    log.write("kept", kInfo);
    EXPECT_EQ(messages(L"rud_test1"), "kept");
}

// A file of `length` bytes in its full path without number and ".log".
std::string NameForPathOf(std::size_t length) {
    const std::wstring folder = ProductFolder() + L"/log\\";
    return std::string(length - folder.size(), 'n');
}

std::wstring Wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

TEST_F(LogRotation, UsesNamesOfUpTo99Bytes) {
    const std::string name = NameForPathOf(94); // + "1.log"
    ModuleLog log(name, 0, 2, 0);
    writeEach(log, "ab");
    EXPECT_EQ(files(), (Names{Wide(name) + L".log", Wide(name) + L"1.log"}));
    EXPECT_EQ(messages(Wide(name) + L"1"), "b");
}

TEST_F(LogRotation, CutsTheNameOfAnOldFileAt99Bytes) {
    const std::string name = NameForPathOf(95); // + ".log" fits, + "1.log" loses its "g"
    ModuleLog log(name, 0, 2, 0);
    writeEach(log, "ab");
    EXPECT_EQ(files(), (Names{Wide(name) + L".log", Wide(name) + L"1.lo"}));
    EXPECT_EQ(messages(Wide(name)), "");
}

TEST_F(LogRotation, DoesNotRenameAFileWithALongerName) {
    for (const std::int32_t fileCount : {2, 5}) {
        const std::string name = NameForPathOf(96 + static_cast<std::size_t>(fileCount) * 10);
        ModuleLog log(name, 0, fileCount, 0);
        writeEach(log, "abc");
        EXPECT_EQ(messages(Wide(name)), "a b c");
    }
    EXPECT_EQ(files().size(), 2U);
}

// Another program reads the log while the product writes: between two looks the file is free,
// during them it is held. Lines have numbers, so that a lost one shows.
TEST_F(LogRotation, OverAHundredMegabytesKeepsItsLimitsWhileAnotherReads) {
    constexpr std::size_t kLine = 20000;
    constexpr int kLines = static_cast<int>(100 * kMebibyte / kLine) + 1;
    constexpr std::size_t kLimit = 5;
    ModuleLog log("rud_test", static_cast<std::int32_t>(kLimit), 5, 0);
    const std::string filler(kLine, 'x');
    FileHandle reader;
    for (int i = 1; i <= kLines; ++i) {
        if (i % 100 == 1) {
            reader.reset(::CreateFileW(product.path(L"/log/rud_test.log").c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
        } else if (i % 100 == 61) {
            reader.reset();
        }
        log.write(std::to_string(i) + " " + filler, kInfo);
    }
    reader.reset();
    const Names names = files();
    ASSERT_GE(names.size(), 2U);
    ASSERT_LE(names.size(), 5U);
    // The newest file first, each older one behind it: the numbers go down without a gap.
    int expected = kLines;
    for (const std::wstring& name : names) {
        const std::string content = product.read(L"/log/" + name);
        // While the file is held it cannot change places, and no line is refused for that.
        EXPECT_LE(content.size(), (kLimit * kMebibyte) + 70 * (kLine + 64)) << names.size();
        int first = 0;
        int last = 0;
        int count = 0;
        for (std::size_t at = content.find("[INFO] "); at != std::string::npos;
             at = content.find("[INFO] ", at + 1)) {
            last = std::atoi(content.c_str() + at + 7);
            first = first == 0 ? last : first;
            ++count;
        }
        if (count == 0)
            continue; // it changed places with the last line
        EXPECT_EQ(last, expected);
        EXPECT_EQ(count, last - first + 1);
        expected = first - 1;
    }
    EXPECT_LT(expected, kLines - 1000) << "what is kept is worth keeping";
}

} // namespace
} // namespace orv
