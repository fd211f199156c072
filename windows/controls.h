// The controls of a dialog by their kinds. An object is the handle of one control and no more: it
// owns nothing, and is made where it is needed. A control that the dialog does not have reads as
// empty, and setting it has no effect. For the dialog's own thread.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>
#include <vector>

namespace orv {

// While it lives, a list does not draw itself nor count its scroll range: filling thousands of rows
// does both once. Without effect on a null window.
class RedrawPause : private rud_Noncopyable {
public:
    explicit RedrawPause(HWND list) noexcept;
    ~RedrawPause();

private:
    HWND list_;
};

class Control {
public:
    explicit Control(HWND control) : window_(control) {}
    Control(HWND dialog, int id) : window_(::GetDlgItem(dialog, id)) {}

    HWND window() const { return window_; }
    explicit operator bool() const { return window_ != nullptr; }

    // The whole text.
    std::wstring text() const;
    void setText(const std::wstring& text) const { ::SetWindowTextW(window_, text.c_str()); }
    // Sets the text only when it differs: setting it draws the control anew.
    void updateText(const std::wstring& text) const;

    bool isEnabled() const { return ::IsWindowEnabled(window_) != FALSE; }
    void enable(bool enabled) const { ::EnableWindow(window_, enabled ? TRUE : FALSE); }
    void show(bool shown) const { ::ShowWindow(window_, shown ? SW_SHOW : SW_HIDE); }

protected:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(window_, message, wParam, lParam);
    }

private:
    HWND window_;
};

// A check box or a radio button.
class CheckBox : public Control {
public:
    using Control::Control;

    // BST_UNCHECKED, BST_CHECKED, or BST_INDETERMINATE for the third state of a three-state box.
    UINT state() const { return static_cast<UINT>(send(BM_GETCHECK)); }
    bool isChecked() const { return state() == BST_CHECKED; }
    void check(bool checked) const { send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
};

class Edit : public Control {
public:
    using Control::Control;

    // Sets the text and puts the caret at its end, where the user goes on.
    void setTextAndCaret(const std::wstring& text) const;
    // The number of characters that can be typed.
    void limitTyping(WPARAM characters) const { send(EM_LIMITTEXT, characters); }
};

// A drop-down list. Its entries count from 0.
class ComboBox : public Control {
public:
    using Control::Control;

    void clear() const { send(CB_RESETCONTENT); }
    void add(const std::wstring& entry) const;
    void select(int entry) const { send(CB_SETCURSEL, static_cast<WPARAM>(entry)); }
    // -1 when no entry is selected.
    int selection() const { return static_cast<int>(send(CB_GETCURSEL)); }
};

class ListBox : public Control {
public:
    using Control::Control;

    // Replaces the lines, and lets the list box scroll to the end of the widest.
    void setLines(const std::vector<std::wstring>& lines) const;
};

// The arrows beside an edit.
class Arrows : public Control {
public:
    using Control::Control;

    void setRange(int minimum, int maximum) const;
};

class ProgressBar : public Control {
public:
    using Control::Control;

    // Shows that work goes on whose end is not known. The control has the style PBS_MARQUEE.
    void startMarquee() const;
};

// A list view with check boxes. Its rows count from 0.
class CheckList : public Control {
public:
    using Control::Control;

    enum class Tick { Unknown, Unticked, Ticked }; // Unknown: the row cannot be read

    int rowCount() const;
    // The text of the first column, at most 511 characters.
    std::wstring name(int row) const;
    Tick tick(int row) const;
    void setTick(int row, bool ticked) const;
    // Sets the states of `mask` (LVIS_...) of a row to those of `state`.
    void setState(int row, UINT state, UINT mask) const;
};

} // namespace orv
