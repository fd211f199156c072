#include "ui/main_dialog/main_layout.h"

#include "resources/controls.h"
#include "windows/measures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace orv {
namespace {

struct LimitControl {
    int id;
    int left;        // pixels at 96 dots per inch
    int leftChinese; // the same where the texts are Chinese
};

constexpr LimitControl kLimitControls[] = {
    {IDC_PASS_LIMIT_LABEL, 38, 48},    {IDC_PASS_LIMIT, 88, 98},
    {IDC_PASS_LIMIT_SPIN, 162, 172},   {IDC_PASS_LIMIT_UNIT, 183, 193},
    {IDC_NOISE_LEVEL_LABEL, 220, 220}, {IDC_NOISE_LEVEL, 278, 268},
    {IDC_NOISE_LEVEL_SPIN, 350, 342},  {IDC_NOISE_LEVEL_UNIT, 370, 365},
    {IDC_TIME_LIMIT_LABEL, 390, 395},  {IDC_TIME_LIMIT, 475, 445},
    {IDC_TIME_LIMIT_SPIN, 549, 519},   {IDC_TIME_LIMIT_UNIT, 570, 540},
    {IDC_LIMITS_NOTE, 610, 610},       {IDC_GAMMA, 690, 690},
};

constexpr double kWidth = 375.0;
constexpr double kHeight = 371.0;
constexpr double kNarrower = 20.0; // where the texts are not Chinese

// What is added to the scaled size: at any resolution but the two named.
constexpr DialogSize kFinerScreen = {93.75, 92.75};
constexpr DialogSize kScreenOf144 = {56.25, 55.65};

bool Is(double scale, double value) {
    return std::fabs(scale - value) < 0.001;
}

DialogSize AddedAt(double scale) {
    if (Is(scale, 1.0))
        return {0.0, 0.0};
    return Is(scale, 1.5) ? kScreenOf144 : kFinerScreen;
}

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

std::vector<Child> ChildrenOf(HWND dialog) {
    std::vector<Child> children;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back({child, ::GetDlgCtrlID(child), PlaceOf(child)});
    return children;
}

void Stretch(HWND dialog, int wider, int higher) {
    const LONG tableBottom = PlaceOf(::GetDlgItem(dialog, IDC_CAMERAS)).bottom;
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
        PlaceWindow(child.window, place);
    }
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
    const RECT screen = WorkAreaOf(dialog);

    const SIZE ruled = RuledSize(dialog, scale, isChinese);
    const LONG width = window.right - window.left;
    const LONG height = window.bottom - window.top;
    const LONG needed = width + std::max<LONG>(0, tableWidth - table.right);
    const LONG highest = screen.bottom - screen.top;
    const LONG wider = std::max(needed, ruled.cx) - width;
    const LONG higher = std::max(height, std::min(ruled.cy, highest)) - height;
    ResizeWindow(dialog, width + wider, height + higher);
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
    const RECT place = PlaceOf(window);
    MoveWindowTo(window, place.left + right, place.top);
}

void LayOutLimitRow(HWND dialog, double scale, bool isChinese) {
    const std::vector<ControlPosition> row = LimitRowPositions(scale, isChinese);
    for (std::size_t index = 0; index < row.size(); ++index) {
        const HWND window = ::GetDlgItem(dialog, row[index].id);
        const RECT now = PlaceOf(window);
        const RECT place = PlaceInLimitRow(now, row, index, scale);
        PlaceWindow(window, place);
        if (row[index].id == IDC_GAMMA) { // its label and arrows stay beside it
            OffsetControl(dialog, IDC_GAMMA_LABEL, place.left - now.left);
            OffsetControl(dialog, IDC_GAMMA_SPIN, place.left - now.left);
        }
    }
}

// The rows of other boxes begin where the limits do. The gamma has its place already.
void AlignRows(HWND dialog) {
    const LONG left = PlaceOf(::GetDlgItem(dialog, IDC_PASS_LIMIT_LABEL)).left;
    const LONG now = PlaceOf(::GetDlgItem(dialog, IDC_COLOR_CHANNEL)).left;
    for (const int box : kAlignedBoxes) {
        const RECT area = PlaceOf(::GetDlgItem(dialog, box));
        for (const Child& child : ChildrenOf(dialog)) {
            const bool isGamma =
                child.id == IDC_GAMMA || child.id == IDC_GAMMA_LABEL || child.id == IDC_GAMMA_SPIN;
            if (child.id != box && !isGamma && child.place.top > area.top &&
                child.place.bottom <= area.bottom)
                OffsetControl(dialog, child.id, left - now);
        }
    }
    OffsetControl(dialog, IDC_NO_LIMITS, left - PlaceOf(::GetDlgItem(dialog, IDC_NO_LIMITS)).left);
}

} // namespace

std::vector<ControlPosition> LimitRowPositions(double scale, bool isChinese) {
    std::vector<ControlPosition> positions;
    for (const LimitControl& control : kLimitControls) {
        const int left = isChinese ? control.leftChinese : control.left;
        positions.push_back({control.id, static_cast<int>(std::lround(left * scale))});
    }
    return positions;
}

DialogSize MainDialogSize(double scale, bool isChinese) {
    const DialogSize added = AddedAt(scale);
    return {scale * kWidth + added.width - (isChinese ? 0.0 : kNarrower),
            scale * kHeight + added.height};
}

void LayOutMainDialog(HWND dialog, int tableWidth, bool isChinese) {
    const double scale = static_cast<double>(DotsPerInch(dialog)) / USER_DEFAULT_SCREEN_DPI;
    Resize(dialog, tableWidth, scale, isChinese);
    LayOutLimitRow(dialog, scale, isChinese);
    AlignRows(dialog);
}

} // namespace orv
