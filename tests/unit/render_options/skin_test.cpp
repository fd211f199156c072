// The padlocks: loading them, drawing them, and what is left behind.
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/text.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/product_folder.h"
#include "tests/support/wait_until.h"
#include "tests/system/host/process_counts.h"
#include "ui/render_options/render_options.h"
#include "ui/skin/skin.h"
#include "windows/measures.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace orv {
namespace test {
namespace {

constexpr COLORREF kBackground = RGB(255, 0, 255);
constexpr COLORREF kOpenColour = RGB(0x1F, 0x74, 0xC4);
constexpr COLORREF kClosedColour = RGB(0x5A, 0x64, 0x70);

// A bitmap of 32 x 32 pixels to draw on.
class Canvas {
public:
    Canvas() {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = 32;
        info.bmiHeader.biHeight = -32;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bytes = nullptr;
        bitmap_.reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bytes, nullptr, 0));
        dc_.reset(::CreateCompatibleDC(nullptr));
        former_ = ::SelectObject(dc_.get(), bitmap_.get());
        const BrushHandle brush(::CreateSolidBrush(kBackground));
        const RECT whole = {0, 0, 32, 32};
        ::FillRect(dc_.get(), &whole, brush.get());
    }
    ~Canvas() { ::SelectObject(dc_.get(), former_); }

    HDC dc() const { return dc_.get(); }
    COLORREF at(int x, int y) const { return ::GetPixel(dc_.get(), x, y); }

private:
    BitmapHandle bitmap_;
    MemoryDc dc_;
    HGDIOBJ former_ = nullptr;
};

TEST(SkinImage, IsSixteenPixelsSquareWithAnAlphaChannel) {
    const GdiplusSession gdiplus;
    ASSERT_TRUE(gdiplus.started());
    for (const int id : {IDP_PADLOCK_OPEN, IDP_PADLOCK_CLOSED}) {
        SkinImage image;
        ASSERT_TRUE(image.load(orv_resource_module(), id, L"PNG")) << id;
        EXPECT_EQ(image.width(), 16);
        EXPECT_EQ(image.height(), 16);
        EXPECT_EQ(image.bitsPerPixel(), 32);
        EXPECT_EQ(image.rowPitch(), -64);
        EXPECT_EQ(image.transparentColour(), -1);
        EXPECT_EQ(image.firstRow()[3], 0); // the corner is clear
        const BYTE* const body = image.firstRow() + 12 * image.rowPitch() + 4 * 4;
        EXPECT_EQ(body[3], 255);
    }
}

TEST(SkinImage, IsEmptyWithoutItsResourceAndAfterADamagedOne) {
    const GdiplusSession gdiplus;
    SkinImage image;
    EXPECT_FALSE(image.load(orv_resource_module(), 111, L"PNG"));
    EXPECT_FALSE(image);
    ASSERT_TRUE(image.load(orv_resource_module(), IDP_PADLOCK_OPEN, L"PNG"));
    EXPECT_TRUE(image);
    // The bytes of a dialog template are not an image.
    EXPECT_FALSE(image.load(orv_resource_module(), IDD_MAIN, MAKEINTRESOURCEW(5)));
    EXPECT_FALSE(image);
    EXPECT_EQ(image.firstRow(), nullptr);
    EXPECT_EQ(image.width(), 0);

    const Canvas canvas;
    image.draw(canvas.dc(), {0, 0, 16, 16});
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(canvas.at(x, y), kBackground) << x << ", " << y;
    }
}

TEST(SkinImage, IsDrawnWithItsTransparency) {
    const GdiplusSession gdiplus;
    SkinImage image;
    ASSERT_TRUE(image.load(orv_resource_module(), IDP_PADLOCK_CLOSED, L"PNG"));
    const Canvas canvas;
    image.draw(canvas.dc(), {0, 0, 16, 16});
    EXPECT_EQ(canvas.at(4, 12), kClosedColour);
    EXPECT_EQ(canvas.at(0, 0), kBackground);
    EXPECT_EQ(canvas.at(20, 20), kBackground);
}

TEST(SkinImage, StaysSharpAtTwiceItsSize) {
    const GdiplusSession gdiplus;
    SkinImage image;
    ASSERT_TRUE(image.load(orv_resource_module(), IDP_PADLOCK_OPEN, L"PNG"));
    const Canvas once;
    const Canvas twice;
    image.draw(once.dc(), {0, 0, 16, 16});
    image.draw(twice.dc(), {0, 0, 32, 32});
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(twice.at(x, y), once.at(x / 2, y / 2)) << x << ", " << y;
    }
}

TEST(StateImage, IsTheOpenPadlockWhereTheControlIsOn) {
    const GdiplusSession gdiplus;
    const Canvas canvas;
    DrawStateImage(canvas.dc(), {0, 0, 16, 16}, true);
    EXPECT_EQ(canvas.at(4, 12), kOpenColour);
    EXPECT_EQ(canvas.at(0, 0), ::GetSysColor(COLOR_3DFACE)); // nothing old shines through
    DrawStateImage(canvas.dc(), {0, 0, 16, 16}, false);
    EXPECT_EQ(canvas.at(4, 12), kClosedColour);
}

TEST(StateImage, LeavesTheControlUnpaintedWithoutItsResource) {
    const GdiplusSession gdiplus;
    const Canvas canvas;
    const HINSTANCE product = orv_resource_module();
    orv_set_resource_module(::GetModuleHandleW(L"kernel32.dll")); // which has no padlocks
    DrawStateImage(canvas.dc(), {0, 0, 16, 16}, true);
    orv_set_resource_module(product);
    EXPECT_EQ(canvas.at(4, 12), kBackground);
}

TEST(StateImage, HasAWholeMultipleOfItsOwnSize) {
    const struct {
        int dotsPerInch;
        int size;
    } cases[] = {{72, 16}, {96, 16}, {120, 16}, {144, 32}, {168, 32}, {192, 32}, {288, 48}};
    for (const auto& one : cases)
        EXPECT_EQ(StateImageSize(one.dotsPerInch), one.size) << one.dotsPerInch;
}

// Opens the render options for one camera or for several, does `look` on another thread, closes
// them.
void OpenAndClose(PluginData& data, CameraEditing editing, const std::function<void(HWND)>& look) {
    std::thread user([&look] {
        HWND dialog = nullptr;
        if (!WaitUntil(
                [&dialog] { return (dialog = FindDialogWith(IDC_OPTIONS_WIDTH)) != nullptr; }))
            return;
        look(dialog);
        ::PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    const INT_PTR result = RunRenderOptions(nullptr, data, {L"A", L"B"}, editing);
    user.join();
    ASSERT_EQ(result, 0);
}

COLORREF ColourOf(HWND control) {
    ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const WindowDc dc(control);
    return ::GetPixel(dc.get(), 4, 12);
}

TEST(Padlocks, ShowWhetherTheirFieldsAreLocked) {
    const TestProductFolder folder;
    FakeDoor host;
    PluginData& data = PluginData::instance();
    OpenAndClose(data, CameraEditing::Single, [](HWND dialog) {
        EXPECT_EQ(ColourOf(::GetDlgItem(dialog, IDC_OPTIONS_LOCK_SIZE)), kOpenColour);
        Press(dialog, IDC_OPTIONS_LOCK_SIZE);
        EXPECT_EQ(ColourOf(::GetDlgItem(dialog, IDC_OPTIONS_UNLOCK_SIZE)), kClosedColour);
        // The frame stays locked, and its padlock says so.
        Press(dialog, IDC_OPTIONS_LOCK_FRAME);
        Press(dialog, IDC_OPTIONS_UNLOCK_FRAME);
        EXPECT_EQ(ColourOf(::GetDlgItem(dialog, IDC_OPTIONS_LOCK_FRAME)), kClosedColour);
    });
    EXPECT_TRUE(data.imageSlots.empty());
}

TEST(Padlocks, ArePaintedByTheDialog) {
    const TestProductFolder folder;
    FakeDoor host;
    PluginData& data = PluginData::instance();
    OpenAndClose(data, CameraEditing::Several, [](HWND dialog) {
        ::RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        for (const int id : {IDC_OPTIONS_UNLOCK_SIZE, IDC_OPTIONS_UNLOCK_FRAME,
                             IDC_OPTIONS_UNLOCK_FORMAT, IDC_OPTIONS_UNLOCK_VIEW}) {
            const WindowDc dc(::GetDlgItem(dialog, id));
            EXPECT_EQ(::GetPixel(dc.get(), 4, 12), kClosedColour) << id;
        }
    });
}

TEST(Padlocks, LeaveNothingBehindAfterAHundredOpenings) {
    const TestProductFolder folder;
    FakeDoor host;
    PluginData& data = PluginData::instance();
    const auto open = [&data] {
        OpenAndClose(data, CameraEditing::Single, [](HWND dialog) {
            ::RedrawWindow(dialog, nullptr, nullptr,
                           RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        });
    };
    for (int warmUp = 0; warmUp < 5; ++warmUp)
        ASSERT_NO_FATAL_FAILURE(open());
    const ProcessCounts before = CountProcess();
    for (int opening = 0; opening < 100; ++opening)
        ASSERT_NO_FATAL_FAILURE(open());
    const ProcessCounts after = CountProcess();
    // The system keeps a few objects; a leak of one for each opening would be a hundred.
    EXPECT_LE(after.gdiObjects, before.gdiObjects + 10) << "before: " << before;
    EXPECT_LE(after.handles, before.handles + 10) << "after: " << after;
    EXPECT_LE(after.threads, before.threads + 1);
}

} // namespace
} // namespace test
} // namespace orv
