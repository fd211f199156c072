// The number of a text, and the text of a number. Scripts, settings and users write numbers with
// "." before the fraction, so no function here depends on the language of the host or of Windows.
#pragma once

#include <cstdint>
#include <string>

namespace orv {

// The whole number at the start of a text, as C's atoi reads it: blanks, a sign, digits; 0 when
// there is none. A number beyond 32 bits is kept at the nearest end. The wide form, like _wtoi,
// takes the digits of other scripts as well; a setting, which only has ASCII digits, is converted
// first (WideToAnsi).
std::int32_t WholeNumber(const std::string& text);
std::int32_t WholeNumber(const std::wstring& text);

// The same, brought into a range.
std::int32_t ClampedWholeNumber(const std::wstring& text, std::int32_t minimum,
                                std::int32_t maximum);

// The decimal number at the start of a text, as C's atof reads it: blanks, a sign, digits with or
// without a fraction and an exponent; 0 when there is none. Infinities, "nan", hexadecimal digits
// and digits of other scripts are no numbers; a number beyond a double's range is kept at the
// nearest end.
double DecimalNumber(const std::string& text);
double DecimalNumber(const std::wstring& text);

// `value` with `fractionDigits` digits behind the ".".
std::wstring DecimalText(double value, int fractionDigits);

// `value` without its fraction; a number beyond 32 bits is kept at the nearest end.
std::int32_t Within32Bits(double value);

} // namespace orv
