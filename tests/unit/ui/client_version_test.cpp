#include "ui/main_dialog/main_dialog.h"

#include <gtest/gtest.h>

#include <ostream>

namespace orv {
namespace test {
namespace {

struct Case {
    const wchar_t* lowestAccepted;
    ClientVersion expected;
};

class ClientVersionRule : public ::testing::TestWithParam<Case> {};

TEST_P(ClientVersionRule, ComparesWithPluginVersion137) {
    EXPECT_EQ(CheckClientVersion(GetParam().lowestAccepted, L"1.3.7"), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Versions, ClientVersionRule,
    ::testing::Values(
        Case{L"", ClientVersion::Missing}, Case{L"1.3.7", ClientVersion::Accepted},
        Case{L"1.3.6", ClientVersion::Accepted}, Case{L"1.2.9", ClientVersion::Accepted},
        Case{L"0.9.9", ClientVersion::Accepted}, Case{L"1.3", ClientVersion::Accepted},
        Case{L"1", ClientVersion::Accepted}, Case{L"1.3.", ClientVersion::Accepted},
        Case{L"1.3.6.9", ClientVersion::Accepted},
        Case{L"1.10.0", ClientVersion::Accepted}, // "1" before "3"
        Case{L" 1.3.8", ClientVersion::Accepted}, // a blank sorts first
        Case{L"1.3.8", ClientVersion::PluginTooOld}, Case{L"1.3.70", ClientVersion::PluginTooOld},
        Case{L"1.3.7 ", ClientVersion::PluginTooOld}, Case{L"1.3.7.0", ClientVersion::PluginTooOld},
        Case{L"1.4", ClientVersion::PluginTooOld}, Case{L"2", ClientVersion::PluginTooOld},
        Case{L"v1.3.7", ClientVersion::PluginTooOld}));

} // namespace
} // namespace test
} // namespace orv
