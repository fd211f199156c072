#include "config/plugin_data.h"

#include "tests/support/files.h"
#include "tests/unit/config/plugin_data_fixture.h"

#include <algorithm>
#include <thread>
#include <type_traits>

namespace orv {
namespace {

class PluginDataTest : public test::PluginDataFixture {};

TEST_F(PluginDataTest, IsOneObject) {
    const PluginData* other = nullptr;
    std::thread([&other] { other = &PluginData::instance(); }).join();
    EXPECT_EQ(other, &data);
    EXPECT_FALSE(std::is_copy_constructible<PluginData>::value);
    EXPECT_FALSE(std::is_polymorphic<PluginData>::value);
}

TEST_F(PluginDataTest, StartsWithTheDialogsDefaults) {
    EXPECT_EQ(data.analysis.gamma, 2.2F);
    EXPECT_EQ(data.analysis.aoRadius, 1000.0);
    EXPECT_EQ(data.analysis.aoSubdivs, 16);
    EXPECT_EQ(data.analysis.blockStep, 1.0);
    EXPECT_EQ(data.submitState, kWorkerNone);
    EXPECT_EQ(data.progressState, kWorkerNone);
    EXPECT_FALSE(data.done);
    EXPECT_FALSE(data.hide);
    EXPECT_FALSE(data.confirmationRequired);
}

TEST_F(PluginDataTest, ListsTheRememberedControlsByKind) {
    EXPECT_EQ(data.rememberedControls.checkBoxes,
              (std::vector<int>{1043, 1044, 1051, 1053, 1056, 1002, 1001}));
    EXPECT_EQ(data.rememberedControls.dropDownLists, std::vector<int>{1057});
    EXPECT_EQ(data.rememberedControls.editFields,
              (std::vector<int>{1047, 1040, 1037, 1039, 1054, 1045}));
    EXPECT_EQ(data.rememberedControls.radioButtons, (std::vector<int>{1030, 1031, 1032, 1033}));
}

TEST_F(PluginDataTest, WritesToTheDataLog) {
    data.writeLog(kWarn, "a line");
    EXPECT_EQ(logLines(), std::vector<std::string>{"[WARN] a line"});
}

TEST_F(PluginDataTest, KeepsTwoLogFilesOfFiveMebibytes) {
    const std::string large(5 * 1024 * 1024 - 100, 'x');
    data.writeLog(kInfo, large);
    EXPECT_FALSE(test::PathExists(product.path(L"/log/rud_data1.log")));
    data.writeLog(kInfo, std::string(100, 'y'));
    EXPECT_TRUE(test::PathExists(product.path(L"/log/rud_data1.log")));
    data.writeLog(kInfo, large);
    data.writeLog(kInfo, std::string(100, 'z'));
    EXPECT_EQ(test::ListFolder(product.path(L"/log")),
              (std::vector<std::wstring>{L"rud_data.log", L"rud_data1.log"}));
    EXPECT_EQ(logLines().size(), 0U);
}

TEST_F(PluginDataTest, KeepsLinesOfSeveralThreadsWhole) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kLines = 200;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, i] {
            for (std::size_t line = 0; line < kLines; ++line)
                data.writeLog(kInfo, std::string(100, static_cast<char>('a' + i)));
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    const std::vector<std::string> lines = logLines();
    ASSERT_EQ(lines.size(), kThreads * kLines);
    for (std::size_t i = 0; i < kThreads; ++i) {
        const std::string expected = "[INFO] " + std::string(100, static_cast<char>('a' + i));
        EXPECT_EQ(std::count(lines.begin(), lines.end(), expected),
                  static_cast<std::ptrdiff_t>(kLines));
    }
}

// Without turns, two threads would both find the file full and rename it, and lines would be lost.
TEST_F(PluginDataTest, LosesNoLineWhenThreadsMeetAtTheLimit) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kLines = 30;
    const std::string message(65536, 'x'); // 7.5 MiB in all: the log is renamed once
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, &message] {
            for (std::size_t line = 0; line < kLines; ++line)
                data.writeLog(kInfo, message);
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    const std::string all = product.log(L"rud_data1") + product.log(L"rud_data");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'),
              static_cast<std::ptrdiff_t>(kThreads * kLines));
    EXPECT_EQ(std::count(all.begin(), all.end(), 'x'),
              static_cast<std::ptrdiff_t>(kThreads * kLines * message.size()));
}

TEST(ConfigManager, IsOneObjectThatCannotBeCopied) {
    EXPECT_EQ(&OrvRenderingConfigMgr::instance(), &OrvRenderingConfigMgr::instance());
    EXPECT_FALSE(std::is_copy_constructible<OrvRenderingConfigMgr>::value);
    EXPECT_TRUE(std::has_virtual_destructor<OrvRenderingConfigMgr>::value);
    EXPECT_TRUE((std::is_base_of<rud_Noncopyable, OrvRenderingConfigMgr>::value));
    EXPECT_EQ(sizeof(OrvRenderingConfigMgr), sizeof(void*)); // no data
}

} // namespace
} // namespace orv
