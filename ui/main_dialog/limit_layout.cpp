#include "ui/main_dialog/limit_layout.h"

#include "resources/controls.h"

#include <cmath>

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

} // namespace orv
