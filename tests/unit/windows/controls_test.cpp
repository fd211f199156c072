#include "windows/controls.h"

#include "tests/support/test_window.h"
#include "windows/measures.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace orv {
namespace test {
namespace {

TEST(ControlTest, ReadsItsWholeText) {
    const TestWindow edit(L"EDIT", ES_MULTILINE);
    const std::wstring longText(5000, L'\u5BA2');
    for (const std::wstring& text : {std::wstring(), std::wstring(L"a"), longText}) {
        Control(edit.get()).setText(text);
        EXPECT_EQ(Control(edit.get()).text(), text);
    }
}

TEST(ControlTest, IsFoundByItsNumber) {
    const TestWindow edit(L"EDIT");
    const HWND dialog = ::GetParent(edit.get());
    EXPECT_EQ(Control(dialog, TestWindow::kControlId).window(), edit.get());
    const Control missing(dialog, TestWindow::kControlId + 1);
    EXPECT_FALSE(missing);
    missing.setText(L"nobody reads it");
    EXPECT_EQ(missing.text(), L"");
}

TEST(ControlTest, IsEnabledAndShown) {
    const TestWindow edit(L"EDIT");
    const Control control(edit.get());
    for (const bool on : {false, true}) {
        control.enable(on);
        EXPECT_EQ(control.isEnabled(), on);
        control.show(on);
        EXPECT_EQ((::GetWindowLongPtrW(edit.get(), GWL_STYLE) & WS_VISIBLE) != 0, on);
    }
}

// An edit forgets that it was typed into when its text is set.
TEST(ControlTest, UpdatesItsTextOnlyWhenItDiffers) {
    const TestWindow edit(L"EDIT");
    Control(edit.get()).setText(L"one");
    ::SendMessageW(edit.get(), EM_SETMODIFY, TRUE, 0);
    Control(edit.get()).updateText(L"one");
    EXPECT_TRUE(::SendMessageW(edit.get(), EM_GETMODIFY, 0, 0));
    Control(edit.get()).updateText(L"two");
    EXPECT_FALSE(::SendMessageW(edit.get(), EM_GETMODIFY, 0, 0));
    EXPECT_EQ(Control(edit.get()).text(), L"two");
}

TEST(CheckBoxTest, IsCheckedInItsSecondStateOnly) {
    const TestWindow button(L"BUTTON", BS_3STATE);
    const CheckBox box(button.get());
    EXPECT_FALSE(box.isChecked());
    box.check(true);
    EXPECT_TRUE(box.isChecked());
    ::SendMessageW(button.get(), BM_SETCHECK, BST_INDETERMINATE, 0);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(box.state(), static_cast<UINT>(BST_INDETERMINATE));
    box.check(false);
    EXPECT_EQ(box.state(), static_cast<UINT>(BST_UNCHECKED));
}

TEST(EditTest, PutsTheCaretBehindANewText) {
    const TestWindow edit(L"EDIT");
    Edit(edit.get()).setTextAndCaret(L"12.5");
    DWORD start = 0;
    DWORD end = 0;
    ::SendMessageW(edit.get(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                   reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 4U);
    EXPECT_EQ(end, 4U);
}

TEST(EditTest, LimitsWhatIsTyped) {
    const TestWindow edit(L"EDIT");
    Edit(edit.get()).limitTyping(2);
    for (const wchar_t digit : {L'1', L'2', L'3'})
        ::SendMessageW(edit.get(), WM_CHAR, digit, 1);
    EXPECT_EQ(Edit(edit.get()).text(), L"12");
}

TEST(ComboBoxTest, HoldsItsEntriesAndOneSelection) {
    const TestWindow window(L"COMBOBOX", CBS_DROPDOWNLIST);
    const ComboBox combo(window.get());
    EXPECT_EQ(combo.selection(), -1);
    combo.add(L"100%");
    combo.add(L"50%");
    combo.select(1);
    EXPECT_EQ(combo.selection(), 1);
    EXPECT_EQ(combo.text(), L"50%");
    combo.clear();
    EXPECT_EQ(::SendMessageW(window.get(), CB_GETCOUNT, 0, 0), 0);
}

TEST(ListBoxTest, ReplacesItsLinesAndScrollsToTheEndOfTheWidest) {
    const TestWindow window(L"LISTBOX", WS_HSCROLL);
    const ListBox list(window.get());
    const std::wstring wide(200, L'm');
    list.setLines({L"i", wide});
    const LRESULT extent = ::SendMessageW(window.get(), LB_GETHORIZONTALEXTENT, 0, 0);
    EXPECT_GT(extent, WidestLine(window.get(), {wide}))
        << "a list box draws a little from its edge";
    list.setLines({L"i"});
    EXPECT_EQ(::SendMessageW(window.get(), LB_GETCOUNT, 0, 0), 1);
    EXPECT_LT(::SendMessageW(window.get(), LB_GETHORIZONTALEXTENT, 0, 0), extent);
    list.setLines({});
    EXPECT_EQ(::SendMessageW(window.get(), LB_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(::SendMessageW(window.get(), LB_GETHORIZONTALEXTENT, 0, 0), 0);
}

WPARAM marquee = FALSE;

LRESULT CALLBACK NoteMarquee(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == PBM_SETMARQUEE)
        marquee = lParam > 0 ? wParam : FALSE;
    return ::DefWindowProcW(window, message, wParam, lParam);
}

TEST(ProgressBarTest, StartsItsMarquee) {
    const TestWindow window(PROGRESS_CLASSW);
    ::SetWindowLongPtrW(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NoteMarquee));
    marquee = FALSE;
    ProgressBar(window.get()).startMarquee();
    EXPECT_EQ(marquee, static_cast<WPARAM>(TRUE));
}

TEST(ArrowsTest, CountInTheirRange) {
    const TestWindow window(UPDOWN_CLASSW);
    const Arrows arrows(window.get());
    arrows.setRange(2, 1000);
    for (const int position : {16, 1000}) {
        ::SendMessageW(window.get(), UDM_SETPOS32, 0, position);
        EXPECT_EQ(::SendMessageW(window.get(), UDM_GETPOS32, 0, 0), position);
    }
    ::SendMessageW(window.get(), UDM_SETPOS32, 0, 1);
    EXPECT_EQ(::SendMessageW(window.get(), UDM_GETPOS32, 0, 0), 2);
}

class CheckListTest : public ::testing::Test {
protected:
    CheckListTest() {
        ::SendMessageW(window_.get(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES,
                       LVS_EX_CHECKBOXES);
        LVCOLUMNW column = {};
        ::SendMessageW(window_.get(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    }
    void addRow(int row, std::wstring name) const {
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = &name[0];
        ::SendMessageW(window_.get(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }

    const TestWindow window_{WC_LISTVIEWW, LVS_REPORT};
    const CheckList list_{window_.get()};
};

TEST_F(CheckListTest, HasNamesAndTicks) {
    addRow(0, L"Camera");
    addRow(1, std::wstring(200, L'\u6444'));
    ASSERT_EQ(list_.rowCount(), 2);
    EXPECT_EQ(list_.name(0), L"Camera");
    EXPECT_EQ(list_.name(1), std::wstring(200, L'\u6444'));
    addRow(2, std::wstring(500, L'\u6444'));
    EXPECT_EQ(list_.name(2), std::wstring(500, L'\u6444'));
    list_.setTick(1, true);
    EXPECT_EQ(list_.tick(0), CheckList::Tick::Unticked);
    EXPECT_EQ(list_.tick(1), CheckList::Tick::Ticked);
    list_.setTick(1, false);
    EXPECT_EQ(list_.tick(1), CheckList::Tick::Unticked);
}

TEST_F(CheckListTest, KnowsNoTickOfARowThatIsNotThere) {
    EXPECT_EQ(list_.tick(0), CheckList::Tick::Unknown);
    EXPECT_EQ(CheckList(nullptr).tick(0), CheckList::Tick::Unknown);
    EXPECT_EQ(CheckList(nullptr).rowCount(), 0);
}

TEST_F(CheckListTest, SetsTheStatesOfARow) {
    addRow(0, L"Camera");
    list_.setState(0, LVIS_FOCUSED, LVIS_FOCUSED | LVIS_SELECTED);
    EXPECT_EQ(::SendMessageW(window_.get(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED),
              0);
    EXPECT_EQ(
        ::SendMessageW(window_.get(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), -1);
}

} // namespace
} // namespace test
} // namespace orv
