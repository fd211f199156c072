// The rules behind the render options dialog.
#include "resources/controls.h"
#include "resources/texts.h"
#include "ui/render_options/render_options_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace orv {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

TEST(AspectOf, IsWidthByHeightWithinTheSpinnersLimits) {
    const struct {
        std::int32_t width;
        std::int32_t height;
        double aspect;
    } cases[] = {
        {1920, 1080, 1920.0 / 1080.0},
        {100, 200, 0.5},
        {1, 1, 1.0},
        {1920, 0, 0.0},
        {0, 0, 0.0},
        {0, 5, 0.001},
        {-10, 5, 0.001},
        {1, 1000, 0.001},
        {1, 1001, 0.001},
        {2048, 1, 2048.0},
        {2049, 1, 2048.0},
    };
    for (const auto& one : cases)
        EXPECT_DOUBLE_EQ(AspectOf(one.width, one.height), one.aspect)
            << one.width << " x " << one.height;
}

TEST(OtherSide, IsRoundedAndAtLeastOnePixel) {
    const struct {
        std::int32_t width;
        double aspect;
        std::int32_t height;
    } cases[] = {
        {1920, 1920.0 / 1080.0, 1080},
        {1001, 2.0, 501},
        {1, 2.0, 1},
        {1, 2048.0, 1},
        {0, 2.0, 0},
        {3, 0.001, 3000},
        {kMost, 0.001, kMost},
    };
    for (const auto& one : cases)
        EXPECT_EQ(HeightFor(one.width, one.aspect), one.height) << one.width;
    EXPECT_EQ(WidthFor(1080, 1920.0 / 1080.0), 1920);
    EXPECT_EQ(WidthFor(1, 0.001), 1);
    EXPECT_EQ(WidthFor(kMost, 2048.0), kMost);
    EXPECT_EQ(WidthFor(kLeast, 2048.0), -kMost);
}

// The host's spinner keeps a value of single precision.
TEST(OtherSide, SurvivesTheSpinnersPrecision) {
    for (std::int32_t width = 1; width < 20000; width += 7) {
        for (const std::int32_t height : {1080, 1, 333, 8640}) {
            const double aspect = AspectOf(width, height);
            const auto shown = static_cast<double>(static_cast<float>(aspect));
            if (aspect > kSmallestAspect && aspect < kLargestAspect) {
                ASSERT_EQ(HeightFor(width, shown), height) << width;
            }
        }
    }
}

TEST(FormatEntry, IsTheFormatsOwnElseTheTiffsElseTheFirst) {
    const std::vector<std::wstring> formats = OutputFormats();
    ASSERT_EQ(formats.size(), 14U);
    const struct {
        const wchar_t* format;
        int entry;
    } cases[] = {
        {L"PNG", 0},   {L"JPG", 1},    {L"BMP", 2},  {L"TGA", 3}, {L"EXR", 4},  {L"HDR", 5},
        {L"RLA", 6},   {L"RPF", 7},    {L"DDS", 8},  {L"EPS", 9}, {L"RGB", 10}, {L"CIN", 11},
        {L"TIFF", 12}, {L"VRIMG", 13}, {L"TIF", 12}, {L"", 0},    {L"WEBP", 0}, {L"EX", 0},
        {L"EXRR", 0},  {L" EXR", 0},   {L"exr", 4},
    };
    for (const auto& one : cases)
        EXPECT_EQ(FormatEntry(formats, one.format), one.entry) << one.entry;
    // Where the list names its TIFF entry otherwise, both spellings still find it.
    std::vector<std::wstring> others = formats;
    others[12] = L"Tagged image";
    EXPECT_EQ(FormatEntry(others, L"TIFF"), 12);
    EXPECT_EQ(FormatEntry(others, L"TIF"), 12);
    EXPECT_EQ(FormatEntry(others, L"TIFX"), 0);
}

class CameraEditsWritten : public ::testing::Test {
protected:
    CameraEditsWritten() {
        CameraInfo camera;
        camera.name = L"Out";
        camera.width = 10;
        camera.height = 20;
        camera.startFrame = 3;
        camera.imageFormat = L"PNG";
        camera.selected = true;
        cameras_[L"A"] = camera;
        cameras_[L"B"] = camera;
        edits_.width = 100;
        edits_.height = 200;
        edits_.format = L"EXR";
        edits_.name = L"New";
        edits_.frame = 30;
        edits_.isSpherical = true;
    }

    CameraMap cameras_;
    CameraEdits edits_;
};

TEST_F(CameraEditsWritten, ChangeNothingWithoutAFlag) {
    WriteCameraEdits(cameras_, {L"A"}, edits_);
    const CameraInfo& camera = cameras_[L"A"];
    EXPECT_EQ(camera.width, 10);
    EXPECT_EQ(camera.height, 20);
    EXPECT_EQ(camera.imageFormat, L"PNG");
    EXPECT_EQ(camera.name, L"Out");
    EXPECT_EQ(camera.startFrame, 3);
    EXPECT_FALSE(camera.isSpherical);
}

TEST_F(CameraEditsWritten, ChangeEachFieldByItsOwnFlag) {
    const struct {
        bool CameraEdits::*flag;
        const char* changed; // width, height, format, name, frame, view
    } cases[] = {
        {&CameraEdits::setsSize, "110000"}, {&CameraEdits::setsFormat, "001000"},
        {&CameraEdits::setsName, "000100"}, {&CameraEdits::setsFrame, "000010"},
        {&CameraEdits::setsView, "000001"},
    };
    for (const auto& one : cases) {
        CameraMap cameras = cameras_;
        CameraEdits edits = edits_;
        edits.*one.flag = true;
        WriteCameraEdits(cameras, {L"A"}, edits);
        const CameraInfo& camera = cameras[L"A"];
        std::string changed;
        changed += camera.width == 100 ? '1' : '0';
        changed += camera.height == 200 ? '1' : '0';
        changed += camera.imageFormat == L"EXR" ? '1' : '0';
        changed += camera.name == L"New" ? '1' : '0';
        changed += camera.startFrame == 30 ? '1' : '0';
        changed += camera.isSpherical ? '1' : '0';
        EXPECT_EQ(changed, one.changed);
        EXPECT_TRUE(camera.selected);
        EXPECT_EQ(cameras[L"B"].width, 10); // not edited
    }
}

TEST_F(CameraEditsWritten, ReachEveryCameraAndMakeARecordForAnUnknownOne) {
    edits_.setsSize = true;
    WriteCameraEdits(cameras_, {L"A", L"B", L"C"}, edits_);
    ASSERT_EQ(cameras_.size(), 3U);
    for (const wchar_t* key : {L"A", L"B", L"C"})
        EXPECT_EQ(cameras_[key].width, 100);
    EXPECT_EQ(cameras_[L"C"].name, L"");
}

class CameraEditsKept : public CameraEditsWritten {
protected:
    // The record of camera "A" when the scene is analysed again and nothing has changed in it,
    // after the edits of `flag` alone.
    CameraInfo analysedAgain(bool CameraEdits::*flag) const {
        CameraEdits edits = edits_;
        edits.*flag = true;
        CameraMap edited = cameras_;
        WriteCameraEdits(edited, {L"A"}, edits);
        CameraMap cameras = cameras_;
        cameras[L"A"].selected = false;
        KeepCameraEdits(cameras_, edited, cameras);
        return cameras[L"A"];
    }
};

TEST_F(CameraEditsKept, HaveEachFieldThatWasEdited) {
    EXPECT_EQ(analysedAgain(&CameraEdits::setsSize).width, 100);
    EXPECT_EQ(analysedAgain(&CameraEdits::setsSize).height, 200);
    EXPECT_EQ(analysedAgain(&CameraEdits::setsFormat).imageFormat, L"EXR");
    EXPECT_EQ(analysedAgain(&CameraEdits::setsName).name, L"New");
    EXPECT_EQ(analysedAgain(&CameraEdits::setsFrame).startFrame, 30);
    EXPECT_TRUE(analysedAgain(&CameraEdits::setsView).isSpherical);
    EXPECT_TRUE(analysedAgain(&CameraEdits::setsView).selected);
}

TEST_F(CameraEditsKept, LeaveTheOtherFieldsToTheNewAnalysis) {
    CameraMap edited = cameras_;
    edited[L"A"].width = 11; // the height is the same, but belongs to it
    CameraInfo now;
    now.name = L"Now";
    now.width = 640;
    now.height = 480;
    now.startFrame = 9;
    now.imageFormat = L"TGA";
    now.isSpherical = true;
    CameraMap cameras = {{L"A", now}, {L"B", now}, {L"New", now}};
    KeepCameraEdits(cameras_, edited, cameras);

    ASSERT_EQ(cameras.size(), 3U);
    EXPECT_EQ(cameras[L"A"].width, 11);
    EXPECT_EQ(cameras[L"A"].height, 20);
    EXPECT_EQ(cameras[L"B"].width, 640);
    EXPECT_TRUE(cameras[L"B"].selected);
    EXPECT_EQ(cameras[L"New"].width, 640);
    EXPECT_FALSE(cameras[L"New"].selected);
    for (const wchar_t* key : {L"A", L"B", L"New"}) {
        EXPECT_EQ(cameras[key].name, L"Now");
        EXPECT_EQ(cameras[key].startFrame, 9);
        EXPECT_EQ(cameras[key].imageFormat, L"TGA");
        EXPECT_TRUE(cameras[key].isSpherical);
    }
}

TEST_F(CameraEditsKept, ForgetCamerasThatAreGone) {
    CameraMap cameras = {{L"B", cameras_[L"B"]}};
    KeepCameraEdits(cameras_, cameras_, cameras);
    EXPECT_EQ(cameras.size(), 1U);
}

TEST(Toggles, AreFourPairsThatShowEachOther) {
    std::set<int> buttons;
    for (const Toggle& toggle : kToggles) {
        buttons.insert(toggle.pressed);
        const Toggle* partner = FindToggle(toggle.shown);
        ASSERT_NE(partner, nullptr) << toggle.pressed;
        EXPECT_EQ(partner->shown, toggle.pressed);
        EXPECT_EQ(partner->group, toggle.group);
        EXPECT_NE(partner->putsBack, toggle.putsBack);
    }
    EXPECT_EQ(buttons, (std::set<int>{1072, 1073, 1074, 1075, 1076, 1077, 1078, 1079}));
    EXPECT_EQ(FindToggle(IDC_OPTIONS_APPLY), nullptr);
}

TEST(Toggles, EnableTheFieldsOfEveryGroupButTheFrame) {
    const struct {
        int pressed;
        int shown;
        int firstField;
        bool putsBack;
        bool enables;
    } cases[] = {
        {1072, 1078, 1019, false, true},  {1078, 1072, 1019, true, false},
        {1074, 1079, 1018, false, true},  {1079, 1074, 1018, true, false},
        {1075, 1076, 1015, false, true},  {1076, 1075, 1015, true, false},
        {1073, 1077, 1017, false, false}, {1077, 1073, 1017, true, false},
    };
    for (const auto& one : cases) {
        const Toggle* toggle = FindToggle(one.pressed);
        ASSERT_NE(toggle, nullptr) << one.pressed;
        EXPECT_EQ(toggle->shown, one.shown);
        EXPECT_EQ(ControlsOf(toggle->group).controls[0], one.firstField);
        EXPECT_EQ(toggle->putsBack, one.putsBack) << one.pressed;
        EXPECT_EQ(toggle->enables, one.enables) << one.pressed;
    }
}

TEST(ApplyButton, StandsBelowWhatIsShown) {
    const struct {
        bool several;
        bool corona;
        int left;
        int top;
    } cases[] = {{true, false, 56, 200},
                 {true, true, 56, 200},
                 {false, false, 56, 225},
                 {false, true, 82, 250}};
    for (const auto& one : cases) {
        const ButtonPosition position = ApplyButtonPosition(one.several, one.corona);
        EXPECT_EQ(position.left, one.left);
        EXPECT_EQ(position.top, one.top);
    }
}

} // namespace
} // namespace orv
