#include "config/remembered_settings.h"

#include <gtest/gtest.h>

#include <set>

namespace orv {
namespace {

TEST(RememberedControls, HaveTheKeysAndDefaultsThatEarlierReleasesWrote) {
    struct Expected {
        int id;
        const wchar_t* key;
        const wchar_t* defaultValue;
    };
    const Expected expected[] = {
        {1043, L"RENDER_CHANNEL_COLOR", L"0"},
        {1044, L"RENDER_CHANNEL_AO", L"0"},
        {1051, L"CHECK_RENDER_MTL", L"0"},
        {1053, L"CHECK_PSD", L"0"},
        {1056, L"CHECK_GI", L"0"},
        {1002, L"IDC_SAVE_SCENE_FILE", L"1"},
        {1001, L"REMBER_SETTING", L"0"},
        {1057, L"GI_SIZE", L"0"},
        {1047, L"EDIT_DURATION2", L"0"},
        {1040, L"EDIT_AO_RADIUS", L"1000.0"},
        {1037, L"EDIT_AO_SUBDIVS", L"16"},
        {1039, L"EDIT_OUTPUT_GAMMA", L"2.2"},
        {1054, L"EDIT_ITERATIONS_A", L"0"},
        {1045, L"EDIT_NOISE_LEVEL2", L"0"},
        {1030, L"NOBLOCK", L"1"},
        {1031, L"THREEBLOCK", L"0"},
        {1032, L"SIXBLOCK", L"0"},
        {1033, L"DCSBLOCK", L"0"},
    };
    const std::vector<RememberedControl>& controls = RememberedControls();
    ASSERT_EQ(controls.size(), sizeof(expected) / sizeof(expected[0]));
    for (std::size_t i = 0; i < controls.size(); ++i) {
        EXPECT_EQ(controls[i].id, expected[i].id);
        EXPECT_EQ(std::wstring(controls[i].key), expected[i].key);
        EXPECT_EQ(std::wstring(controls[i].defaultValue), expected[i].defaultValue);
        EXPECT_EQ(settingKeyName(expected[i].id), expected[i].key);
    }
}

TEST(RememberedControls, AreEachInOneListInTheOrderOfTheTable) {
    const RememberedControlLists lists = MakeRememberedControlLists();
    std::vector<int> all;
    for (const auto* list :
         {&lists.checkBoxes, &lists.dropDownLists, &lists.editFields, &lists.radioButtons})
        all.insert(all.end(), list->begin(), list->end());
    std::vector<int> table;
    for (const RememberedControl& control : RememberedControls())
        table.push_back(control.id);
    EXPECT_EQ(all, table);
    EXPECT_EQ(std::set<int>(all.begin(), all.end()).size(), all.size());
}

TEST(SettingKeyName, IsEmptyForOtherControls) {
    for (const int id : {0, -1, 1000, 1003, 1029, 1034, 1058, 2147483647})
        EXPECT_EQ(settingKeyName(id), L"") << id;
}

} // namespace
} // namespace orv
