// The host's spinners, edits and tooltips as a user meets them in a dialog: the mouse, the
// keyboard, and the messages to the dialog. They are set up through the plug-in's own door to the
// host.
#include "host/host_api.h"
#include "tests/system/host/host_under_test.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr UINT kSpinnerChange = WM_USER + 600;
constexpr UINT kSpinnerDown = WM_USER + 601;
constexpr UINT kSpinnerUp = WM_USER + 602;
constexpr UINT kEditEnter = WM_USER + 685;
constexpr int kSpinner = 1041;
constexpr int kEdit = 1040;
constexpr int kOther = 7;

struct Told {
    UINT message;
    int control;
    int flag;
};

std::vector<Told> told;

LPARAM MouseAt(int y) {
    return MAKELPARAM(5, static_cast<WORD>(y));
}

LRESULT CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= kSpinnerChange && message <= kEditEnter)
        told.push_back({message, LOWORD(wParam), HIWORD(wParam)});
    return DefWindowProcW(window, message, wParam, lParam);
}

class Controls : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host->start());
        orv_host_open();
        dialog = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 100, 300, 100,
                                 host->window(), nullptr, nullptr, nullptr);
        SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DialogProcedure));
        spinner = child(L"SpinnerControl", kSpinner, 100);
        edit = child(L"CustEdit", kEdit, 0);
        other = child(L"EDIT", kOther, 200);
        told.clear();
    }
    void TearDown() override {
        DestroyWindow(dialog);
        orv_host_close();
    }

    HWND child(const wchar_t* kind, int id, int x) const {
        return CreateWindowExW(0, kind, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, x, 0, 90, 20,
                               dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                               nullptr);
    }

    void setUpFloat(float minimum, float maximum, float value, float step) const {
        ASSERT_NE(
            orv_host_setup_float_spinner(dialog, kSpinner, kEdit, minimum, maximum, value, step),
            0);
    }
    void setUpInt(int minimum, int maximum, int value) const {
        ASSERT_NE(orv_host_setup_int_spinner(dialog, kSpinner, kEdit, minimum, maximum, value), 0);
    }
    float floatValue() const { return orv_host_spinner_float(dialog, kSpinner); }
    int intValue() const { return orv_host_spinner_int(dialog, kSpinner); }

    std::wstring editText() const {
        wchar_t text[64] = {};
        GetWindowTextW(edit, text, 64);
        return text;
    }

    // A click on the upper or lower arrow.
    void click(bool upper) const {
        const LPARAM point = MouseAt(upper ? 3 : 16);
        SendMessageW(spinner, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(spinner, WM_LBUTTONUP, 0, point);
    }

    void type(const wchar_t* text) const {
        SetFocus(edit);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        for (; *text != 0; ++text)
            SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(*text), 0);
    }

    static int countOf(UINT message) {
        int count = 0;
        for (const Told& each : told)
            count += each.message == message ? 1 : 0;
        return count;
    }

    HostUnderTest host{standin::HostOptions()};
    HWND dialog = nullptr;
    HWND spinner = nullptr;
    HWND edit = nullptr;
    HWND other = nullptr;
};

TEST_F(Controls, ASpinnerNeedsItsTwoControls) {
    EXPECT_EQ(orv_host_setup_int_spinner(dialog, kSpinner, 99, 0, 9, 1), 0);
    EXPECT_EQ(orv_host_setup_int_spinner(dialog, 99, kEdit, 0, 9, 1), 0);
    EXPECT_EQ(orv_host_setup_float_spinner(dialog, kOther, kEdit, 0, 9, 1, 1), 0);
}

TEST_F(Controls, SettingUpShowsTheValueAndTellsNobody) {
    setUpFloat(0.001F, 2048.0F, 1.5F, 0.1F);
    EXPECT_EQ(editText(), L"1.5");
    EXPECT_FLOAT_EQ(floatValue(), 1.5F);
    orv_host_set_spinner_float(dialog, kSpinner, 16.0F / 9.0F);
    EXPECT_EQ(editText(), L"1.778");
    EXPECT_TRUE(told.empty());
}

TEST_F(Controls, TheArrowsStepAndTellTheDialog) {
    setUpFloat(0.0F, 1.0F, 0.5F, 0.25F);
    click(true);
    EXPECT_FLOAT_EQ(floatValue(), 0.75F);
    EXPECT_EQ(editText(), L"0.75");
    click(false);
    click(false);
    EXPECT_FLOAT_EQ(floatValue(), 0.25F);
    EXPECT_EQ(countOf(kSpinnerChange), 3);
    EXPECT_EQ(countOf(kSpinnerDown), 3);
    EXPECT_EQ(countOf(kSpinnerUp), 3);
    EXPECT_EQ(told[0].control, kSpinner);
}

TEST_F(Controls, WholeNumbersStepByOne) {
    setUpInt(-2, 2, 1);
    click(true);
    click(true);
    click(true);
    EXPECT_EQ(intValue(), 2);
    EXPECT_EQ(editText(), L"2");
}

TEST_F(Controls, DraggingChangesTheValueAsTheMouseMoves) {
    setUpInt(0, 100, 50);
    SendMessageW(spinner, WM_LBUTTONDOWN, MK_LBUTTON, MouseAt(3));
    const int pressed = intValue();
    SendMessageW(spinner, WM_MOUSEMOVE, MK_LBUTTON, MouseAt(-17));
    const int above = intValue();
    EXPECT_GT(above, pressed);
    EXPECT_NE(told.back().flag, 0) << "the change says that the mouse drags";
    SendMessageW(spinner, WM_MOUSEMOVE, MK_LBUTTON, MouseAt(23));
    EXPECT_LT(intValue(), pressed);
    SendMessageW(spinner, WM_LBUTTONUP, 0, MouseAt(23));
    const int released = intValue();
    SendMessageW(spinner, WM_MOUSEMOVE, 0, MouseAt(90));
    EXPECT_EQ(intValue(), released);
}

TEST_F(Controls, TheRightButtonBringsTheFirstValueBack) {
    setUpInt(0, 100, 50);
    click(true);
    SendMessageW(spinner, WM_RBUTTONDOWN, MK_RBUTTON, MouseAt(3));
    EXPECT_EQ(intValue(), 50);
}

struct TypedText {
    const wchar_t* typed;
    float value;
    const wchar_t* shown;
};

class TypedTexts : public Controls, public ::testing::WithParamInterface<TypedText> {};

TEST_P(TypedTexts, BecomeTheValueWhenTheEditIsLeft) {
    setUpFloat(0.001F, 2048.0F, 1.5F, 0.1F);
    type(GetParam().typed);
    SetFocus(other);
    EXPECT_FLOAT_EQ(floatValue(), GetParam().value);
    EXPECT_EQ(editText(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TypedTexts,
    ::testing::Values(TypedText{L"2.5", 2.5F, L"2.5"}, TypedText{L"2", 2.0F, L"2.0"},
                      TypedText{L"99999", 2048.0F, L"2048.0"}, TypedText{L"-4", 0.001F, L"0.001"},
                      TypedText{L"wide", 1.5F, L"1.5"}, TypedText{L"", 1.5F, L"1.5"},
                      TypedText{L"nan", 1.5F, L"1.5"}));

TEST_F(Controls, EnterTakesTheTextAndTellsTheDialog) {
    setUpInt(0, 100, 50);
    type(L"77");
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(intValue(), 77);
    EXPECT_EQ(countOf(kSpinnerChange), 1);
    EXPECT_EQ(countOf(kEditEnter), 1);
}

TEST_F(Controls, LeavingAnUnchangedEditTellsNobody) {
    setUpInt(0, 100, 50);
    SetFocus(edit);
    SetFocus(other);
    EXPECT_TRUE(told.empty());
}

TEST_F(Controls, TooltipsComeAndGoWithTheirOwner) {
    const auto countTips = [] {
        int count = 0;
        for (HWND tip = nullptr;
             (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
            ++count;
        }
        return count;
    };
    const int before = countTips();
    void* const tips = orv_host_tooltips_create();
    orv_host_tooltips_set(tips, other, L"\u8BF4\u660E");
    EXPECT_GT(countTips(), before);
    orv_host_tooltips_destroy(tips);
    EXPECT_EQ(countTips(), before);
}

} // namespace
