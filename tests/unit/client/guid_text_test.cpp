#include "client/guid_text.h"
#include "tests/support/log_lines.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

TEST(FormattedGuid, HasUpperCaseGroupsWithoutBraces) {
    const GUID guid = {
        0xA1B2C3D4, 0xE5F6, 0x0718, {0x29, 0x3A, 0x4B, 0x5C, 0x6D, 0x7E, 0x8F, 0x90}};
    EXPECT_EQ(FormatGuid(guid), L"A1B2C3D4-E5F6-0718-293A-4B5C6D7E8F90");
}

TEST(FormattedGuid, KeepsLeadingZeros) {
    const GUID guid = {0x1, 0x2, 0x3, {0x4, 0x5, 0x6, 0x7, 0x8, 0x9, 0xA, 0xB}};
    EXPECT_EQ(FormatGuid(guid), L"00000001-0002-0003-0405-060708090A0B");
    EXPECT_EQ(FormatGuid(GUID{}), L"00000000-0000-0000-0000-000000000000");
}

TEST(FormattedGuid, HasRoomForTheLargestParts) {
    const GUID guid = {
        0xFFFFFFFF, 0xFFFF, 0xFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
    EXPECT_EQ(FormatGuid(guid), L"FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF");
}

TEST(GuidText, IsNewEachTime) {
    std::set<std::wstring> texts;
    for (int i = 0; i < 1000; ++i) {
        const std::wstring text = MakeGuidText();
        ASSERT_EQ(text.size(), 36U);
        ASSERT_EQ(text.find_first_not_of(L"0123456789ABCDEF-"), std::wstring::npos);
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 1000U);
}

TEST(GuidText, IsEmptyAndLoggedWhenTheSystemCannotMakeOne) {
    const TestProductFolder folder;
    EXPECT_EQ(MakeGuidText([](GUID*) -> HRESULT { return E_FAIL; }), L"");
    EXPECT_EQ(LogLines(folder.log(L"rud_http")),
              std::vector<std::string>{"[ERROR] The GUID generate failed!"});
}

} // namespace
} // namespace test
} // namespace orv
