#include "ui/camera_table/camera_table.h"

#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/test_window.h"
#include "tests/unit/ui/ui_log.h"
#include "ui/main_dialog/main_controls.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <vector>

namespace orv {
namespace test {
namespace {

CameraInfo Camera(const wchar_t* outputName, int width, int height, int frame,
                  bool spherical = false) {
    CameraInfo camera;
    camera.name = outputName;
    camera.width = width;
    camera.height = height;
    camera.startFrame = frame;
    camera.imageFormat = L"PNG";
    camera.isSpherical = spherical;
    return camera;
}

class CameraTableView : public ::testing::Test {
protected:
    CameraTableView() {
        cameras_[L"a:b"] = Camera(L"ab", 1920, 1080, 7);
        cameras_[L"Pano"] = Camera(L"Pano", 4096, 2048, -1, true);
        cameras_[L"\u6444\u5F71\u673A"] = Camera(L"\u6444\u5F71\u673A", 800, 600, 0);
        table_.attach(list_.get());
    }

    int rowCount() const {
        return static_cast<int>(::SendMessageW(list_.get(), LVM_GETITEMCOUNT, 0, 0));
    }
    std::wstring text(int row, int column) const {
        wchar_t buffer[300] = {};
        LVITEMW item = {};
        item.iSubItem = column;
        item.pszText = buffer;
        item.cchTextMax = 300;
        ::SendMessageW(list_.get(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&item));
        return buffer;
    }
    void tick(int row, bool ticked) const {
        LVITEMW item = {};
        item.state = INDEXTOSTATEIMAGEMASK(ticked ? 2U : 1U);
        item.stateMask = LVIS_STATEIMAGEMASK;
        ::SendMessageW(list_.get(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&item));
    }
    // "1" for each ticked row, "0" for every other.
    std::string ticks() const {
        std::string all;
        for (int row = 0; row < rowCount(); ++row)
            all += (::SendMessageW(list_.get(), LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                   LVIS_STATEIMAGEMASK) >>
                    12) == 2
                       ? '1'
                       : '0';
        return all;
    }

    UiLog log_;
    const TestWindow list_{WC_LISTVIEWW, LVS_REPORT};
    CameraMap cameras_;
    CameraTable table_;
};

TEST_F(CameraTableView, HasGridLinesCheckBoxesAndWholeRowSelection) {
    EXPECT_EQ(::SendMessageW(list_.get(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), 37);
}

TEST_F(CameraTableView, HasSevenHeadingsWithTheirTextsAndWidths) {
    ASSERT_TRUE(table_.createHead());

    struct Heading {
        unsigned text;
        int width;
    };
    const Heading expected[] = {{32, 200}, {34, 70}, {33, 70}, {35, 60},
                                {83, 60},  {36, 60}, {66, 200}};
    const HDC screen = ::GetDC(nullptr);
    const int dotsPerInch = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    int index = 0;
    for (const Heading& heading : expected) {
        wchar_t buffer[64] = {};
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = buffer;
        column.cchTextMax = 64;
        ASSERT_TRUE(::SendMessageW(list_.get(), LVM_GETCOLUMNW, static_cast<WPARAM>(index),
                                   reinterpret_cast<LPARAM>(&column)));
        EXPECT_EQ(buffer, ResourceText(heading.text)) << index;
        EXPECT_EQ(column.cx, ::MulDiv(heading.width, dotsPerInch, 96)) << index;
        ++index;
    }
    LVCOLUMNW none = {};
    none.mask = LVCF_WIDTH;
    EXPECT_FALSE(::SendMessageW(list_.get(), LVM_GETCOLUMNW, 7, reinterpret_cast<LPARAM>(&none)));
}

TEST_F(CameraTableView, ReportsAMissingListView) {
    CameraTable table;
    table.attach(nullptr);
    EXPECT_FALSE(table.createHead());
    EXPECT_EQ(log_.lastLine(), "[ERROR] No handle result in creating camera table head failed.");
    table.create(cameras_);
    EXPECT_EQ(log_.lastLine(), "[WARN] No cameras or Create camera table failed!");
}

TEST_F(CameraTableView, HasARowForEachCameraInTheirOrder) {
    table_.createHead();
    table_.create(cameras_);

    const std::vector<std::vector<std::wstring>> expected = {
        {L"Pano", L"4096", L"2048", L"-1", ResourceText(IDS_CAMERA_SPHERICAL), L"PNG", L"Pano"},
        {L"a:b", L"1920", L"1080", L"7", ResourceText(IDS_CAMERA_NORMAL), L"PNG", L"ab"},
        {L"\u6444\u5F71\u673A", L"800", L"600", L"0", ResourceText(IDS_CAMERA_NORMAL), L"PNG",
         L"\u6444\u5F71\u673A"},
    };
    ASSERT_EQ(rowCount(), 3);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 7; ++column)
            EXPECT_EQ(text(row, column),
                      expected[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
                << row << ", " << column;
    }
    EXPECT_EQ(ticks(), "000");
    EXPECT_EQ(log_.lastLine(), "[INFO] Create camera table successfully.");
}

TEST_F(CameraTableView, WarnsOfATableWithoutCameras) {
    table_.createHead();
    table_.create(CameraMap());
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(log_.lastLine(), "[WARN] No cameras or Create camera table failed!");
    table_.update(CameraMap());
    EXPECT_EQ(log_.lastLine(), "[WARN] No cameras or Create camera table failed!");
}

TEST_F(CameraTableView, UpdateShowsTheRecordsAsTheyAreNow) {
    table_.createHead();
    table_.create(cameras_);
    cameras_.erase(L"Pano");
    cameras_[L"a:b"].width = 640;
    cameras_[L"a:b"].selected = true;
    table_.update(cameras_);

    ASSERT_EQ(rowCount(), 2);
    EXPECT_EQ(text(0, 1), L"640");
    EXPECT_EQ(ticks(), "10");
    EXPECT_EQ(log_.lastLine(), "[INFO] Update camera table successfully.");
}

TEST_F(CameraTableView, SelectAllTicksEveryRowAndRecord) {
    table_.createHead();
    table_.create(cameras_);
    tick(1, true);
    table_.selectAll(cameras_);

    EXPECT_EQ(ticks(), "111");
    for (const auto& camera : cameras_)
        EXPECT_TRUE(camera.second.selected);
}

TEST_F(CameraTableView, InvertTurnsWhatTheUserTickedAround) {
    table_.createHead();
    table_.create(cameras_);
    tick(1, true); // by the user: the record does not know of it yet
    table_.invertSelection(cameras_);

    EXPECT_EQ(ticks(), "101");
    EXPECT_TRUE(cameras_[L"Pano"].selected);
    EXPECT_FALSE(cameras_[L"a:b"].selected);
    table_.invertSelection(cameras_);
    EXPECT_EQ(ticks(), "010");
}

TEST_F(CameraTableView, SelectAllAndInvertDoNothingWithoutCameras) {
    CameraMap none;
    table_.selectAll(none);
    table_.invertSelection(none);
    EXPECT_EQ(rowCount(), 0);
    EXPECT_TRUE(none.empty());
}

TEST_F(CameraTableView, FillsTwoThousandRows) {
    CameraMap many;
    for (int number = 0; number < 2000; ++number)
        many[L"Camera " + std::to_wstring(number)] = Camera(L"c", 1, 1, 1);
    table_.createHead();
    table_.create(many);
    EXPECT_EQ(rowCount(), 2000);
    table_.selectAll(many);
    EXPECT_EQ(ticks(), std::string(2000, '1'));
}

class SceneNameEdit : public ::testing::Test {
protected:
    std::wstring text() const {
        wchar_t buffer[64] = {};
        ::GetWindowTextW(edit_.get(), buffer, 64);
        return buffer;
    }

    UiLog log_;
    const TestWindow edit_{L"EDIT"};
};

TEST_F(SceneNameEdit, ShowsTheFileNameWithoutItsExtension) {
    SetSceneName(edit_.get(), "\xE5\xAE\xA2\xE5\x8E\x85.v2.MAX"); // 客厅
    EXPECT_EQ(text(), L"\u5BA2\u5385.v2");
    EXPECT_EQ(log_.lastLine(), "[INFO] Set scene name successfully.");
}

TEST_F(SceneNameEdit, WarnsOfASceneWithoutAName) {
    SetSceneName(edit_.get(), "");
    EXPECT_EQ(text(), L"");
    EXPECT_EQ(log_.lastLine(), "[WARN] The scene name is empty!");
}

TEST_F(SceneNameEdit, IsReadWithTheExtension) {
    ::SetWindowTextW(edit_.get(), L"\u5BA2\u5385");
    EXPECT_EQ(GetSceneName(edit_.get()), L"\u5BA2\u5385.max");
    EXPECT_EQ(log_.lastLine(),
              "[INFO] Get scene name text down, it is :\xE5\xAE\xA2\xE5\x8E\x85.max");
}

TEST_F(SceneNameEdit, IsReadAsTheExtensionAloneWhenItIsEmpty) {
    EXPECT_EQ(GetSceneName(edit_.get()), L".max");
}

} // namespace
} // namespace test
} // namespace orv
