// The host's spinners and tooltips through the door, in real windows.
#include "tests/system/door/open_door.h"

#include "host/host.h"
#include "standin/maxutil.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

constexpr int kSpinner = 11;
constexpr int kEdit = 12;
constexpr int kButton = 13;

// A window with a spinner, its edit and a button, as the product's dialogs have them.
class Controls : public ::testing::Test {
protected:
    Controls() {
        child(L"SpinnerControl", kSpinner, 60);
        child(L"CustEdit", kEdit, 0);
        child(L"BUTTON", kButton, 90);
    }
    ~Controls() override { ::DestroyWindow(dialog); }

    void child(const wchar_t* kind, int id, int left) {
        ::CreateWindowExW(0, kind, L"", WS_CHILD | WS_VISIBLE, left, 0, 20, 20, dialog,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }

    std::wstring edit() {
        wchar_t text[64] = {};
        ::GetDlgItemTextW(dialog, kEdit, text, 64);
        return text;
    }

    // What a user does: writes into the edit and leaves it.
    void type(const wchar_t* text) {
        const HWND control = ::GetDlgItem(dialog, kEdit);
        ::SetFocus(control);
        ::SetWindowTextW(control, text);
        ::SetFocus(::GetDlgItem(dialog, kButton));
    }

    void click(int y) {
        const HWND control = ::GetDlgItem(dialog, kSpinner);
        ::SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, y));
        ::SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(5, y));
    }

    OpenDoor door;
    HWND dialog = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 60,
                                    nullptr, nullptr, nullptr, nullptr);
};

TEST_F(Controls, FractionsAreShownAndReadBack) {
    ASSERT_NE(orv_host_setup_float_spinner(dialog, kSpinner, kEdit, 0.0F, 10.0F, 2.5F, 0.1F), 0);
    EXPECT_EQ(edit(), L"2.5");
    EXPECT_FLOAT_EQ(orv_host_spinner_float(dialog, kSpinner), 2.5F);
    orv_host_set_spinner_float(dialog, kSpinner, 0.125F);
    EXPECT_EQ(edit(), L"0.125");
    orv_host_set_spinner_float(dialog, kSpinner, 99.0F);
    EXPECT_EQ(edit(), L"10.0");
}

TEST_F(Controls, WholeNumbersAreShownAndReadBack) {
    ASSERT_NE(orv_host_setup_int_spinner(dialog, kSpinner, kEdit, 1, 99999, 1920), 0);
    EXPECT_EQ(edit(), L"1920");
    orv_host_set_spinner_int(dialog, kSpinner, 0);
    EXPECT_EQ(orv_host_spinner_int(dialog, kSpinner), 1);
}

struct Typed {
    const wchar_t* text;
    float value;
};

TEST_F(Controls, WhatTheUserTypesIsTakenWithinTheLimits) {
    ASSERT_NE(orv_host_setup_float_spinner(dialog, kSpinner, kEdit, -1.0F, 10.0F, 2.0F, 0.5F), 0);
    for (const Typed& typed :
         {Typed{L"3.5", 3.5F}, Typed{L"1e9", 10.0F}, Typed{L"-4", -1.0F}, Typed{L"abc", -1.0F},
          Typed{L"", -1.0F}, Typed{L"7 cm", 7.0F}, Typed{L"nan", 7.0F}}) {
        SCOPED_TRACE(std::string(typed.text, typed.text + std::wcslen(typed.text)));
        type(typed.text);
        EXPECT_FLOAT_EQ(orv_host_spinner_float(dialog, kSpinner), typed.value);
    }
}

TEST_F(Controls, ArrowsStepUpAndDown) {
    ASSERT_NE(orv_host_setup_float_spinner(dialog, kSpinner, kEdit, 0.0F, 10.0F, 2.0F, 0.5F), 0);
    click(3);
    EXPECT_EQ(edit(), L"2.5");
    click(17);
    click(17);
    EXPECT_EQ(edit(), L"1.5");
}

TEST_F(Controls, OtherControlsAreNoSpinners) {
    EXPECT_EQ(orv_host_setup_float_spinner(dialog, kButton, kEdit, 0.0F, 1.0F, 0.5F, 0.1F), 0);
    EXPECT_EQ(orv_host_setup_int_spinner(dialog, kSpinner, 999, 0, 1, 0), 0) << "no such edit";
    EXPECT_EQ(orv_host_setup_int_spinner(nullptr, kSpinner, kEdit, 0, 1, 0), 0);
    EXPECT_FLOAT_EQ(orv_host_spinner_float(dialog, kButton), 0.0F);
    EXPECT_EQ(orv_host_spinner_int(dialog, 999), 0);
    orv_host_set_spinner_float(dialog, kButton, 1.0F);
}

TEST_F(Controls, SpinnersAreGivenBackToTheHost) {
    orv_host_setup_float_spinner(dialog, kSpinner, kEdit, 0.0F, 1.0F, 0.5F, 0.1F);
    orv_host_setup_int_spinner(dialog, kSpinner, kEdit, 0, 1, 0);
    orv_host_set_spinner_float(dialog, kSpinner, 1.0F);
    orv_host_spinner_float(dialog, kSpinner);
    orv_host_spinner_int(dialog, kSpinner);
    orv_host_set_spinner_int(dialog, kSpinner, 1);
    EXPECT_EQ(standin_spinner_interface_count(), 0);
}

HWND TooltipOf(HWND owner) {
    HWND found = nullptr;
    while ((found = ::FindWindowExW(nullptr, found, TOOLTIPS_CLASSW, nullptr)) != nullptr)
        if (::GetWindow(found, GW_OWNER) == owner)
            return found;
    return nullptr;
}

TEST_F(Controls, TooltipsLiveAsLongAsTheirOwner) {
    const long long before = standin_heap_block_count();
    {
        host::ToolTips tips;
        tips.set(::GetDlgItem(dialog, kButton), L"\u8BB0\u4F4F these settings");
        tips.set(nullptr, L"nobody's");
        const HWND tip = TooltipOf(dialog);
        ASSERT_NE(tip, nullptr);
        EXPECT_EQ(::SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
        tips.set(::GetDlgItem(dialog, kButton), L"Another text for the same control");
        EXPECT_EQ(::SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
    }
    EXPECT_EQ(TooltipOf(dialog), nullptr);
    EXPECT_EQ(standin_heap_block_count(), before);
}

} // namespace
} // namespace test
} // namespace orv
