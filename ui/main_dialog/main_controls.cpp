#include "ui/main_dialog/main_controls.h"

#include "resources/controls.h"
#include "ui/main_dialog/block_mode.h"
#include "windows/controls.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace orv {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr int kWholeNumber = -1;

constexpr SpinnerRule kSpinnerRules[] = {
    {IDC_GAMMA_SPIN, IDC_GAMMA, 0.1, {0.1, 5.0}},
    {IDC_AO_RADIUS_SPIN, IDC_AO_RADIUS, 0.1, {10.0, 1000000000.0}},
    {IDC_BLOCK_COUNT_SPIN, IDC_BLOCK_COUNT, 1.0, {kFewestBlocks, kMostBlocks}},
    {IDC_TIME_LIMIT_SPIN, IDC_TIME_LIMIT, 0.1, {0.0, 239.0}},
    {IDC_NOISE_LEVEL_SPIN, IDC_NOISE_LEVEL, 0.1, {0.0, 100.0}},
};

constexpr EditRule kEditRules[] = {
    {IDC_TIME_LIMIT, 3, {0.0, 239.0}},
    {IDC_NOISE_LEVEL, 3, {0.0, 100.0}},
    {IDC_PASS_LIMIT, kWholeNumber, {0.0, kLargest}},
    {IDC_BLOCK_COUNT, kWholeNumber, {kFewestBlocks, kMostBlocks}},
};

struct EditDefault {
    int edit;
    const wchar_t* text;
};

constexpr EditDefault kEditDefaults[] = {
    {IDC_AO_RADIUS, L"1000.0"}, {IDC_BLOCK_COUNT, L"10"}, {IDC_TIME_LIMIT, L"0.0"},
    {IDC_NOISE_LEVEL, L"0"},    {IDC_PASS_LIMIT, L"0"},
};

// The arrows' own ranges. Those with a rule above never move from their position: the edit holds
// the number.
struct SpinnerRange {
    int spinner;
    int minimum;
    int maximum;
};

constexpr SpinnerRange kSpinnerRanges[] = {
    {IDC_AO_RADIUS_SPIN, 0, 707072},
    {IDC_AO_SUBDIVS_SPIN, 1, 1000},
    {IDC_GAMMA_SPIN, 0, 5},
    {IDC_BLOCK_COUNT_SPIN, kFewestBlocks, kMostBlocks},
    {IDC_PASS_LIMIT_SPIN, 0, kLargest},
    {IDC_TIME_LIMIT_SPIN, 0, 239},
    {IDC_NOISE_LEVEL_SPIN, 0, 100},
};

constexpr int kAoSubdivs = 16;

} // namespace

const std::vector<int> kBlockCountControls = {IDC_BLOCK_COUNT_LABEL, IDC_BLOCK_COUNT,
                                              IDC_BLOCK_COUNT_SPIN};
const std::vector<int> kCoronaControls = {
    IDC_PASS_LIMIT_LABEL,  IDC_PASS_LIMIT,  IDC_PASS_LIMIT_SPIN,  IDC_PASS_LIMIT_UNIT,
    IDC_NOISE_LEVEL_LABEL, IDC_NOISE_LEVEL, IDC_NOISE_LEVEL_SPIN, IDC_NOISE_LEVEL_UNIT,
    IDC_TIME_LIMIT_LABEL,  IDC_TIME_LIMIT,  IDC_TIME_LIMIT_SPIN,  IDC_TIME_LIMIT_UNIT,
    IDC_LIMITS_NOTE,       IDC_LIMITS_BOX};
const std::vector<int> kNoLimitControls = {IDC_NO_LIMITS, IDC_NO_LIMITS_BOX};
const std::vector<int> kGiControls = {IDC_GI_CHANNEL, IDC_GI_SCALE_LABEL, IDC_GI_SCALE};

const SpinnerRule* FindSpinnerRule(int spinner) {
    const auto found =
        std::find_if(std::begin(kSpinnerRules), std::end(kSpinnerRules),
                     [spinner](const SpinnerRule& rule) { return rule.spinner == spinner; });
    return found == std::end(kSpinnerRules) ? nullptr : found;
}

const EditRule* FindEditRule(int edit) {
    const auto found = std::find_if(std::begin(kEditRules), std::end(kEditRules),
                                    [edit](const EditRule& rule) { return rule.edit == edit; });
    return found == std::end(kEditRules) ? nullptr : found;
}

std::wstring TextByRule(const EditRule& rule, const std::wstring& text) {
    if (rule.fractionDigits == kWholeNumber)
        return ClampWholeNumber(text, static_cast<std::int32_t>(rule.range.minimum),
                                static_cast<std::int32_t>(rule.range.maximum));
    return ClampDecimal(FilterDecimal(text, static_cast<std::size_t>(rule.fractionDigits)),
                        rule.range);
}

const std::vector<EnablingRule>& EnablingRules() {
    static const std::vector<EnablingRule> rules = {
        {IDC_AO_CHANNEL,
         {IDC_AO_RADIUS_LABEL, IDC_AO_RADIUS, IDC_AO_RADIUS_SPIN, IDC_AO_RADIUS_UNIT,
          IDC_AO_SUBDIVS_LABEL, IDC_AO_SUBDIVS, IDC_AO_SUBDIVS_SPIN}},
        {IDC_GI_CHANNEL, {IDC_GI_SCALE_LABEL, IDC_GI_SCALE}},
    };
    return rules;
}

void EnableByCheckBoxes(HWND dialog) {
    for (const EnablingRule& rule : EnablingRules())
        EnableControls(dialog, rule.controls, CheckBox(dialog, rule.checkBox).isChecked());
}

void EnableControls(HWND dialog, const std::vector<int>& ids, bool enabled) {
    for (const int id : ids)
        Control(dialog, id).enable(enabled);
}

void ShowControls(HWND dialog, const std::vector<int>& ids, bool shown) {
    for (const int id : ids)
        Control(dialog, id).show(shown);
}

void SetOpeningDefaults(HWND dialog) {
    for (const SpinnerRange& range : kSpinnerRanges)
        Arrows(dialog, range.spinner).setRange(range.minimum, range.maximum);
    Arrows(dialog, IDC_AO_SUBDIVS_SPIN).setPosition(kAoSubdivs);
    for (const EditDefault& value : kEditDefaults)
        Edit(dialog, value.edit).setText(value.text);
}

void ApplyEditRule(HWND dialog, const EditRule& rule) {
    const Edit edit(dialog, rule.edit);
    const std::wstring text = edit.text();
    const std::wstring kept = TextByRule(rule, text);
    if (kept != text)
        edit.setTextAndCaret(kept);
}

void StepEdit(HWND dialog, const SpinnerRule& rule, int steps) {
    const Edit edit(dialog, rule.edit);
    edit.setTextAndCaret(StepDecimal(edit.text(), steps, rule.step, rule.range));
}

} // namespace orv
