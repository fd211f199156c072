#include "submit/camera_validation.h"

#include "resources/controls.h"
#include "tests/support/product_folder.h"
#include "tests/unit/submit/test_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

CameraInfo CameraAtFrame(std::int32_t frame) {
    CameraInfo camera;
    camera.startFrame = frame;
    return camera;
}

class CameraRows : public ::testing::Test {
protected:
    int validate(const std::vector<CameraRow>& rows) {
        return ValidateCameraRows(rows, cameras_, badNames_);
    }

    CameraMap cameras_ = {
        {L"a", CameraAtFrame(0)}, {L"b", CameraAtFrame(5)}, {L"neg", CameraAtFrame(-1)}};
    std::vector<std::wstring> badNames_ = {L"from before"};
};

TEST_F(CameraRows, AreValidWithOneCheckedAndGoodNames) {
    EXPECT_EQ(validate({{L"a", false}, {L"b", true}}), kCamerasValid);
    EXPECT_FALSE(cameras_[L"a"].selected);
    EXPECT_TRUE(cameras_[L"b"].selected);
    EXPECT_THAT(badNames_, IsEmpty());
}

TEST_F(CameraRows, EndAtANegativeFrame) {
    EXPECT_EQ(validate({{L"a", true}, {L"neg", false}, {L"b", true}}), kCameraFrameNegative);
    EXPECT_TRUE(cameras_[L"a"].selected);
    EXPECT_FALSE(cameras_[L"b"].selected) << "rows after it are not looked at";
}

TEST_F(CameraRows, CollectAllBadNamesCheckedOrNot) {
    EXPECT_EQ(validate({{L"x%", false}, {L"a", true}, {L"y.", true}}), kCameraNamesBad);
    EXPECT_THAT(badNames_, ElementsAre(L"x%", L"y."));
}

TEST_F(CameraRows, NeedOneChecked) {
    EXPECT_EQ(validate({{L"a", false}, {L"b", false}}), kNoCameraChecked);
    EXPECT_EQ(validate({}), kNoCameraChecked);
}

TEST_F(CameraRows, WithoutARecordGetOne) {
    EXPECT_EQ(validate({{L"new", true}}), kCamerasValid);
    EXPECT_TRUE(cameras_.at(L"new").selected);
}

struct TableCase {
    std::vector<TestCamera> rows;
    int code;
    const char* logLine;
};

TEST(ValidateCamerasForSubmitTest, ReadsTheTableAndLogsTheResult) {
    const TableCase cases[] = {
        {{{L"\x76F8\x673A", true}, {L"b", false}},
         kCamerasValid,
         "[INFO] The information of cameras to be submit is valid."},
        {{{L"neg", true}},
         kCameraFrameNegative,
         "[ERROR] The parameter frame to render is less than 0!"},
        {{{L"a%", true}},
         kCameraNamesBad,
         "[ERROR] The camera names to render contain invalid characters or empty!"},
        {{{L"b", false}}, kNoCameraChecked, "[ERROR] No camera checked!"},
        {{}, kNoCameraChecked, "[ERROR] No camera checked!"},
    };
    const TestDialog dialog;
    for (const TableCase& table : cases) {
        const TestProductFolder product;
        CameraMap cameras = {{L"neg", CameraAtFrame(-1)}};
        std::vector<std::wstring> badNames;
        dialog.setCameras(table.rows);
        EXPECT_EQ(ValidateCamerasForSubmit(dialog.control(IDC_CAMERAS), cameras, badNames),
                  table.code);
        EXPECT_NE(product.log(L"rud_ui").find(table.logLine), std::string::npos) << table.logLine;
        for (const TestCamera& row : table.rows)
            EXPECT_EQ(cameras.at(row.name).selected, row.isChecked);
    }
}

TEST(ValidateCamerasForSubmitTest, DoesNotTakeAMissingTableForAnEmptyOne) {
    const TestProductFolder product;
    CameraMap cameras = {{L"a", CameraInfo()}};
    cameras[L"a"].selected = true;
    std::vector<std::wstring> badNames;
    EXPECT_EQ(ValidateCamerasForSubmit(nullptr, cameras, badNames), kCamerasUnread);
    EXPECT_TRUE(cameras[L"a"].selected);
    EXPECT_NE(product.log(L"rud_ui").find("[ERROR] The camera table could not be read!"),
              std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
