#include "windows/measures.h"

#include <algorithm>
#include <limits>

namespace orv {
namespace {

constexpr UINT kKeepOrder = SWP_NOZORDER | SWP_NOACTIVATE;

SIZE SizeOf(HWND window) {
    RECT area = {};
    ::GetWindowRect(window, &area);
    return {area.right - area.left, area.bottom - area.top};
}

POINT MiddleOf(const RECT& area, const SIZE& size) {
    return {(area.left + area.right - size.cx) / 2, (area.top + area.bottom - size.cy) / 2};
}

int MeasuredWidth(HDC dc, const wchar_t* text, std::size_t length) {
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text, static_cast<int>(length), &size);
    return static_cast<int>(size.cx);
}

constexpr std::size_t kCharacters = 0x10000; // that a UTF-16 unit can be
constexpr int kUnknown = -1;

// Sums of characters' widths, each measured once. A line is not wider than its sum: shaping makes
// letters narrower. Half of a surrogate pair has no width, so it counts as wider than any line.
class WidthSums {
public:
    explicit WidthSums(HDC dc) : dc_(dc), widths_(kCharacters, kUnknown) {}

    int of(const std::wstring& line) {
        int sum = 0;
        for (const wchar_t character : line) {
            if (IS_HIGH_SURROGATE(character) || IS_LOW_SURROGATE(character))
                return std::numeric_limits<int>::max();
            int& width = widths_[character];
            if (width == kUnknown)
                width = MeasuredWidth(dc_, &character, 1);
            sum += width;
        }
        return sum;
    }

private:
    HDC dc_;
    std::vector<int> widths_;
};

} // namespace

int DotsPerInch(HWND window) {
    const WindowDc dc(window);
    return dc ? ::GetDeviceCaps(dc.get(), LOGPIXELSX) : USER_DEFAULT_SCREEN_DPI;
}

int WidestLine(HWND window, const std::vector<std::wstring>& lines) {
    const WindowDc dc(window);
    if (!dc)
        return 0;
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0));
    const DcSelection selection(dc.get(), font);
    // Measuring thousands of lines takes half as long as filling a list with them: the one with the
    // largest sum is measured first, and after it those whose sums are larger than its width.
    WidthSums sums(dc.get());
    std::vector<int> bounds;
    bounds.reserve(lines.size());
    for (const std::wstring& line : lines)
        bounds.push_back(sums.of(line));
    const auto largest = std::max_element(bounds.begin(), bounds.end());
    if (largest == bounds.end())
        return 0;
    const auto measure = [&](std::size_t line) {
        return MeasuredWidth(dc.get(), lines[line].data(), lines[line].size());
    };
    int widest = measure(static_cast<std::size_t>(largest - bounds.begin()));
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (bounds[line] > widest)
            widest = std::max(widest, measure(line));
    }
    return widest;
}

RECT PlaceOf(HWND child) {
    RECT place = {};
    ::GetWindowRect(child, &place);
    // The two points of a rectangle follow each other as MapWindowPoints expects.
    ::MapWindowPoints(nullptr, ::GetParent(child), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

RECT WorkAreaOf(HWND window) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

// A closed combo box is placed without its list, and keeps the list's height when only moved.
void PlaceWindow(HWND window, const RECT& place) {
    const SIZE size = SizeOf(window);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const UINT sizing = size.cx == width && size.cy == height ? SWP_NOSIZE : 0U;
    ::SetWindowPos(window, nullptr, place.left, place.top, width, height, kKeepOrder | sizing);
}

void MoveWindowTo(HWND window, LONG left, LONG top) {
    ::SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | kKeepOrder);
}

void ResizeWindow(HWND window, LONG width, LONG height) {
    ::SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | kKeepOrder);
}

void CentreOverOwner(HWND window) {
    HWND owner = ::GetWindow(window, GW_OWNER);
    RECT outer = {};
    if (owner == nullptr || ::IsIconic(owner) || !::GetWindowRect(owner, &outer))
        return; // it stays where the template puts it
    const RECT screen = WorkAreaOf(owner);
    if (::IsRectEmpty(&screen))
        return;
    const SIZE size = SizeOf(window);
    const POINT middle = MiddleOf(outer, size);
    // The right and bottom edges give way first: the title bar has to be in reach.
    MoveWindowTo(window, std::max(screen.left, std::min(middle.x, screen.right - size.cx)),
                 std::max(screen.top, std::min(middle.y, screen.bottom - size.cy)));
}

void CentreInWorkArea(HWND window) {
    const RECT screen = WorkAreaOf(window);
    if (::IsRectEmpty(&screen))
        return;
    const POINT middle = MiddleOf(screen, SizeOf(window));
    MoveWindowTo(window, middle.x, middle.y);
}

} // namespace orv
