// The render options dialog of the plug-in in a host, for one camera and for several.
#include "resources/controls.h"
#include "tests/dialogs/render_options_user.h"
#include "tests/support/log_lines.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

namespace orv {
namespace test {
namespace {

constexpr int kHallRow = 1; // "Camera \u5BA2\u5385": 4096 x 2048, frame 12, PNG

TEST_F(RenderOptions, ShowTheCameraThatWasDoubleClicked) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(ReadWindowText(dialog), L"Render options");
    EXPECT_EQ(::GetWindow(dialog, GW_OWNER), main_);
    EXPECT_FALSE(::IsWindowEnabled(main_));
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"4096");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"2048");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_FRAME), L"12");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"2.0");
    EXPECT_EQ(::IsDlgButtonChecked(dialog, IDC_OPTIONS_ASPECT_LOCK), UINT{BST_CHECKED});
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_NAME), L"Camera \u5BA2\u5385");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_CAMERA), L"Camera \u5BA2\u5385");
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_FORMAT), 0);
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_VIEW), 0);
    for (const int id :
         {IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_FRAME, IDC_OPTIONS_FORMAT,
          IDC_OPTIONS_VIEW, IDC_OPTIONS_NAME, IDC_OPTIONS_ASPECT, IDC_OPTIONS_ASPECT_LOCK}) {
        EXPECT_TRUE(IsEnabled(dialog, id)) << id;
        EXPECT_TRUE(IsShown(dialog, id)) << id;
    }
    for (const int id : {IDC_OPTIONS_NAME_LABEL, IDC_OPTIONS_CAMERA_LABEL, IDC_OPTIONS_LOCK_SIZE,
                         IDC_OPTIONS_LOCK_FRAME, IDC_OPTIONS_LOCK_FORMAT, IDC_OPTIONS_LOCK_VIEW})
        EXPECT_TRUE(IsShown(dialog, id)) << id;
    for (const int id : {IDC_OPTIONS_UNLOCK_SIZE, IDC_OPTIONS_UNLOCK_FRAME,
                         IDC_OPTIONS_UNLOCK_FORMAT, IDC_OPTIONS_UNLOCK_VIEW})
        EXPECT_FALSE(IsShown(dialog, id)) << id;
}

// Its check box does not select a row: another one is.
TEST_F(RenderOptions, OpenForTheRowUnderTheMouse) {
    startHost();
    ClickRow(main_, IDC_CAMERAS, 0);
    DoubleClickCheckBox(main_, IDC_CAMERAS, 2);
    HWND dialog = waitForDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_CAMERA), L"Door");
}

TEST_F(RenderOptions, ExplainTheirPadlocksInTips) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    struct Case {
        int padlock;
        const wchar_t* tip;
    };
    for (const Case& row : {
             Case{IDC_OPTIONS_UNLOCK_SIZE, L"Unlock the image size"},
             Case{IDC_OPTIONS_LOCK_SIZE, L"Lock the image size, as it was"},
             Case{IDC_OPTIONS_UNLOCK_FRAME, L"The frame is locked"},
             Case{IDC_OPTIONS_LOCK_FRAME, L"Lock the frame, as it was"},
             Case{IDC_OPTIONS_UNLOCK_FORMAT, L"Unlock the format"},
             Case{IDC_OPTIONS_LOCK_FORMAT, L"Lock the format, as it was"},
             Case{IDC_OPTIONS_UNLOCK_VIEW, L"Unlock the view"},
             Case{IDC_OPTIONS_LOCK_VIEW, L"Lock the view, as it was"},
         })
        EXPECT_EQ(ToolTip(dialog, row.padlock), row.tip) << row.padlock;
}

TEST_F(RenderOptions, OfferFourteenFormatsAndTwoViews) {
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    const std::vector<std::wstring> formats = {L"PNG", L"JPG", L"BMP",  L"TGA",  L"EXR",
                                               L"HDR", L"RLA", L"RPF",  L"DDS",  L"EPS",
                                               L"RGB", L"CIN", L"TIFF", L"VRIMG"};
    EXPECT_EQ(Entries(dialog, IDC_OPTIONS_FORMAT), formats);
    const std::vector<std::wstring> views = {L"Normal", L"360\u00B0"};
    EXPECT_EQ(Entries(dialog, IDC_OPTIONS_VIEW), views);
}

TEST_F(RenderOptions, SelectTheSphericalViewOfASphericalCamera) {
    host_.scene["renderer"]["properties"]["camera_overrideFOV"] = true;
    host_.scene["renderer"]["properties"]["camera_fov"] = 360.0;
    host_.scene["renderer"]["properties"]["camera_type"] = 1;
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_VIEW), 1);
}

struct FormatCase {
    const char* format;
    int entry;
};

class RenderOptionsFormat : public RenderOptions,
                            public ::testing::WithParamInterface<FormatCase> {};

TEST_P(RenderOptionsFormat, IsTheCameras) {
    host_.scene["output"]["format"] = GetParam().format;
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_FORMAT), GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(Formats, RenderOptionsFormat,
                         ::testing::Values(FormatCase{"tif", 12}, FormatCase{"tiff", 12},
                                           FormatCase{"exr", 4}, FormatCase{"webp", 0}));

TEST_F(RenderOptions, HaveNoAspectForACameraWithoutHeight) {
    host_.scene["output"]["height"] = 0;
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"0");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"");
    EXPECT_FALSE(IsEnabled(dialog, IDC_OPTIONS_ASPECT));
    EXPECT_EQ(::IsDlgButtonChecked(dialog, IDC_OPTIONS_ASPECT_LOCK), UINT{BST_UNCHECKED});
    Type(dialog, IDC_OPTIONS_HEIGHT, L"500"); // and typing works all the same
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"1920");
}

TEST_F(RenderOptions, KeepTheAspectWhileItIsLocked) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_WIDTH, L"1001");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"1001");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"501");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"2.0");
    Type(dialog, IDC_OPTIONS_HEIGHT, L"300");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"600");
}

TEST_F(RenderOptions, BringTheAspectUpToDateWhileItIsNotLocked) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_OPTIONS_ASPECT_LOCK);
    Type(dialog, IDC_OPTIONS_WIDTH, L"1024");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"2048");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"0.5");
    Press(dialog, IDC_OPTIONS_ASPECT_LOCK); // the new one is kept from now on
    Type(dialog, IDC_OPTIONS_WIDTH, L"100");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"200");
}

TEST_F(RenderOptions, CleanANumberThatIsTyped) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    ::SetDlgItemTextW(dialog, IDC_OPTIONS_WIDTH, L"0800px"); // as a paste does
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"800");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"400");
}

TEST_F(RenderOptions, FollowTheAspectWithTheHeight) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_ASPECT, L"4");
    PressKey(dialog, IDC_OPTIONS_ASPECT, VK_TAB);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"1024");
    ClickAt(dialog, IDC_OPTIONS_ASPECT_SPIN, 2, 1); // the upper arrow: 4.01
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"1021");
    Type(dialog, IDC_OPTIONS_ASPECT, L"9999");
    PressKey(dialog, IDC_OPTIONS_ASPECT, VK_TAB);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"2048.0");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"2");
}

TEST_F(RenderOptions, CountAnAspectThatIsBeingTypedWhenTheyAreApplied) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    ::SendMessageW(dialog, WM_NEXTDLGCTL,
                   reinterpret_cast<WPARAM>(::GetDlgItem(dialog, IDC_OPTIONS_ASPECT)), TRUE);
    Type(dialog, IDC_OPTIONS_ASPECT, L"4");
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    EXPECT_EQ(cells(kHallRow)[2], L"1024");
}

// What stands in the fields when a padlock is pressed, and what then.
struct LockCase {
    int lock; // shown at first; its partner unlocks
    int unlock;
    std::vector<int> fields;
    bool unlocks; // whether the partner enables the fields
};

TEST_F(RenderOptions, AreLockedAndUnlockedInGroups) {
    const LockCase cases[] = {
        {IDC_OPTIONS_LOCK_VIEW, IDC_OPTIONS_UNLOCK_VIEW, {IDC_OPTIONS_VIEW}, true},
        {IDC_OPTIONS_LOCK_FORMAT, IDC_OPTIONS_UNLOCK_FORMAT, {IDC_OPTIONS_FORMAT}, true},
        {IDC_OPTIONS_LOCK_SIZE,
         IDC_OPTIONS_UNLOCK_SIZE,
         {IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_ASPECT_LOCK},
         true},
        {IDC_OPTIONS_LOCK_FRAME, IDC_OPTIONS_UNLOCK_FRAME, {IDC_OPTIONS_FRAME}, false},
    };
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    for (const LockCase& pair : cases) {
        Press(dialog, pair.lock);
        EXPECT_FALSE(IsShown(dialog, pair.lock)) << pair.lock;
        EXPECT_TRUE(IsShown(dialog, pair.unlock)) << pair.lock;
        for (const int field : pair.fields)
            EXPECT_FALSE(IsEnabled(dialog, field)) << field;
        Press(dialog, pair.unlock);
        EXPECT_TRUE(IsShown(dialog, pair.lock)) << pair.lock;
        EXPECT_FALSE(IsShown(dialog, pair.unlock)) << pair.lock;
        for (const int field : pair.fields)
            EXPECT_EQ(IsEnabled(dialog, field), pair.unlocks) << field;
    }
}

TEST_F(RenderOptions, PutTheCamerasValuesBackWhenTheyAreLocked) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_OPTIONS_ASPECT_LOCK);
    Type(dialog, IDC_OPTIONS_WIDTH, L"17");
    Type(dialog, IDC_OPTIONS_HEIGHT, L"23");
    Press(dialog, IDC_OPTIONS_LOCK_SIZE);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"4096");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_HEIGHT), L"2048");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_ASPECT), L"2.0");
    EXPECT_EQ(::IsDlgButtonChecked(dialog, IDC_OPTIONS_ASPECT_LOCK), UINT{BST_CHECKED});

    Type(dialog, IDC_OPTIONS_FRAME, L"77");
    Press(dialog, IDC_OPTIONS_LOCK_FRAME);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_FRAME), L"12");

    SelectEntry(dialog, IDC_OPTIONS_FORMAT, 5);
    Press(dialog, IDC_OPTIONS_LOCK_FORMAT);
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_FORMAT), 0);

    SelectEntry(dialog, IDC_OPTIONS_VIEW, 1);
    Press(dialog, IDC_OPTIONS_LOCK_VIEW);
    EXPECT_EQ(SelectedEntry(dialog, IDC_OPTIONS_VIEW), 0);
}

TEST_F(RenderOptions, AreWrittenToTheCameraAndShownInTheTable) {
    startHost();
    ClickCheckBox(main_, IDC_CAMERAS, 2);
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_WIDTH, L"1000");
    Type(dialog, IDC_OPTIONS_FRAME, L"77");
    Type(dialog, IDC_OPTIONS_NAME, L"Hall");
    SelectEntry(dialog, IDC_OPTIONS_FORMAT, 4);
    SelectEntry(dialog, IDC_OPTIONS_VIEW, 1);
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    const std::vector<std::wstring> expected = {L"Camera \u5BA2\u5385", L"1000", L"500", L"77",
                                                L"360\u00B0",           L"EXR",  L"Hall"};
    EXPECT_EQ(cells(kHallRow), expected);
    EXPECT_EQ(cells(0)[1], L"1920");
    EXPECT_EQ(Ticks(main_, IDC_CAMERAS), "001"); // the user's choice has stayed
}

TEST_F(RenderOptions, StayWhenTheSceneIsAnalysedAgain) {
    startHost();
    ClickCheckBox(main_, IDC_CAMERAS, kHallRow);
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_WIDTH, L"1000");
    Type(dialog, IDC_OPTIONS_FRAME, L"77");
    Type(dialog, IDC_OPTIONS_NAME, L"Hall");
    SelectEntry(dialog, IDC_OPTIONS_FORMAT, 4);
    SelectEntry(dialog, IDC_OPTIONS_VIEW, 1);
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    const std::vector<std::wstring> edited = cells(kHallRow);
    ASSERT_EQ(edited[6], L"Hall");

    for (std::size_t analyses = 2; analyses <= 3; ++analyses) {
        Press(main_, IDC_ANALYSE_AGAIN);
        ASSERT_EQ(host_.events("script_run").size(), analyses);
        EXPECT_EQ(cells(kHallRow), edited);
        EXPECT_EQ(Ticks(main_, IDC_CAMERAS), "010");
    }
}

// The button that opened them is disabled then, because the new rows are not selected.
TEST_F(RenderOptions, LeaveTheKeyboardToTheTableWhenTheyAreAppliedToSeveral) {
    startHost();
    ClickRow(main_, IDC_CAMERAS, 0);
    ClickRow(main_, IDC_CAMERAS, 1, MK_CONTROL);
    ASSERT_TRUE(IsEnabled(main_, IDC_EDIT_CAMERAS));
    PressKey(main_, IDC_EDIT_CAMERAS, VK_SPACE);
    HWND dialog = waitForDialog();
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    EXPECT_TRUE(WaitUntil([this] {
        GUITHREADINFO thread = {};
        thread.cbSize = sizeof(thread);
        return ::GetGUIThreadInfo(::GetWindowThreadProcessId(main_, nullptr), &thread) &&
               thread.hwndFocus == ::GetDlgItem(main_, IDC_CAMERAS);
    }));
    EXPECT_FALSE(IsEnabled(main_, IDC_EDIT_CAMERAS));
}

TEST_F(RenderOptions, LeaveFieldsAloneThatAreLocked) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    for (const int lock : {IDC_OPTIONS_LOCK_SIZE, IDC_OPTIONS_LOCK_FRAME, IDC_OPTIONS_LOCK_FORMAT,
                           IDC_OPTIONS_LOCK_VIEW})
        Press(dialog, lock);
    ::SetDlgItemTextW(dialog, IDC_OPTIONS_FRAME, L"99");
    SelectEntry(dialog, IDC_OPTIONS_FORMAT, 4);
    SelectEntry(dialog, IDC_OPTIONS_VIEW, 1);
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    const std::vector<std::wstring> expected = {
        L"Camera \u5BA2\u5385", L"4096", L"2048", L"12", L"Normal", L"PNG", L"Camera \u5BA2\u5385"};
    EXPECT_EQ(cells(kHallRow), expected);
}

class RenderOptionsLeft : public RenderOptions, public ::testing::WithParamInterface<int> {};

TEST_P(RenderOptionsLeft, ChangeNothing) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_WIDTH, L"1000");
    if (GetParam() == IDC_OPTIONS_CANCEL)
        Press(dialog, IDC_OPTIONS_CANCEL);
    else if (GetParam() == IDCANCEL)
        PressKey(dialog, IDC_OPTIONS_WIDTH, VK_ESCAPE);
    else
        ::PostMessageW(dialog, WM_CLOSE, 0, 0);
    ASSERT_TRUE(waitForClose());
    EXPECT_EQ(cells(kHallRow)[1], L"4096");
}

INSTANTIATE_TEST_SUITE_P(Ways, RenderOptionsLeft,
                         ::testing::Values(IDC_OPTIONS_CANCEL, IDCANCEL, 0));

TEST_F(RenderOptions, TakeANameOfAHundredCharactersButNoneLonger) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    MessageBoxWatcher watcher(L"Orv Rendering - Please check");
    Type(dialog, IDC_OPTIONS_NAME, std::wstring(100, L'n'));
    EXPECT_TRUE(watcher.seen().empty());
    Type(dialog, IDC_OPTIONS_NAME, std::wstring(101, L'n'));
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, L"The name has more than 100 characters. Please shorten it.");
    EXPECT_EQ(boxes[0].owner, dialog);
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_NAME), std::wstring(101, L'n')); // left as it is
    EXPECT_NE(host_.product.log(L"rud_ui", L"1.3.7")
                  .find("[WARN] You are setting camera name that its length longer than 100!"),
              std::string::npos);
}

TEST_F(RenderOptions, RemoveCharactersThatNoNameMayHave) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    MessageBoxWatcher watcher(L"Orv Rendering - Please check");
    ::SetDlgItemTextW(dialog, IDC_OPTIONS_NAME, L"a\\b/c:d*e?f\"g<h>i|j%k");
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.substr(0, 40), L"A name cannot have any of these characte");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_NAME), L"abcdefghijk");
    DWORD from = 0;
    DWORD to = 0;
    ::SendDlgItemMessageW(dialog, IDC_OPTIONS_NAME, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                          reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 11U); // the caret is at the end
    EXPECT_EQ(to, 11U);
    const std::string log = host_.product.log(L"rud_ui", L"1.3.7");
    EXPECT_NE(log.find("[WARN] You are setting camera name that contain invalid characters."),
              std::string::npos);
    EXPECT_NE(log.find("[INFO] Remove invalid characters successfully."), std::string::npos);
}

struct BlankCase {
    const wchar_t* typed;
    const wchar_t* message;
};

class RenderOptionsBlank : public RenderOptions, public ::testing::WithParamInterface<BlankCase> {};

TEST_P(RenderOptionsBlank, IsToldAndTrimmed) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, IDC_OPTIONS_NAME, GetParam().typed);
    MessageBoxWatcher watcher(L"Orv Rendering - Please check");
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, GetParam().message);
    EXPECT_EQ(cells(kHallRow)[6], L"Hall");
}

INSTANTIATE_TEST_SUITE_P(
    Names, RenderOptionsBlank,
    ::testing::Values(BlankCase{L"Hall  ", L"The name ends with a space, which will be removed."},
                      BlankCase{L" Hall", L"The name begins with a space, which will be removed."},
                      BlankCase{L" Hall ",
                                L"The name begins with a space, which will be removed."}));

TEST_F(RenderOptions, StartLockedForSeveralCameras) {
    startHost();
    HWND dialog = openForRows({0, 2});
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(ReadWindowText(dialog), L"Render options of the selected cameras");
    EXPECT_EQ(Text(dialog, IDC_OPTIONS_WIDTH), L"1920"); // the first camera's
    for (const int id : {IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_VIEW, IDC_OPTIONS_FRAME,
                         IDC_OPTIONS_FORMAT, IDC_OPTIONS_NAME, IDC_OPTIONS_CAMERA_LABEL,
                         IDC_OPTIONS_CAMERA, IDC_OPTIONS_ASPECT_LOCK})
        EXPECT_FALSE(IsEnabled(dialog, id)) << id;
    for (const int id :
         {IDC_OPTIONS_NAME_LABEL, IDC_OPTIONS_NAME, IDC_OPTIONS_CAMERA_LABEL, IDC_OPTIONS_CAMERA})
        EXPECT_FALSE(IsShown(dialog, id)) << id;
    for (const int id : {IDC_OPTIONS_UNLOCK_SIZE, IDC_OPTIONS_UNLOCK_FRAME,
                         IDC_OPTIONS_UNLOCK_FORMAT, IDC_OPTIONS_UNLOCK_VIEW})
        EXPECT_TRUE(IsShown(dialog, id)) << id;
}

TEST_F(RenderOptions, GiveSeveralCamerasOnlyWhatIsUnlocked) {
    startHost();
    HWND dialog = openForRows({0, 1});
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_OPTIONS_UNLOCK_FORMAT);
    SelectEntry(dialog, IDC_OPTIONS_FORMAT, 4);
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    const std::vector<std::wstring> first = {L"Camera 01", L"1920", L"1080",     L"12",
                                             L"Normal",    L"EXR",  L"Camera 01"};
    const std::vector<std::wstring> second = {
        L"Camera \u5BA2\u5385", L"4096", L"2048", L"12", L"Normal", L"EXR", L"Camera \u5BA2\u5385"};
    EXPECT_EQ(cells(0), first);
    EXPECT_EQ(cells(1), second);
    EXPECT_EQ(cells(2)[5], L"PNG");
}

TEST_F(RenderOptions, OpenForSeveralCamerasOnlyWhileSeveralAreSelected) {
    startHost();
    EXPECT_FALSE(IsEnabled(main_, IDC_EDIT_CAMERAS));
    HWND dialog = openForRows({0, 1});
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(IsEnabled(main_, IDC_EDIT_CAMERAS));
    Press(dialog, IDC_OPTIONS_APPLY);
    ASSERT_TRUE(waitForClose());
    // The table was rebuilt: no row is selected any more.
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(main_, IDC_EDIT_CAMERAS); }));
}

TEST_F(RenderOptions, NeverUnlockTheFrameOfSeveralCameras) {
    startHost();
    HWND dialog = openForRows({0, 1});
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_OPTIONS_UNLOCK_FRAME);
    EXPECT_TRUE(IsShown(dialog, IDC_OPTIONS_LOCK_FRAME));
    EXPECT_FALSE(IsEnabled(dialog, IDC_OPTIONS_FRAME));
}

// Left and top of a control in dialog units of 96 dots per inch or any other resolution.
void ExpectAt(HWND dialog, int control, int left, int top) {
    RECT expected = {left, top, left, top};
    ::MapDialogRect(dialog, &expected);
    RECT area = {};
    ::GetWindowRect(::GetDlgItem(dialog, control), &area);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
    EXPECT_EQ(area.left, expected.left) << control;
    EXPECT_EQ(area.top, expected.top) << control;
    RECT client = {};
    ::GetClientRect(dialog, &client);
    EXPECT_LT(area.bottom, client.bottom) << control;
}

TEST_F(RenderOptions, EndWithTheirButtonsBelowTheLastField) {
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    ExpectAt(dialog, IDC_OPTIONS_APPLY, 56, 225);
    ExpectAt(dialog, IDC_OPTIONS_CANCEL, 56, 243);
    EXPECT_FALSE(IsShown(dialog, IDC_OPTIONS_CORONA_NOTE));
    Press(dialog, IDC_OPTIONS_CANCEL);
    ASSERT_TRUE(waitForClose());
    dialog = openForRows({0, 1});
    ASSERT_NE(dialog, nullptr);
    ExpectAt(dialog, IDC_OPTIONS_APPLY, 56, 200);
    ExpectAt(dialog, IDC_OPTIONS_CANCEL, 56, 218);
}

TEST_F(RenderOptions, HaveANoteInACoronaScene) {
    host_.scene["renderer"]["name"] = "Corona";
    host_.scene["renderer"]["properties"]["progressive_passLimit"] = 10;
    host_.scene["renderer"]["properties"]["progressive_timeLimit"] = 0;
    host_.scene["renderer"]["properties"]["adaptivity_targetError"] = 0.0;
    startHost();
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    ExpectAt(dialog, IDC_OPTIONS_APPLY, 82, 250);
    ExpectAt(dialog, IDC_OPTIONS_CANCEL, 82, 268);
    EXPECT_TRUE(IsShown(dialog, IDC_OPTIONS_CORONA_NOTE));
}

TEST_F(RenderOptions, SpeakChineseWhereTheHostDoes) {
    startHost(kChineseLanguage);
    HWND dialog = openForRow(0);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(ReadWindowText(dialog), L"\u6E32\u67D3\u9009\u9879");
    EXPECT_EQ(Entries(dialog, IDC_OPTIONS_VIEW)[0], L"\u666E\u901A");
}

TEST_F(RenderOptions, StartAtTheWidthAndAreAppliedByEnter) {
    startHost();
    HWND dialog = openForRow(kHallRow);
    ASSERT_NE(dialog, nullptr);
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    ASSERT_TRUE(::GetGUIThreadInfo(::GetWindowThreadProcessId(dialog, nullptr), &thread));
    EXPECT_EQ(::GetDlgCtrlID(thread.hwndFocus), IDC_OPTIONS_WIDTH);
    Type(dialog, IDC_OPTIONS_WIDTH, L"640");
    PressKey(dialog, IDC_OPTIONS_WIDTH, VK_RETURN);
    ASSERT_TRUE(waitForClose());
    EXPECT_EQ(cells(kHallRow)[1], L"640");
}

} // namespace
} // namespace test
} // namespace orv
