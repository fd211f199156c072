// What an edit for a number makes of its text: plain rules, one text in, one text out.
#pragma once

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

} // namespace orv
