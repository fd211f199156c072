#include "ui/main_dialog/main_layout.h"

#include "base/dc.h"
#include "resources/controls.h"
#include "ui/main_dialog/limit_layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace orv {
namespace {

// What takes up the width that the dialog has to spare, and what keeps its distance from the right
// edge. All else stays where it is.
constexpr int kGrowRight[] = {IDC_SCENE_BOX,    IDC_SCENE_NAME, IDC_CAMERAS_BOX, IDC_CAMERAS,
                              IDC_ELEMENTS_BOX, IDC_BLOCKS_BOX, IDC_LIMITS_BOX,  IDC_NO_LIMITS_BOX,
                              IDC_WARNINGS_BOX, IDC_WARNINGS,   IDC_NO_WARNINGS};
constexpr int kMoveRight[] = {IDC_ANALYSE_AGAIN, IDC_SUBMIT_BOX, IDC_SAVE_SCENE_FILE,
                              IDC_BACK_UP_SCENE, IDC_REMEMBER,   IDC_SUBMIT,
                              IDCANCEL};
// What takes up the height. What lies below moves down.
constexpr int kGrowDown[] = {IDC_CAMERAS_BOX, IDC_CAMERAS};

// Boxes whose rows begin where the limits' row begins.
constexpr int kAlignedBoxes[] = {IDC_ELEMENTS_BOX, IDC_BLOCKS_BOX};

constexpr int kSpinnerWidth = 17; // pixels at 96 dots per inch
constexpr int kLabelGap = 3;

template<std::size_t Count>
bool Contains(const int (&ids)[Count], int id) {
    return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

struct Child {
    HWND window;
    int id;
    RECT place; // in the dialog's client area
};

RECT PlaceOf(HWND dialog, HWND child) {
    RECT place = {};
    ::GetWindowRect(child, &place);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<Child> ChildrenOf(HWND dialog) {
    std::vector<Child> children;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back({child, ::GetDlgCtrlID(child), PlaceOf(dialog, child)});
    return children;
}

// A closed combo box is placed without its list, and keeps the list's height when only moved.
void Place(const Child& child, const RECT& place) {
    const bool isMoved = place.right - place.left == child.place.right - child.place.left &&
                         place.bottom - place.top == child.place.bottom - child.place.top;
    ::SetWindowPos(child.window, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE | (isMoved ? SWP_NOSIZE : 0U));
}

void Stretch(HWND dialog, int wider, int higher) {
    const LONG tableBottom = PlaceOf(dialog, ::GetDlgItem(dialog, IDC_CAMERAS)).bottom;
    for (const Child& child : ChildrenOf(dialog)) {
        RECT place = child.place;
        if (Contains(kMoveRight, child.id))
            ::OffsetRect(&place, wider, 0);
        else if (Contains(kGrowRight, child.id))
            place.right += wider;
        if (place.top >= tableBottom)
            ::OffsetRect(&place, 0, higher);
        else if (Contains(kGrowDown, child.id))
            place.bottom += higher;
        Place(child, place);
    }
}

double ScaleOf(HWND window) {
    const WindowDc dc(window);
    return dc ? ::GetDeviceCaps(dc.get(), LOGPIXELSX) / 96.0 : 1.0;
}

// The size in pixels that the rule gives. Its numbers grow with the resolution, and so do dialog
// units: one of the two has to be taken out.
SIZE RuledSize(HWND dialog, double scale, bool isChinese) {
    const DialogSize size = MainDialogSize(scale, isChinese);
    RECT pixels = {0, 0, static_cast<LONG>(std::lround(size.width / scale)),
                   static_cast<LONG>(std::lround(size.height / scale))};
    ::MapDialogRect(dialog, &pixels);
    return {pixels.right, pixels.bottom};
}

void Resize(HWND dialog, int tableWidth, double scale, bool isChinese) {
    RECT window = {};
    ::GetWindowRect(dialog, &window);
    RECT table = {};
    ::GetClientRect(::GetDlgItem(dialog, IDC_CAMERAS), &table);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);

    const SIZE ruled = RuledSize(dialog, scale, isChinese);
    const LONG width = window.right - window.left;
    const LONG height = window.bottom - window.top;
    const LONG needed = width + std::max<LONG>(0, tableWidth - table.right);
    const LONG highest = monitor.rcWork.bottom - monitor.rcWork.top;
    const LONG wider = std::max(needed, ruled.cx) - width;
    const LONG higher = std::max(height, std::min(ruled.cy, highest)) - height;
    ::SetWindowPos(dialog, nullptr, 0, 0, width + wider, height + higher,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Stretch(dialog, wider, higher);
}

// A control of the row reaches to the next one: fields to their arrows, labels to what they
// describe.
RECT PlaceInLimitRow(const RECT& now, const std::vector<ControlPosition>& row, std::size_t index,
                     double scale) {
    RECT place = now;
    const int id = row[index].id;
    place.left = row[index].left;
    const bool isSpinner =
        id == IDC_PASS_LIMIT_SPIN || id == IDC_NOISE_LEVEL_SPIN || id == IDC_TIME_LIMIT_SPIN;
    const bool isEdit = id == IDC_PASS_LIMIT || id == IDC_NOISE_LEVEL || id == IDC_TIME_LIMIT;
    if (isSpinner)
        place.right = place.left + std::lround(kSpinnerWidth * scale);
    else if (id == IDC_GAMMA || id == IDC_LIMITS_NOTE)
        place.right = place.left + (now.right - now.left);
    else
        place.right = row[index + 1].left - (isEdit ? 0 : kLabelGap);
    return place;
}

void OffsetControl(HWND dialog, int id, LONG right) {
    const HWND window = ::GetDlgItem(dialog, id);
    const RECT place = PlaceOf(dialog, window);
    ::SetWindowPos(window, nullptr, place.left + right, place.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void LayOutLimitRow(HWND dialog, double scale, bool isChinese) {
    const std::vector<ControlPosition> row = LimitRowPositions(scale, isChinese);
    for (std::size_t index = 0; index < row.size(); ++index) {
        const HWND window = ::GetDlgItem(dialog, row[index].id);
        const Child child = {window, row[index].id, PlaceOf(dialog, window)};
        const RECT place = PlaceInLimitRow(child.place, row, index, scale);
        Place(child, place);
        if (child.id == IDC_GAMMA) { // its label and arrows stay beside it
            OffsetControl(dialog, IDC_GAMMA_LABEL, place.left - child.place.left);
            OffsetControl(dialog, IDC_GAMMA_SPIN, place.left - child.place.left);
        }
    }
}

// The rows of other boxes begin where the limits do. The gamma has its place already.
void AlignRows(HWND dialog) {
    const LONG left = PlaceOf(dialog, ::GetDlgItem(dialog, IDC_PASS_LIMIT_LABEL)).left;
    const LONG now = PlaceOf(dialog, ::GetDlgItem(dialog, IDC_COLOR_CHANNEL)).left;
    for (const int box : kAlignedBoxes) {
        const RECT area = PlaceOf(dialog, ::GetDlgItem(dialog, box));
        for (const Child& child : ChildrenOf(dialog)) {
            const bool isGamma =
                child.id == IDC_GAMMA || child.id == IDC_GAMMA_LABEL || child.id == IDC_GAMMA_SPIN;
            if (child.id != box && !isGamma && child.place.top > area.top &&
                child.place.bottom <= area.bottom)
                OffsetControl(dialog, child.id, left - now);
        }
    }
    OffsetControl(dialog, IDC_NO_LIMITS,
                  left - PlaceOf(dialog, ::GetDlgItem(dialog, IDC_NO_LIMITS)).left);
}

} // namespace

void LayOutMainDialog(HWND dialog, int tableWidth, bool isChinese) {
    const double scale = ScaleOf(dialog);
    Resize(dialog, tableWidth, scale, isChinese);
    LayOutLimitRow(dialog, scale, isChinese);
    AlignRows(dialog);
}

} // namespace orv
