// The controls of the main dialog as tables, and what is done with them by its handle.
#pragma once

#include "base/windows.h"
#include "ui/decimal_field.h"

#include <cstdint>
#include <vector>

namespace orv {

// Arrows beside an edit for a decimal number: one click changes the number by `step`.
struct SpinnerRule {
    int spinner;
    int edit;
    double step;
    DecimalRange range;
};
// Null for a control that is none of them.
const SpinnerRule* FindSpinnerRule(int spinner);

// The rule of an edit whose text is looked at on each change. A fraction of -1 digits stands for a
// whole number.
struct EditRule {
    int edit;
    int fractionDigits;
    DecimalRange range;
};
const EditRule* FindEditRule(int edit);
// What becomes of a text under the rule.
std::wstring TextByRule(const EditRule& rule, const std::wstring& text);

// A check box that enables what belongs to it.
struct EnablingRule {
    int checkBox;
    std::vector<int> controls;
};
const std::vector<EnablingRule>& EnablingRules();
// Enables the controls of each such check box by its tick.
void EnableByCheckBoxes(HWND dialog);

void EnableControls(HWND dialog, const std::vector<int>& ids, bool enabled);
void ShowControls(HWND dialog, const std::vector<int>& ids, bool shown);

extern const std::vector<int> kBlockCountControls; // of the distributed blocks
extern const std::vector<int> kCoronaControls;     // shown for a renderer that has limits
extern const std::vector<int> kNoLimitControls;    // shown for any other
extern const std::vector<int> kGiControls;         // hidden where there are limits

// Puts the values into the options that they have before anything is remembered, and sets the
// arrows' ranges.
void SetOpeningDefaults(HWND dialog);

// Brings an edit's text under its rule. Writes only what differs: each writing is a change again.
void ApplyEditRule(HWND dialog, const EditRule& rule);

// Carries out a click on arrows.
void StepEdit(HWND dialog, const SpinnerRule& rule, int steps);

} // namespace orv
