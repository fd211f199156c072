#include "windows/controls.h"

#include "windows/measures.h"

#include <commctrl.h>

#include <algorithm>

namespace orv {
namespace {

// List boxes draw a text a little in from the edge; without this the last character would be cut.
constexpr int kTextInset = 8;

constexpr LPARAM kMarqueeMilliseconds = 40; // from one step to the next

constexpr int kNameCapacity = 512;

// A list view keeps a check box as the number of the image beside the row. A row that cannot be
// read has none.
constexpr UINT kNoImage = 0;
constexpr UINT kUntickedImage = 1;
constexpr UINT kTickedImage = 2;
constexpr unsigned kImageShift = 12; // of the image's number in a row's state

} // namespace

RedrawPause::RedrawPause(HWND list) noexcept : list_(list) {
    ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
}

RedrawPause::~RedrawPause() {
    ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    if (list_ != nullptr) // without a window, this would draw all windows anew
        ::InvalidateRect(list_, nullptr, TRUE);
}

std::wstring Control::text() const {
    const int capacity = std::max(0, ::GetWindowTextLengthW(window_)) + 1;
    std::wstring text(static_cast<std::size_t>(capacity), L'\0');
    const int length = ::GetWindowTextW(window_, &text[0], capacity);
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

void Control::updateText(const std::wstring& text) const {
    if (this->text() != text)
        setText(text);
}

void Edit::setTextAndCaret(const std::wstring& text) const {
    setText(text);
    send(EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

void ComboBox::add(const std::wstring& entry) const {
    send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
}

void ListBox::setLines(const std::vector<std::wstring>& lines) const {
    const RedrawPause pause(window());
    send(LB_RESETCONTENT);
    std::size_t units = 0;
    for (const std::wstring& line : lines)
        units += line.size() + 1;
    send(LB_INITSTORAGE, lines.size(), static_cast<LPARAM>(units * sizeof(wchar_t)));
    for (const std::wstring& line : lines)
        send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    const int width = lines.empty() ? 0 : WidestLine(window(), lines) + kTextInset;
    send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

void Arrows::setRange(int minimum, int maximum) const {
    send(UDM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
}

void ProgressBar::startMarquee() const {
    send(PBM_SETMARQUEE, TRUE, kMarqueeMilliseconds);
}

int CheckList::rowCount() const {
    return static_cast<int>(send(LVM_GETITEMCOUNT));
}

std::wstring CheckList::name(int row) const {
    wchar_t buffer[kNameCapacity] = {};
    LVITEMW item = {};
    item.pszText = buffer;
    item.cchTextMax = kNameCapacity;
    send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText; // the list view may answer with a text of its own instead of a copy
}

CheckList::Tick CheckList::tick(int row) const {
    const LRESULT state = send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
    const UINT image = static_cast<UINT>(state) >> kImageShift;
    if (image == kNoImage)
        return Tick::Unknown;
    return image == kUntickedImage ? Tick::Unticked : Tick::Ticked;
}

void CheckList::setTick(int row, bool ticked) const {
    setState(row, INDEXTOSTATEIMAGEMASK(ticked ? kTickedImage : kUntickedImage),
             LVIS_STATEIMAGEMASK);
}

void CheckList::setState(int row, UINT state, UINT mask) const {
    LVITEMW item = {};
    item.state = state;
    item.stateMask = mask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

} // namespace orv
