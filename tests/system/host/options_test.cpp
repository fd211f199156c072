// The command line of the stand-in host.
#include "standin/host/options.h"

#include <gtest/gtest.h>

namespace {

using standin::HostOptions;
using Arguments = std::vector<std::wstring>;

TEST(CommandLine, GivesEveryOption) {
    HostOptions options;
    std::wstring error;
    ASSERT_TRUE(
        standin::ReadArguments({L"--plugin-dir", L"C:\\plug ins", L"--scene", L"\u573A.max",
                                L"--menu-file", L"m.json", L"--log", L"l.txt", L"--language", L"zh",
                                L"--late-menus", L"--exit-after-start", L"--quiet"},
                               options, error));
    EXPECT_EQ(options.pluginFolder, L"C:\\plug ins");
    EXPECT_EQ(options.scenePath, L"\u573A.max");
    EXPECT_EQ(options.menuFile, L"m.json");
    EXPECT_EQ(options.logFile, L"l.txt");
    EXPECT_EQ(options.language, standin::Language::Chinese);
    EXPECT_TRUE(options.loadMenusLate);
    EXPECT_TRUE(options.exitAfterStart);
    EXPECT_TRUE(options.quiet);
    EXPECT_FALSE(options.showHelp);
}

TEST(CommandLine, MayBeEmpty) {
    HostOptions options;
    std::wstring error;
    ASSERT_TRUE(standin::ReadArguments({}, options, error));
    EXPECT_EQ(options.language, standin::Language::English);
    EXPECT_FALSE(options.exitAfterStart);
    EXPECT_FALSE(options.quiet);
}

class WrongCommandLines : public ::testing::TestWithParam<Arguments> {};

TEST_P(WrongCommandLines, AreRefusedWithAReason) {
    HostOptions options;
    std::wstring error;
    EXPECT_FALSE(standin::ReadArguments(GetParam(), options, error));
    EXPECT_NE(error, L"");
}

INSTANTIATE_TEST_SUITE_P(Arguments, WrongCommandLines,
                         ::testing::Values(Arguments{L"--scenes", L"a.max"}, Arguments{L"a.max"},
                                           Arguments{L"--scene"},
                                           Arguments{L"--language", L"Klingon"},
                                           Arguments{L"--exit-after-start", L"now"}));

TEST(CommandLine, HelpNamesEveryOption) {
    const std::string help = standin::HelpText();
    for (const char* option : {"--plugin-dir", "--scene", "--menu-file", "--late-menus",
                               "--language", "--log", "--exit-after-start", "--quiet", "--help"}) {
        EXPECT_NE(help.find(option), std::string::npos) << option;
    }
}

} // namespace
