// The three logs of the product.
#include "log/log.h"

#include "tests/support/files.h"
#include "tests/support/log_lines.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace orv {
namespace {

class SharedLogs : public testing::Test {
protected:
    test::TestProductFolder product; // without settings: the logs are in its folder "log"

    std::vector<std::string> lines(const std::wstring& name) const {
        return test::LogLines(product.log(name));
    }
};

TEST_F(SharedLogs, WriteEachLineToTheFileOfItsModule) {
    WriteLog(LogModule::Data, kWarn, "a line");
    WriteLog(LogModule::Ui, kInfo, "another");
    LogError("a third");
    EXPECT_EQ(lines(L"rud_data"), (std::vector<std::string>{"[WARN] a line", "[ERROR] a third"}));
    EXPECT_EQ(lines(L"rud_ui"), std::vector<std::string>{"[INFO] another"});
}

TEST_F(SharedLogs, StayInTheFolderOfTheFirstLine) {
    OpenLog(LogModule::Data);
    product.writeSettings("lowerversion=2\r\n");
    WriteLog(LogModule::Data, kInfo, "a line");
    EXPECT_EQ(lines(L"rud_data").size(), 1U);
}

class EachSharedLog : public SharedLogs, public testing::WithParamInterface<LogModule> {
protected:
    const LogModule module = GetParam();
    const std::wstring name = module == LogModule::Data ? L"rud_data" : L"rud_ui";
};

TEST_P(EachSharedLog, KeepsTwoLogFilesOfFiveMebibytes) {
    const std::string large(5 * 1024 * 1024 - 100, 'x');
    WriteLog(module, kInfo, large);
    EXPECT_FALSE(test::PathExists(product.path(L"/log/" + name + L"1.log")));
    WriteLog(module, kInfo, std::string(100, 'y'));
    EXPECT_TRUE(test::PathExists(product.path(L"/log/" + name + L"1.log")));
    WriteLog(module, kInfo, large);
    WriteLog(module, kInfo, std::string(100, 'z'));
    EXPECT_TRUE(test::PathExists(product.path(L"/log/" + name + L"1.log")));
    EXPECT_FALSE(test::PathExists(product.path(L"/log/" + name + L"2.log")));
    EXPECT_EQ(lines(name).size(), 0U);
}

TEST_P(EachSharedLog, KeepsLinesOfSeveralThreadsWhole) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kLines = 200;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, i] {
            for (std::size_t line = 0; line < kLines; ++line)
                WriteLog(module, kInfo, std::string(100, static_cast<char>('a' + i)));
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    const std::vector<std::string> written = lines(name);
    ASSERT_EQ(written.size(), kThreads * kLines);
    for (std::size_t i = 0; i < kThreads; ++i) {
        const std::string expected = "[INFO] " + std::string(100, static_cast<char>('a' + i));
        EXPECT_EQ(std::count(written.begin(), written.end(), expected),
                  static_cast<std::ptrdiff_t>(kLines));
    }
}

// Without turns, two threads would both find the file full and rename it, and lines would be lost.
TEST_P(EachSharedLog, LosesNoLineWhenThreadsMeetAtTheLimit) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kLines = 30;
    const std::string message(65536, 'x'); // 7.5 MiB in all: the log is renamed once
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, &message] {
            for (std::size_t line = 0; line < kLines; ++line)
                WriteLog(module, kInfo, message);
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    const std::string all = product.log(name + L"1") + product.log(name);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'),
              static_cast<std::ptrdiff_t>(kThreads * kLines));
    EXPECT_EQ(std::count(all.begin(), all.end(), 'x'),
              static_cast<std::ptrdiff_t>(kThreads * kLines * message.size()));
}

INSTANTIATE_TEST_SUITE_P(Modules, EachSharedLog, testing::Values(LogModule::Data, LogModule::Ui));

TEST_F(SharedLogs, LeaveTheLogOfAnExchangeToTheExchange) {
    {
        ExchangeLog log;
        WriteLog(log, kWarn, "first");
    }
    ExchangeLog log;
    WriteLog(log, kError, "second");
    EXPECT_EQ(lines(L"rud_http"), (std::vector<std::string>{"[WARN] first", "[ERROR] second"}));
}

TEST_F(SharedLogs, KeepFiveFilesOfTwoMebibytesOfExchanges) {
    const std::string large(2 * 1024 * 1024, 'x');
    ExchangeLog log;
    WriteLog(log, kInfo, large.substr(1024));
    EXPECT_FALSE(test::PathExists(product.path(L"/log/rud_http1.log")));
    for (int line = 0; line < 6; ++line)
        WriteLog(log, kInfo, large);
    EXPECT_TRUE(test::PathExists(product.path(L"/log/rud_http4.log")));
    EXPECT_FALSE(test::PathExists(product.path(L"/log/rud_http5.log")));
}

TEST(SystemErrorText, NamesTheCallItsSubjectAndTheCode) {
    EXPECT_EQ(SystemErrorText("ReadFile", 38), "ReadFile error no:38");
    EXPECT_EQ(SystemErrorText("CreateFileW", 5, L"D:\\\u5BA2.json"),
              "CreateFileW D:\\\xE5\xAE\xA2.json error no:5");
    EXPECT_EQ(SystemErrorText("BCrypt MD5", -1073741816), "BCrypt MD5 error no:-1073741816");
    EXPECT_EQ(SystemErrorText("WaitForSingleObject", 0xFFFFFFFFU),
              "WaitForSingleObject error no:4294967295");
}

TEST_F(SharedLogs, TakeTheErrorsOfTheSystem) {
    LogSystemError(LogModule::Ui, kWarn, "SetTimer", 8);
    LogSystemError(LogModule::Data, kError, "DeleteFileW", 32, L"D:\\a.max");
    EXPECT_EQ(lines(L"rud_ui"), std::vector<std::string>{"[WARN] SetTimer error no:8"});
    EXPECT_EQ(lines(L"rud_data"),
              std::vector<std::string>{"[ERROR] DeleteFileW D:\\a.max error no:32"});
}

} // namespace
} // namespace orv
