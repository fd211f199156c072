#include "ui/decimal_field.h"

#include "analysis/report_json.h"
#include "analysis/text/text_convert.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

namespace orv {
namespace {

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

} // namespace

double NumberOfText(const std::wstring& text) {
    return DecimalNumber(WideToUtf8(text));
}

std::wstring DecimalText(double value, int fractionDigits) {
    char buffer[400]; // the longest double has 309 digits before the "."
    const int length = std::snprintf(buffer, sizeof buffer, "%.*f", fractionDigits, value);
    std::string text(buffer, static_cast<std::size_t>(std::max(0, length)));
    std::replace(text.begin(), text.end(), ',', '.'); // of a host that speaks German, for one
    return std::wstring(text.begin(), text.end());
}

std::wstring FilterDecimal(const std::wstring& text, std::size_t fractionDigits) {
    const bool isNumber =
        std::all_of(text.begin(), text.end(),
                    [](wchar_t character) { return IsDigit(character) || character == L'.'; }) &&
        std::count(text.begin(), text.end(), L'.') <= 1;
    if (!isNumber)
        return L"0.00";
    const std::size_t point = text.find(L'.');
    return point == std::wstring::npos ? text : text.substr(0, point + 1 + fractionDigits);
}

std::wstring ClampDecimal(const std::wstring& text, const DecimalRange& range) {
    const double value = NumberOfText(text);
    if (value > range.maximum)
        return DecimalText(range.maximum, 2);
    if (value < range.minimum)
        return DecimalText(range.minimum, 2);
    if (text.size() > 1 && text[0] == L'0' && IsDigit(text[1]))
        return DecimalText(value, 3);
    return text;
}

std::int32_t ClampedWholeNumber(const std::wstring& text, std::int32_t minimum,
                                std::int32_t maximum) {
    // A number too long for any type is the largest that fits.
    const long long value = std::wcstoll(text.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(
        std::max<long long>(minimum, std::min<long long>(value, maximum)));
}

std::wstring ClampWholeNumber(const std::wstring& text, std::int32_t minimum,
                              std::int32_t maximum) {
    return std::to_wstring(ClampedWholeNumber(text, minimum, maximum));
}

std::wstring StepDecimal(const std::wstring& text, int steps, double step,
                         const DecimalRange& range) {
    const double value = NumberOfText(text) + steps * step;
    return DecimalText(std::max(range.minimum, std::min(value, range.maximum)), 1);
}

} // namespace orv
