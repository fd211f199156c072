// Keeping options in the settings file, with a window that has the remembered controls.
#include "config/remembered_settings.h"

#include "base/folders.h"
#include "base/handles.h"
#include "config/dialog_choices.h"
#include "resources/controls.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <map>

namespace orv {
namespace test {
namespace {

using Values = std::map<std::wstring, std::wstring>;

const Values kDefaults = {
    {L"RENDER_CHANNEL_COLOR", L"0"},
    {L"RENDER_CHANNEL_AO", L"0"},
    {L"CHECK_RENDER_MTL", L"0"},
    {L"CHECK_PSD", L"0"},
    {L"CHECK_GI", L"0"},
    {L"IDC_SAVE_SCENE_FILE", L"1"},
    {L"REMBER_SETTING", L"0"},
    {L"GI_SIZE", L"0"},
    {L"EDIT_DURATION2", L"0"},
    {L"EDIT_AO_RADIUS", L"1000.0"},
    {L"EDIT_AO_SUBDIVS", L"16"},
    {L"EDIT_OUTPUT_GAMMA", L"2.2"},
    {L"EDIT_ITERATIONS_A", L"0"},
    {L"EDIT_NOISE_LEVEL2", L"0"},
    {L"NOBLOCK", L"1"},
    {L"THREEBLOCK", L"0"},
    {L"SIXBLOCK", L"0"},
    {L"DCSBLOCK", L"0"},
};

class RememberedSettings : public ::testing::Test {
protected:
    RememberedSettings()
        : dialog_(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr,
                                    nullptr, nullptr, nullptr)) {
        folder_.writeSettings("port=12345\r\nlowerversion=1.3.7\r\n");
        for (const RememberedControl& control : RememberedControls())
            add(control);
        for (int entry = 0; entry < 5; ++entry)
            ::SendDlgItemMessageW(dialog_, IDC_GI_SCALE, CB_ADDSTRING, 0,
                                  reinterpret_cast<LPARAM>(L"size"));
    }
    ~RememberedSettings() override { ::DestroyWindow(dialog_); }

    void add(const RememberedControl& control) {
        const bool isButton =
            control.kind == RememberedKind::CheckBox || control.kind == RememberedKind::RadioButton;
        const bool isList = control.kind == RememberedKind::DropDownList;
        const DWORD style = isButton ? BS_CHECKBOX : isList ? CBS_DROPDOWNLIST : ES_AUTOHSCROLL;
        ::CreateWindowExW(0,
                          isButton ? L"BUTTON"
                          : isList ? L"COMBOBOX"
                                   : L"EDIT",
                          L"", WS_CHILD | style, 0, 0, 60, 60, dialog_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), nullptr,
                          nullptr);
    }
    void tick(int id) const { ::CheckDlgButton(dialog_, id, BST_CHECKED); }
    void type(int id, const wchar_t* text) const { ::SetDlgItemTextW(dialog_, id, text); }
    void select(int entry) const {
        ::SendDlgItemMessageW(dialog_, IDC_GI_SCALE, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    }
    static Values written() {
        Values values;
        for (const RememberedValue& value : ReadRememberedSettings())
            values[value.control.key] = value.text;
        return values;
    }
    static std::wstring written(const wchar_t* key) { return ReadGeneralSetting(key); }

    const TestProductFolder folder_;
    HWND dialog_;
};

TEST_F(RememberedSettings, AreTheDefaultsWhenTheyAreNotToBeRemembered) {
    tick(IDC_COLOR_CHANNEL);
    tick(IDC_DISTRIBUTED_BLOCKS);
    type(IDC_AO_RADIUS, L"5");
    select(2);
    saveRememberedSettings(dialog_);
    EXPECT_EQ(written(), kDefaults);
}

TEST_F(RememberedSettings, AreWrittenAsTheyAreAndReadBackTheSame) {
    tick(IDC_REMEMBER);
    tick(IDC_AO_CHANNEL);
    tick(IDC_SIX_BLOCKS);
    type(IDC_TIME_LIMIT, L"1.500");
    type(IDC_AO_RADIUS, L"1234.5");
    type(IDC_AO_SUBDIVS, L"24");
    type(IDC_GAMMA, L"no number");
    type(IDC_PASS_LIMIT, L"2147483647");
    type(IDC_NOISE_LEVEL, L"3.25");
    select(3);
    saveRememberedSettings(dialog_);
    Values expected = kDefaults;
    expected[L"REMBER_SETTING"] = L"1";
    expected[L"IDC_SAVE_SCENE_FILE"] = L"0";
    expected[L"RENDER_CHANNEL_AO"] = L"1";
    expected[L"NOBLOCK"] = L"0";
    expected[L"SIXBLOCK"] = L"1";
    expected[L"EDIT_DURATION2"] = L"1.500";
    expected[L"EDIT_AO_RADIUS"] = L"1234.5";
    expected[L"EDIT_AO_SUBDIVS"] = L"24";
    expected[L"EDIT_OUTPUT_GAMMA"] = L"no number";
    expected[L"EDIT_ITERATIONS_A"] = L"2147483647";
    expected[L"EDIT_NOISE_LEVEL2"] = L"3.25";
    expected[L"GI_SIZE"] = L"3";
    EXPECT_EQ(written(), expected);
}

TEST_F(RememberedSettings, KeepEachCheckBoxAndRadioButtonUnderItsKey) {
    tick(IDC_REMEMBER);
    for (const RememberedControl& control : RememberedControls()) {
        if (control.id == IDC_REMEMBER || control.kind == RememberedKind::EditField ||
            control.kind == RememberedKind::DropDownList)
            continue;
        tick(control.id);
        saveRememberedSettings(dialog_);
        EXPECT_EQ(written(control.key), L"1") << control.id;
        ::CheckDlgButton(dialog_, control.id, BST_UNCHECKED);
        saveRememberedSettings(dialog_);
        EXPECT_EQ(written(control.key), L"0") << control.id;
    }
}

TEST_F(RememberedSettings, KnowFourEntriesOfTheDropDownList) {
    tick(IDC_REMEMBER);
    struct Case {
        int entry;
        std::wstring value;
    };
    for (const Case& row : {Case{-1, L"0"}, Case{0, L"0"}, Case{1, L"1"}, Case{2, L"2"},
                            Case{3, L"3"}, Case{4, L"0"}}) {
        select(row.entry);
        saveRememberedSettings(dialog_);
        EXPECT_EQ(written(L"GI_SIZE"), row.value) << row.entry;
    }
}

TEST_F(RememberedSettings, LeaveTheRestOfTheFileAlone) {
    saveRememberedSettings(dialog_);
    EXPECT_EQ(written(L"port"), L"12345");
    EXPECT_EQ(written(L"lowerversion"), L"1.3.7");
}

TEST_F(RememberedSettings, StayWhenTheDialogIsGone) {
    tick(IDC_REMEMBER);
    tick(IDC_PSD_CHANNEL);
    saveRememberedSettings(dialog_);
    ::DestroyWindow(dialog_);
    saveRememberedSettings(dialog_);
    saveRememberedSettings(nullptr);
    EXPECT_EQ(written(L"CHECK_PSD"), L"1");
}

TEST_F(RememberedSettings, AreTheOnesOfTheRecordWhenTheDialogIsGone) {
    tick(IDC_REMEMBER);
    tick(IDC_PSD_CHANNEL);
    type(IDC_AO_RADIUS, L"1234.5");
    select(2);
    SubmissionChoices choices;
    ASSERT_TRUE(TakeChoices(dialog_, choices));
    ::DestroyWindow(dialog_);
    saveRememberedSettings(choices);
    EXPECT_EQ(written(L"REMBER_SETTING"), L"1");
    EXPECT_EQ(written(L"CHECK_PSD"), L"1");
    EXPECT_EQ(written(L"EDIT_AO_RADIUS"), L"1234.5");
    EXPECT_EQ(written(L"GI_SIZE"), L"2");
}

TEST_F(RememberedSettings, AreLostInAFileThatCannotBeWritten) {
    const std::wstring file = SettingsFile();
    const std::string before = ReadFileBytes(file);
    const FileHandle reader(::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(static_cast<bool>(reader)); // denies writing meanwhile
    tick(IDC_REMEMBER);
    tick(IDC_PSD_CHANNEL);
    saveRememberedSettings(dialog_);
    EXPECT_EQ(ReadFileBytes(file), before);
}

TEST_F(RememberedSettings, LeaveOutWhatTheFileHasNot) {
    EXPECT_TRUE(written().empty());
    folder_.writeSettings("CHECK_PSD=1\r\nEDIT_AO_RADIUS=\r\nNO_SUCH_KEY=1\r\n");
    const Values expected = {{L"CHECK_PSD", L"1"}};
    EXPECT_EQ(written(), expected);
}

} // namespace
} // namespace test
} // namespace orv
