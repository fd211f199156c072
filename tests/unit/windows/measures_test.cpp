#include "windows/measures.h"

#include "base/handles.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

TEST(DcSelection, PutsTheFormerObjectBack) {
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    const BrushHandle brush(::CreateSolidBrush(RGB(1, 2, 3)));
    const HGDIOBJ before = ::GetCurrentObject(dc.get(), OBJ_BRUSH);
    {
        const DcSelection selection(dc.get(), brush.get());
        EXPECT_TRUE(selection);
        EXPECT_EQ(::GetCurrentObject(dc.get(), OBJ_BRUSH), brush.get());
    }
    EXPECT_EQ(::GetCurrentObject(dc.get(), OBJ_BRUSH), before);
}

TEST(DcSelection, SaysThatNothingWasSelected) {
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    EXPECT_FALSE(DcSelection(dc.get(), nullptr));
}

TEST(WindowDc, LastsAsLongAsItsScope) {
    const WindowDc dc(nullptr);
    ASSERT_TRUE(dc);
    EXPECT_EQ(::GetObjectType(dc.get()), static_cast<DWORD>(OBJ_DC));
    EXPECT_FALSE(WindowDc(reinterpret_cast<HWND>(1)));
}

TEST(DotsPerInchOf, IsTheScreensAndTheUsualWithoutADevice) {
    const WindowDc screen(nullptr);
    EXPECT_EQ(DotsPerInch(nullptr), ::GetDeviceCaps(screen.get(), LOGPIXELSX));
    EXPECT_EQ(DotsPerInch(reinterpret_cast<HWND>(1)), 96);
}

bool operator==(const RECT& one, const RECT& other) {
    return ::EqualRect(&one, &other) != FALSE;
}

RECT PlaceOnScreen(HWND window) {
    RECT place = {};
    ::GetWindowRect(window, &place);
    return place;
}

TEST(WidestLine, IsThatOfTheWindowsOwnFont) {
    const TestWindow label(L"STATIC");
    const int narrow = WidestLine(label.get(), {L"mm"});
    EXPECT_GT(narrow, 0);
    EXPECT_EQ(WidestLine(label.get(), {L"i", L"mm", L""}), narrow);
    EXPECT_EQ(WidestLine(label.get(), {}), 0);
    const FontHandle large(
        ::CreateFontW(-60, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Segoe UI"));
    ::SendMessageW(label.get(), WM_SETFONT, reinterpret_cast<WPARAM>(large.get()), FALSE);
    EXPECT_GT(WidestLine(label.get(), {L"mm"}), narrow * 2);
    ::SendMessageW(label.get(), WM_SETFONT, 0, FALSE);
}

TEST(WidestLine, IsThatOfTheLineThatMeasuresMost) {
    const TestWindow label(L"STATIC");
    const std::wstring latin(20, L'W');
    const std::wstring chinese(30, L'\u5BA2');
    std::wstring pairs;
    for (int i = 0; i < 60; ++i)
        pairs += L"\U0001F4F7";
    const std::vector<std::vector<std::wstring>> lists = {
        {L"i", latin, L"mm"}, {latin, chinese}, {chinese, latin}, {latin, chinese, pairs, L"mm"}};
    for (const std::vector<std::wstring>& lines : lists) {
        int widest = 0;
        for (const std::wstring& line : lines)
            widest = std::max(widest, WidestLine(label.get(), {line}));
        EXPECT_EQ(WidestLine(label.get(), lines), widest) << lines.size();
    }
}

TEST(Places, AreThoseInTheParent) {
    const TestWindow label(L"STATIC");
    PlaceWindow(label.get(), {10, 20, 110, 50});
    EXPECT_TRUE(PlaceOf(label.get()) == (RECT{10, 20, 110, 50}));
    MoveWindowTo(label.get(), 30, 40);
    EXPECT_TRUE(PlaceOf(label.get()) == (RECT{30, 40, 130, 70}));
    ResizeWindow(label.get(), 60, 20);
    EXPECT_TRUE(PlaceOf(label.get()) == (RECT{30, 40, 90, 60}));
}

// A closed combo box reports the height without its list.
TEST(Places, KeepTheListOfAComboBoxThatOnlyMoves) {
    const TestWindow combo(L"COMBOBOX", CBS_DROPDOWNLIST);
    RECT before = {};
    ::SendMessageW(combo.get(), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&before));
    RECT place = PlaceOf(combo.get());
    ::OffsetRect(&place, 5, 7);
    PlaceWindow(combo.get(), place);
    RECT after = {};
    ::SendMessageW(combo.get(), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&after));
    EXPECT_TRUE(PlaceOf(combo.get()) == place);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

class Centring : public ::testing::Test {
protected:
    Centring() : work_(WorkAreaOf(owner_)) {}
    ~Centring() override {
        ::DestroyWindow(owned_);
        ::DestroyWindow(owner_);
    }
    static HWND createWindow(HWND owner) {
        return ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 100, 60, owner, nullptr,
                                 nullptr, nullptr);
    }

    HWND owner_ = createWindow(nullptr);
    HWND owned_ = createWindow(owner_);
    RECT work_;
};

TEST_F(Centring, PutsAWindowInTheMiddleOfItsOwner) {
    PlaceWindow(owner_, {work_.left + 100, work_.top + 100, work_.left + 400, work_.top + 300});
    CentreOverOwner(owned_);
    EXPECT_TRUE(PlaceOnScreen(owned_) ==
                (RECT{work_.left + 200, work_.top + 170, work_.left + 300, work_.top + 230}));
}

TEST_F(Centring, KeepsAWindowInTheWorkArea) {
    PlaceWindow(owner_, {work_.left - 500, work_.top - 500, work_.left + 20, work_.top + 20});
    CentreOverOwner(owned_);
    EXPECT_TRUE(PlaceOnScreen(owned_) ==
                (RECT{work_.left, work_.top, work_.left + 100, work_.top + 60}));
    MoveWindowTo(owner_, work_.right - 20, work_.bottom - 20);
    CentreOverOwner(owned_);
    EXPECT_TRUE(PlaceOnScreen(owned_) ==
                (RECT{work_.right - 100, work_.bottom - 60, work_.right, work_.bottom}));
}

TEST_F(Centring, LeavesAWindowWithoutAnOwnerWhereItIs) {
    MoveWindowTo(owner_, work_.left + 11, work_.top + 12);
    CentreOverOwner(owner_);
    EXPECT_EQ(PlaceOnScreen(owner_).left, work_.left + 11);
    EXPECT_EQ(PlaceOnScreen(owner_).top, work_.top + 12);
}

TEST_F(Centring, LeavesAWindowOfAMinimisedOwnerWhereItIs) {
    MoveWindowTo(owned_, work_.left + 11, work_.top + 12);
    ::SetWindowLongPtrW(owner_, GWL_STYLE, WS_POPUP | WS_MINIMIZE);
    ASSERT_TRUE(::IsIconic(owner_));
    CentreOverOwner(owned_);
    EXPECT_EQ(PlaceOnScreen(owned_).left, work_.left + 11);
    EXPECT_EQ(PlaceOnScreen(owned_).top, work_.top + 12);
}

TEST_F(Centring, PutsAWindowInTheMiddleOfTheWorkArea) {
    CentreInWorkArea(owner_);
    const RECT place = PlaceOnScreen(owner_);
    EXPECT_NEAR((place.left + place.right) / 2, (work_.left + work_.right) / 2, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, (work_.top + work_.bottom) / 2, 1);
}

} // namespace
} // namespace test
} // namespace orv
