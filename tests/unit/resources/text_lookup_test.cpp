#include "resources/message_box.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "tests/support/module_scope.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace test {
namespace {

using Loader = const wchar_t* (*)(unsigned);

constexpr unsigned kNoSuchText = 2000;
constexpr unsigned kTextOf255 = 3000;
constexpr unsigned kTextOf300 = 3001; // begins as that one
const std::wstring kLongest = std::wstring(254, L'x') + L"!";

class TextLookup : public ::testing::TestWithParam<Loader> {
protected:
    static const wchar_t* load(unsigned id) { return GetParam()(id); }
};

TEST_P(TextLookup, ReturnsNullBeforeTheModuleIsKnown) {
    const ModuleScope noModule(nullptr);
    EXPECT_EQ(load(IDS_CLASS_NAME), nullptr);
}

TEST_P(TextLookup, ReturnsNullForANumberWithoutText) {
    const ModuleScope module;
    EXPECT_EQ(load(kNoSuchText), nullptr);
    EXPECT_EQ(load(IDS_CLASS_NAME + 1), nullptr) << "a gap inside a block of texts";
    EXPECT_EQ(load(0), nullptr);
    EXPECT_EQ(load(0xFFFFFFFFU), nullptr);
}

TEST_P(TextLookup, FindsTheTextInTheLanguageOfTheThread) {
    const ModuleScope module;
    {
        const LanguageScope english(kEnglishLanguage);
        EXPECT_STREQ(load(IDS_LANGUAGE_MARKER), L"0");
        EXPECT_STREQ(load(IDS_ACTION_OPEN), L"Submit to Render Farm...");
    }
    {
        const LanguageScope chinese(kChineseLanguage);
        EXPECT_STREQ(load(IDS_LANGUAGE_MARKER), L"1");
        EXPECT_STREQ(load(IDS_ACTION_OPEN), L"提交到渲染农场...");
    }
}

TEST_P(TextLookup, OverwritesTheTextFoundBefore) {
    const ModuleScope module;
    const LanguageScope english(kEnglishLanguage);
    const wchar_t* first = load(IDS_FORMAT_PNG);
    ASSERT_STREQ(first, L"PNG");
    const wchar_t* second = load(IDS_FORMAT_EXR);
    EXPECT_EQ(first, second) << "both live in the same buffer";
    EXPECT_STREQ(first, L"EXR");
}

TEST_P(TextLookup, ReturnsAtMost255Characters) {
    const ModuleScope module;
    EXPECT_EQ(load(kTextOf255), kLongest);
    EXPECT_EQ(load(kTextOf300), kLongest);
}

INSTANTIATE_TEST_SUITE_P(BothLoaders, TextLookup,
                         ::testing::Values(&loadResourceString, &loadResourceString2));

TEST(TextLoaders, KeepTheirTextsApart) {
    const ModuleScope module;
    const wchar_t* first = loadResourceString(IDS_FORMAT_PNG);
    const wchar_t* second = loadResourceString2(IDS_FORMAT_EXR);
    EXPECT_STREQ(first, L"PNG");
    EXPECT_STREQ(second, L"EXR");
    loadResourceString2(IDS_FORMAT_TIFF);
    EXPECT_STREQ(first, L"PNG");
}

TEST(ResourceTextOf, IsACopyThatLaterLookupsLeaveAlone) {
    const ModuleScope module;
    const std::wstring text = ResourceText(IDS_FORMAT_PNG);
    loadResourceString(IDS_FORMAT_EXR);
    ResourceText(IDS_FORMAT_TIFF);
    EXPECT_EQ(text, L"PNG");
}

TEST(ResourceTextOf, HasAtMost255Characters) {
    const ModuleScope module;
    EXPECT_EQ(ResourceText(kTextOf255), kLongest);
    EXPECT_EQ(ResourceText(kTextOf300), kLongest);
}

TEST(ResourceTextOf, HasValuesInTheirPlaces) {
    const ModuleScope module;
    const LanguageScope english(kEnglishLanguage);
    EXPECT_EQ(ResourceTextWith(IDS_PROGRESS_SIZE, {L"1.5", L"20.0"}),
              L"Archive: 1.5 MB, scene: 20.0 MB");
    EXPECT_EQ(ResourceTextWith(IDS_FORMAT_PNG, {L"nowhere"}), L"PNG");
}

TEST(ResourceTextOf, IsEmptyWhereThereIsNoTextOrNoModule) {
    {
        const ModuleScope module;
        EXPECT_EQ(ResourceText(kNoSuchText), L"");
    }
    const ModuleScope noModule(nullptr);
    EXPECT_EQ(ResourceText(IDS_CLASS_NAME), L"");
}

} // namespace
} // namespace test
} // namespace orv
