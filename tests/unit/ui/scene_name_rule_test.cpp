#include "ui/main_dialog/scene_name_rule.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orv {
namespace test {
namespace {

// Every punctuation character that a scene name may have, by code.
const std::set<unsigned> kAllowedPunctuation = {
    0x20,   0x21,   0x23,   0x24,   0x26,   0x27,   0x28,   0x29,   0x2B,   0x2C,   0x2D,
    0x2E,   0x3A,   0x3B,   0x3D,   0x40,   0x5B,   0x5C,   0x5D,   0x5E,   0x5F,   0x7B,
    0x7D,   0x7E,   0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2026, 0x3001, 0x3002, 0x300A,
    0x300B, 0x300C, 0x300D, 0x3010, 0x3011, 0xFF01, 0xFF08, 0xFF09, 0xFF0C, 0xFF1B, 0xFFE5};

bool IsAllowed(unsigned code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
           (code >= 'a' && code <= 'z') || (code >= 0x4E00 && code <= 0x9FFF) ||
           kAllowedPunctuation.count(code) != 0;
}

TEST(SceneNameCharacters, AreExactlyTheListedOnesOfAllUtf16Units) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const std::wstring name = {L'a', static_cast<wchar_t>(code), L'b'};
        EXPECT_EQ(HasOnlySceneNameCharacters(name), IsAllowed(code)) << std::hex << code;
    }
}

TEST(SceneNameCharacters, RefuseAnEmptyName) {
    EXPECT_FALSE(HasOnlySceneNameCharacters(L""));
}

TEST(SceneNameCharacters, RefuseOneBadCharacterWhereverItStands) {
    for (const wchar_t* name : {L"%shot", L"sh%ot", L"shot%"})
        EXPECT_FALSE(HasOnlySceneNameCharacters(name));
}

TEST(SceneNameCharacters, JudgeANameLongerThanTheStackCouldRecurse) {
    std::wstring name(1000000, L'a');
    EXPECT_TRUE(HasOnlySceneNameCharacters(name));
    name.back() = L'`';
    EXPECT_FALSE(HasOnlySceneNameCharacters(name));
}

TEST(WithoutExtension, CutsAtTheLastFullStop) {
    EXPECT_EQ(WithoutExtension(L"shot.max"), L"shot");
    EXPECT_EQ(WithoutExtension(L"shot.v2.max"), L"shot.v2");
    EXPECT_EQ(WithoutExtension(L"shot"), L"shot");
    EXPECT_EQ(WithoutExtension(L".max"), L"");
    EXPECT_EQ(WithoutExtension(L""), L"");
}

struct FileNameCase {
    const wchar_t* fileName;
    bool accepted;
};

class SceneFileName : public ::testing::TestWithParam<FileNameCase> {};

TEST_P(SceneFileName, IsAcceptedOrRefused) {
    EXPECT_EQ(IsSceneFileNameAccepted(GetParam().fileName), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(
    Names, SceneFileName,
    ::testing::Values(FileNameCase{L"", true}, // never saved
                      FileNameCase{L"shot.max", true}, FileNameCase{L"shot", true},
                      FileNameCase{L"\u5BA2\u5385 01.max", true}, // 客厅
                      FileNameCase{L" shot.max", true}, FileNameCase{L".shot.max", true},
                      FileNameCase{L"shot .max", false}, FileNameCase{L"shot..max", false},
                      FileNameCase{L"sh`ot.max", false}, FileNameCase{L"`.max", false},
                      FileNameCase{L"shot%20.max", false},
                      FileNameCase{L"\u0441\u0446\u0435\u043D\u0430.max", false}, // сцена
                      FileNameCase{L"shot\u3000.max", false},                     // wide blank
                      FileNameCase{L"\U0001F3AC.max", false}, FileNameCase{L".max", false}));

// What stands behind the last full stop is not judged.
TEST(SceneFileNameExtension, MayHoldAnything) {
    EXPECT_TRUE(IsSceneFileNameAccepted(L"shot.m%x"));
}

} // namespace
} // namespace test
} // namespace orv
