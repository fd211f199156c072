// The fields for numbers: an edit with arrows beside it, and the rules for its text.
#pragma once

#include "base/windows.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace orv {

struct DecimalRange {
    double minimum;
    double maximum;
};

// Lets through digits and one ".", at most `fractionDigits` digits behind it; what is longer is cut
// off. "0.00" for any other text. An empty text stays empty, so that a user can begin anew.
std::wstring FilterDecimal(const std::wstring& text, std::size_t fractionDigits);

// Brings a number back into `range`: the bound, with two digits behind the ".", for one beyond it.
// A number in range that begins with a needless 0 ("05") is written anew with three digits; any
// other text stays as it is.
std::wstring ClampDecimal(const std::wstring& text, const DecimalRange& range);

// The whole number that the text begins with (0 for none), brought into the range, in decimal.
std::wstring ClampWholeNumber(const std::wstring& text, std::int32_t minimum, std::int32_t maximum);

// What an edit shows after a click on the arrows beside it: its number, changed by `steps` times
// `step`, within `range`, with one digit behind the ".".
std::wstring StepDecimal(const std::wstring& text, int steps, double step,
                         const DecimalRange& range);

// What kind of number a field holds.
enum class TypedText {
    WholeNumber,
    Decimal, // with up to three digits behind the "."
};

// The step of arrows that count by themselves.
constexpr double kOwnCount = 0.0;

struct NumberRules {
    int edit;
    int arrows;
    DecimalRange range;
    double typedMinimum; // what the user types may begin with: 25 begins with 2
    TypedText typed;
    double step;       // of one click on the arrows, or kOwnCount
    int arrowsMinimum; // the arrows' own range
    int arrowsMaximum;
    const wchar_t* openingText; // null for a field that is filled otherwise
};

// What becomes of a text under the rules: a number in the range.
std::wstring TextByRules(const NumberRules& rules, const std::wstring& text);

// The same while the user types: a number below the range is kept from typedMinimum on.
std::wstring TextWhileTyped(const NumberRules& rules, const std::wstring& text);

// One such field of a dialog. For the dialog's own thread.
class NumberField {
public:
    // `rules` has to live as long as the object.
    NumberField(HWND dialog, const NumberRules& rules) : dialog_(dialog), rules_(rules) {}

    // Sets the arrows' range and the opening text.
    void open() const;
    // Brings a text that has changed under the rules: those for typing while the edit has the
    // keyboard. Sets the text only when it differs: setting it is a change again.
    void applyRules() const;
    // Brings the number into its range: the user has left the edit, or what it holds is needed.
    void settle() const;
    // Carries out a click on the arrows, unless they count by themselves: then it returns false.
    bool step(int steps) const;

private:
    void keep(const std::wstring& text) const;

    HWND dialog_;
    const NumberRules& rules_;
};

} // namespace orv
