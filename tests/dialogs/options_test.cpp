// The options of the main dialog, used as a person does: which controls work when, what arrows and
// keys do to a field, what is remembered.
#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"
#include "windows/measures.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <cwctype>
#include <set>
#include <utility>

namespace orv {
namespace test {
namespace {

const int kCoronaGroup[] = {1012, 1045, 1047, 1052, 1054, 1058, 1059,
                            1060, 1061, 1063, 1064, 1147, 1148, 1154};
const int kAoGroup[] = {1066, 1040, 1067, 1068, 1037};
const int kGiGroup[] = {1055, 1057};

class Options : public ::testing::Test {
protected:
    void open(LANGID language = kEnglishLanguage) {
        host_.start(language);
        openAgain();
    }
    void openAgain() {
        window_ = host_.openDialog();
        ASSERT_NE(window_, nullptr);
    }
    void analyseAgain() {
        const std::size_t before = host_.events("script_run").size();
        Press(window_, IDC_ANALYSE_AGAIN);
        ASSERT_EQ(host_.events("script_run").size(), before + 1);
    }
    void useCorona() {
        host_.scene["renderer"] = Json::Value();
        host_.scene["renderer"]["name"] = "CoronaRenderer";
        Json::Value& limits = host_.scene["renderer"]["properties"];
        limits["progressive_passLimit"] = 100;
        limits["progressive_timeLimit"] = 0;
        limits["adaptivity_targetError"] = 5.0;
    }
    HWND control(int id) const { return ::GetDlgItem(window_, id); }
    bool enabled(int id) const { return ::IsWindowEnabled(control(id)) != FALSE; }
    bool checked(int id) const { return ::IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    std::wstring text(int id) const { return Text(window_, id); }
    // A click on the upper or the lower half of the arrows beside a field.
    void clickArrow(int spinner, bool up) const {
        RECT area = {};
        ::GetClientRect(control(spinner), &area);
        const LPARAM position =
            MAKELPARAM(area.right / 2, up ? area.bottom / 4 : area.bottom * 3 / 4);
        ::SendMessageW(control(spinner), WM_LBUTTONDOWN, MK_LBUTTON, position);
        ::SendMessageW(control(spinner), WM_LBUTTONUP, 0, position);
    }

    double screenScale() const {
        const WindowDc dc(window_);
        return ::GetDeviceCaps(dc.get(), LOGPIXELSX) / 96.0;
    }

    HostInProcess host_;
    HWND window_ = nullptr;
};

TEST_F(Options, StartWithTheirDefaults) {
    open();
    EXPECT_EQ(text(1040), L"1000.0");
    EXPECT_EQ(text(1037), L"16");
    EXPECT_EQ(text(1075), L"10");
    EXPECT_EQ(text(1047), L"0.0");
    EXPECT_EQ(text(1045), L"0");
    EXPECT_EQ(text(1039), L"2.2");
    EXPECT_TRUE(checked(1002));
    for (const int box : {1000, 1001, 1043, 1044, 1051, 1053, 1056})
        EXPECT_FALSE(checked(box)) << box;
    EXPECT_TRUE(checked(1030));
    for (const int id : {1013, 1075, 1076, 1066, 1040, 1067, 1068, 1037, 1055, 1057})
        EXPECT_FALSE(enabled(id)) << id;
    EXPECT_EQ(::SendMessageW(control(1057), CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(::SendMessageW(control(1057), CB_GETCOUNT, 0, 0), 4);
}

struct SpinnerRange {
    int spinner;
    int minimum;
    int maximum;
};

TEST_F(Options, GiveTheArrowsTheirRanges) {
    open();
    for (const SpinnerRange& row :
         {SpinnerRange{1049, 0, 707072}, SpinnerRange{1046, 1, 1000}, SpinnerRange{1048, 0, 5},
          SpinnerRange{1076, 2, 10}, SpinnerRange{1154, 0, 2147483647}, SpinnerRange{1147, 0, 239},
          SpinnerRange{1148, 0, 100}}) {
        int minimum = 0;
        int maximum = 0;
        ::SendMessageW(control(row.spinner), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&minimum),
                       reinterpret_cast<LPARAM>(&maximum));
        EXPECT_EQ(minimum, row.minimum) << row.spinner;
        EXPECT_EQ(maximum, row.maximum) << row.spinner;
    }
}

TEST_F(Options, EnableTheGroupsOfTheirCheckBoxes) {
    open();
    for (const bool on : {true, false}) {
        Press(window_, 1044);
        Press(window_, 1056);
        for (const int id : kAoGroup)
            EXPECT_EQ(enabled(id), on) << id;
        for (const int id : kGiGroup)
            EXPECT_EQ(enabled(id), on) << id;
    }
}

TEST_F(Options, EnableTheNumberOfBlocksWhereItCounts) {
    open();
    Press(window_, 1033);
    EXPECT_TRUE(enabled(1075) && enabled(1076));
    Press(window_, 1030);
    EXPECT_FALSE(enabled(1075) || enabled(1076));
}

TEST_F(Options, TakeTheMaterialChannelAwayFromThreeAndSixBlocks) {
    open();
    for (const int radio : {1031, 1032}) {
        MessageBoxWatcher watcher(L"Orv Rendering - Please check");
        Press(window_, 1030);
        Press(window_, 1051);
        EXPECT_TRUE(checked(1051));
        Press(window_, radio);
        ASSERT_TRUE(watcher.waitForBoxes(1));
        ASSERT_TRUE(WaitUntil([this] { return ::IsWindowEnabled(window_) != FALSE; }));
        EXPECT_FALSE(checked(1051));
        Press(window_, 1051); // the other way round
        ASSERT_TRUE(watcher.waitForBoxes(2));
        ASSERT_TRUE(WaitUntil([this] { return ::IsWindowEnabled(window_) != FALSE; }));
        EXPECT_FALSE(checked(1051));
        EXPECT_EQ(watcher.stop()[0].text.find(L"The material channel cannot be rendered"), 0U);
    }
    Press(window_, 1033);
    Press(window_, 1051);
    EXPECT_TRUE(checked(1051));
}

TEST_F(Options, StepTheFieldsByTheirArrows) {
    useCorona();
    open();
    Press(window_, 1033);
    Press(window_, 1044);
    struct Case {
        int spinner;
        int edit;
        const wchar_t* typed;
        bool up;
        const wchar_t* result;
    };
    for (const Case& row : {
             Case{1048, 1039, L"2.2", true, L"2.3"},
             Case{1048, 1039, L"0.1", false, L"0.1"},
             Case{1048, 1039, L"5.0", true, L"5.0"},
             Case{1049, 1040, L"1000.0", true, L"1000.1"},
             Case{1049, 1040, L"10.0", false, L"10.0"},
             Case{1076, 1075, L"5", true, L"6"},
             Case{1076, 1075, L"10", true, L"10"},
             Case{1076, 1075, L"2", false, L"2"},
             Case{1147, 1047, L"238.95", true, L"239.0"},
             Case{1147, 1047, L"239.0", true, L"239.0"},
             Case{1147, 1047, L"0.0", false, L"0.0"},
             Case{1148, 1045, L"99.9", true, L"100.0"},
             Case{1148, 1045, L"100.0", true, L"100.0"},
             Case{1154, 1054, L"41", true, L"42"},
             Case{1154, 1054, L"0", false, L"0"},
             Case{1046, 1037, L"16", false, L"15"},
             Case{1046, 1037, L"1000", true, L"1000"},
         }) {
        ::SetDlgItemTextW(window_, row.edit, row.typed);
        clickArrow(row.spinner, row.up);
        EXPECT_EQ(text(row.edit), row.result) << row.edit << (row.up ? " up" : " down");
    }
}

TEST_F(Options, KeepWhatIsTypedInRange) {
    useCorona();
    open();
    Press(window_, 1033);
    struct Case {
        int edit;
        const wchar_t* typed;
        const wchar_t* kept;
    };
    for (const Case& row : {
             Case{1047, L"12.3456", L"12.345"},
             Case{1047, L"1a", L"0.00"},
             Case{1047, L"240", L"239.00"},
             Case{1045, L"101", L"100.00"},
         }) {
        Type(window_, row.edit, row.typed);
        EXPECT_EQ(text(row.edit), row.kept);
    }
    ::SetDlgItemTextW(window_, 1075, L"1"); // at once, as pasting does
    EXPECT_EQ(text(1075), L"2");
    ::SetDlgItemTextW(window_, 1075, L"11");
    EXPECT_EQ(text(1075), L"10");
    ::SetDlgItemTextW(window_, 1047, L"05");
    EXPECT_EQ(text(1047), L"5.000");
}

// A text that is set, as by the settings, is brought into the range at once.
TEST_F(Options, KeepTheNumbersOfTheElementsInRange) {
    open();
    Press(window_, 1044);
    struct Case {
        int edit;
        const wchar_t* set;
        const wchar_t* kept;
    };
    for (const Case& row : {
             Case{1037, L"0", L"1"},
             Case{1037, L"1001", L"1000"},
             Case{1037, L"24 x", L"24"},
             Case{1039, L"0", L"0.10"},
             Case{1039, L"9", L"5.00"},
             Case{1039, L"2.3456", L"2.345"},
             Case{1039, L"1a", L"0.10"},
             Case{1039, L"01.8", L"1.800"},
             Case{1040, L"5", L"10.00"},
             Case{1040, L"2000000000", L"1000000000.00"},
             Case{1040, L"77.7777", L"77.777"},
             Case{1040, L"12a", L"10.00"},
         }) {
        ::SetDlgItemTextW(window_, row.edit, row.set);
        EXPECT_EQ(text(row.edit), row.kept) << row.edit;
    }
}

TEST_F(Options, LetANumberBeginBelowItsRangeWhileItIsTyped) {
    open();
    Press(window_, 1044);
    Type(window_, 1040, L"25");
    EXPECT_EQ(text(1040), L"25");
    Type(window_, 1039, L"0.75");
    EXPECT_EQ(text(1039), L"0.75");
    Type(window_, 1037, L"24");
    EXPECT_EQ(text(1037), L"24");
    Type(window_, 1040, L"5");
    EXPECT_EQ(text(1040), L"5") << "more may follow";
    PressKey(window_, 1040, VK_TAB);
    EXPECT_EQ(text(1040), L"10.00");
    Type(window_, 1039, L"9");
    EXPECT_EQ(text(1039), L"5.00") << "nothing that follows makes it smaller";
}

// The report of a scene without one, or with one that no image can have.
TEST_F(Options, ShowTheGammaOfTheScene) {
    struct Case {
        const char* report; // its member
        const wchar_t* shown;
    };
    for (const Case& row : {
             Case{"", L"2.2"},
             Case{R"("gamma_out": "1.8",)", L"1.8"},
             Case{R"("gamma_out": "0",)", L"2.2"},
             Case{R"("gamma_out": "-1",)", L"2.2"},
             Case{R"("gamma_out": "wide",)", L"2.2"},
             Case{R"("gamma_out": "0.01",)", L"0.10"},
             Case{R"("gamma_out": "7.5",)", L"5.00"},
         }) {
        HostInProcess host;
        host.setParser("text", std::string("{") + row.report + R"("name": "D:/room.max",
            "is_region": "false", "image_width": "1920", "image_height": "1080",
            "start_frame": "0", "image_format": "png", "cameras": [{"name": "a"}]})");
        host.start();
        HWND window = host.openDialog();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(Text(window, 1039), row.shown) << row.report;
    }
}

TEST_F(Options, HideTheLimitsOfOtherRenderers) {
    open();
    for (const int id : kCoronaGroup)
        EXPECT_FALSE(IsShown(window_, id)) << id;
    EXPECT_TRUE(IsShown(window_, 1071));
    EXPECT_EQ(text(1071), L"The scene's renderer has no limits to set.");
    for (const int id : {1055, 1056, 1057})
        EXPECT_TRUE(IsShown(window_, id)) << id;
}

TEST_F(Options, ShowTheLimitsOfCorona) {
    useCorona();
    open();
    for (const int id : kCoronaGroup)
        EXPECT_TRUE(IsShown(window_, id)) << id;
    for (const int id : {1055, 1056, 1057, 1071})
        EXPECT_FALSE(IsShown(window_, id)) << id;
}

// The keys of the settings file, as a user or an older release may have left them.
TEST_F(Options, AreRestoredFromTheSettingsFile) {
    useCorona();
    host_.product.writeSettings(
        "port=12345\r\nlowerversion=1.3.7\r\nRENDER_CHANNEL_COLOR=1\r\nRENDER_CHANNEL_AO=1\r\n"
        "CHECK_PSD=1\r\nCHECK_GI=1\r\nIDC_SAVE_SCENE_FILE=0\r\nREMBER_SETTING=1\r\nGI_SIZE=2\r\n"
        "EDIT_DURATION2=12.34567\r\nEDIT_AO_RADIUS=77.5\r\nEDIT_AO_SUBDIVS=24\r\n"
        "EDIT_OUTPUT_GAMMA=1.8\r\nEDIT_ITERATIONS_A=99999999999\r\nEDIT_NOISE_LEVEL2=250\r\n"
        "NOBLOCK=0\r\nDCSBLOCK=1\r\n");
    open();
    for (const int box : {1043, 1044, 1053, 1001, 1033})
        EXPECT_TRUE(checked(box)) << box;
    for (const int box : {1051, 1002, 1030, 1031, 1032, 1056})
        EXPECT_FALSE(checked(box)) << box; // Corona has no GI pre-pass
    EXPECT_EQ(text(1047), L"12.345");
    EXPECT_EQ(text(1054), L"2147483647");
    EXPECT_EQ(text(1045), L"100.00");
    EXPECT_EQ(text(1040), L"77.5");
    EXPECT_EQ(text(1037), L"24");
    EXPECT_EQ(text(1039), L"1.8");
    EXPECT_EQ(::SendMessageW(control(1057), CB_GETCURSEL, 0, 0), 2);
    for (const int id : {1066, 1040, 1067, 1068, 1037, 1075, 1076})
        EXPECT_TRUE(enabled(id)) << id;
}

TEST_F(Options, RestoreTheGiPrePassWhereItIsShown) {
    host_.product.writeSettings("lowerversion=1.3.7\r\nCHECK_GI=1\r\nGI_SIZE=3\r\n");
    open();
    EXPECT_TRUE(checked(1056));
    EXPECT_TRUE(enabled(1055) && enabled(1057));
    EXPECT_EQ(text(1057), L"25%");
}

TEST_F(Options, RestoreThreeBlocksWithoutTheMaterialChannel) {
    host_.product.writeSettings(
        "lowerversion=1.3.7\r\nCHECK_RENDER_MTL=1\r\nTHREEBLOCK=1\r\nNOBLOCK=0\r\n");
    MessageBoxWatcher watcher(L"Orv Rendering - Please check");
    open();
    EXPECT_EQ(watcher.stop().size(), 1U);
    EXPECT_TRUE(checked(1031));
    EXPECT_FALSE(checked(1051));
}

// A "0" of the settings file would undo what the user has ticked since.
TEST_F(Options, KeepWhatIsTickedWhenTheSceneIsAnalysedAgain) {
    host_.product.writeSettings(
        "lowerversion=1.3.7\r\nRENDER_CHANNEL_COLOR=0\r\nRENDER_CHANNEL_AO=0\r\n"
        "CHECK_RENDER_MTL=0\r\nCHECK_PSD=0\r\nCHECK_GI=0\r\nIDC_SAVE_SCENE_FILE=0\r\n"
        "REMBER_SETTING=0\r\nNOBLOCK=1\r\n");
    open();
    const int boxes[] = {1043, 1044, 1051, 1053, 1056, 1002, 1001, 1000};
    for (const int box : boxes) {
        EXPECT_FALSE(checked(box)) << box;
        Press(window_, box);
    }
    analyseAgain();
    for (const int box : boxes)
        EXPECT_TRUE(checked(box)) << box;
    for (const int id : {1066, 1040, 1067, 1068, 1037, 1055, 1057})
        EXPECT_TRUE(enabled(id)) << id;
}

TEST_F(Options, TakeTheRememberedOnesWhenTheSceneIsAnalysedAgain) {
    host_.product.writeSettings("lowerversion=1.3.7\r\nCHECK_PSD=1\r\nEDIT_AO_RADIUS=77.5\r\n"
                                "GI_SIZE=2\r\nNOBLOCK=0\r\nSIXBLOCK=1\r\n");
    open();
    Press(window_, 1053);
    Press(window_, 1033);
    ::SetDlgItemTextW(window_, 1040, L"500.0");
    ::SendMessageW(control(1057), CB_SETCURSEL, 1, 0);
    analyseAgain();
    EXPECT_TRUE(checked(1053));
    EXPECT_TRUE(checked(1032));
    EXPECT_FALSE(checked(1033));
    EXPECT_FALSE(enabled(1075) || enabled(1076));
    EXPECT_EQ(text(1040), L"77.5");
    EXPECT_EQ(::SendMessageW(control(1057), CB_GETCURSEL, 0, 0), 2);
}

// What the scene or the opening gives comes back; what is the user's own stays.
TEST_F(Options, GoBackToTheScenesWhenItIsAnalysedAgain) {
    host_.scene["output"]["gamma"] = 1.8;
    open();
    Press(window_, 1056);
    Press(window_, 1044);
    Press(window_, 1033);
    for (const auto& typed :
         {std::make_pair(1036, L"other"), std::make_pair(1039, L"1.5"), std::make_pair(1075, L"7"),
          std::make_pair(1040, L"55"), std::make_pair(1037, L"30"), std::make_pair(1047, L"3"),
          std::make_pair(1054, L"40"), std::make_pair(1045, L"2")})
        ::SetDlgItemTextW(window_, typed.first, typed.second);
    ::SendMessageW(control(1057), CB_SETCURSEL, 2, 0);
    analyseAgain();
    EXPECT_EQ(text(1036), L"Living room");
    EXPECT_EQ(text(1039), L"1.8");
    EXPECT_EQ(text(1057), L"100%");
    EXPECT_TRUE(checked(1030));
    EXPECT_FALSE(checked(1033));
    EXPECT_FALSE(enabled(1075) || enabled(1076));

    EXPECT_EQ(text(1075), L"7");
    EXPECT_EQ(text(1040), L"55");
    EXPECT_EQ(text(1037), L"30");
    EXPECT_EQ(text(1047), L"3");
    EXPECT_EQ(text(1054), L"40");
    EXPECT_EQ(text(1045), L"2");
    EXPECT_TRUE(checked(1056) && checked(1044));
    EXPECT_TRUE(enabled(1057) && enabled(1040));
}

class DamagedSettings : public Options, public ::testing::WithParamInterface<const char*> {};

TEST_P(DamagedSettings, DoNotKeepTheDialogFromOpening) {
    host_.product.write(L"/script/rud_plugin.ini", GetParam());
    useCorona();
    open();
    EXPECT_FALSE(checked(1043));
    EXPECT_FALSE(text(1047).empty());
    EXPECT_EQ(::SendMessageW(control(1057), CB_GETCURSEL, 0, 0), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedSettings,
    ::testing::Values(
        "[general]\r\nlowerversion=1.3.7\r\nRENDER_CHANNEL_COLOR=yes\r\nEDIT_DURATION2=abc\r\n"
        "GI_SIZE=-7\r\nNOBLOCK=2\r\n",
        "[general]\nlowerversion=1.3.7\nEDIT_DURATION2=", // half written
        "\xEF\xBB\xBF[general]\r\nlowerversion=1.3.7\r\nRENDER_CHANNEL_COLOR=\r\n",
        "[general]\r\nlowerversion=1.3.7\r\nEDIT_DURATION2=\xE5\xAE\xA2\xE5\x8E\x85\r\n"
        "EDIT_NOISE_LEVEL2=99999999999999999999999999999999999999\r\nGI_SIZE=9x\r\n",
        "[general]\r\nlowerversion=1.3.7\r\n[general\r\n=\r\n;\r\nGI_SIZE\r\nREMBER_SETTING=="
        "1\r\n"));

TEST_F(Options, HaveAKeyOfTheirOwnEach) {
    open();
    std::set<wchar_t> keys;
    for (HWND child = ::GetWindow(window_, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        const std::wstring label = ReadWindowText(child);
        wchar_t name[16] = {};
        ::GetClassNameW(child, name, 16);
        const bool isField = std::wstring(name) == L"Edit" || std::wstring(name) == L"ListBox";
        const std::size_t mark = label.find(L'&');
        if (isField || mark == std::wstring::npos || mark + 1 == label.size())
            continue;
        const auto key = static_cast<wchar_t>(std::towupper(label[mark + 1]));
        EXPECT_TRUE(keys.insert(key).second) << static_cast<char>(key);
    }
    EXPECT_GT(keys.size(), 15U);
}

// In both languages: what is written fits its control, and no control reaches out of the dialog.
class Layout : public Options, public ::testing::WithParamInterface<LANGID> {};

TEST_P(Layout, ClipsNothing) {
    useCorona();
    open(GetParam());
    RECT client = {};
    ::GetClientRect(window_, &client);
    const WindowDc dc(window_);
    const DcSelection font(dc.get(),
                           reinterpret_cast<HGDIOBJ>(::SendMessageW(window_, WM_GETFONT, 0, 0)));
    for (HWND child = ::GetWindow(window_, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        RECT place = {};
        ::GetWindowRect(child, &place);
        ::MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
        const int id = ::GetDlgCtrlID(child);
        EXPECT_GE(place.left, 0) << id;
        EXPECT_LE(place.right, client.right) << id;
        EXPECT_LE(place.bottom, client.bottom) << id;
        wchar_t name[16] = {};
        ::GetClassNameW(child, name, 16);
        const std::wstring label = ReadWindowText(child);
        const bool isLabel = std::wstring(name) == L"Static";
        if (label.empty() || (!isLabel && std::wstring(name) != L"Button"))
            continue;
        RECT needed = {};
        ::DrawTextW(dc.get(), label.c_str(), -1, &needed, DT_CALCRECT | DT_SINGLELINE);
        EXPECT_LE(needed.right, place.right - place.left) << id;
    }

    RECT whole = {};
    ::GetWindowRect(window_, &whole);
    const double scale = screenScale();
    EXPECT_LE(whole.bottom - whole.top, 750 * std::max(1.0, scale * 1.25));
}

// The words of the limits are shorter in Chinese.
TEST_P(Layout, PutsTheLimitsInTheirPlaces) {
    useCorona();
    open(GetParam());
    const double scale = screenScale();
    struct Case {
        int id;
        int english;
        int chinese;
    };
    for (const Case& row :
         {Case{1061, 38, 48}, Case{1054, 88, 98}, Case{1154, 162, 172}, Case{1012, 183, 193},
          Case{1058, 220, 220}, Case{1045, 278, 268}, Case{1148, 350, 342}, Case{1059, 370, 365},
          Case{1064, 390, 395}, Case{1047, 475, 445}, Case{1147, 549, 519}, Case{1063, 570, 540},
          Case{1060, 610, 610}, Case{1039, 690, 690}}) {
        RECT place = {};
        ::GetWindowRect(control(row.id), &place);
        ::MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
        const int left = GetParam() == kChineseLanguage ? row.chinese : row.english;
        EXPECT_NEAR(place.left, left * scale, 1.0) << row.id;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Layout, ::testing::Values(kEnglishLanguage, kChineseLanguage));

} // namespace
} // namespace test
} // namespace orv
