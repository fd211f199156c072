#include "windows/number_field.h"

#include "analysis/text/numbers.h"
#include "windows/controls.h"

#include <algorithm>

namespace orv {
namespace {

constexpr std::size_t kTypedFractionDigits = 3;

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

} // namespace

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
    const double value = DecimalNumber(text);
    if (value > range.maximum)
        return DecimalText(range.maximum, 2);
    if (value < range.minimum)
        return DecimalText(range.minimum, 2);
    if (text.size() > 1 && text[0] == L'0' && IsDigit(text[1]))
        return DecimalText(value, 3);
    return text;
}

std::wstring ClampWholeNumber(const std::wstring& text, std::int32_t minimum,
                              std::int32_t maximum) {
    return std::to_wstring(ClampedWholeNumber(text, minimum, maximum));
}

std::wstring StepDecimal(const std::wstring& text, int steps, double step,
                         const DecimalRange& range) {
    const double value = DecimalNumber(text) + steps * step;
    return DecimalText(std::max(range.minimum, std::min(value, range.maximum)), 1);
}

namespace {

std::wstring TextInRange(const NumberRules& rules, const DecimalRange& range,
                         const std::wstring& text) {
    if (rules.typed == TypedText::WholeNumber)
        return ClampWholeNumber(text, static_cast<std::int32_t>(range.minimum),
                                static_cast<std::int32_t>(range.maximum));
    return ClampDecimal(FilterDecimal(text, kTypedFractionDigits), range);
}

} // namespace

std::wstring TextByRules(const NumberRules& rules, const std::wstring& text) {
    return TextInRange(rules, rules.range, text);
}

std::wstring TextWhileTyped(const NumberRules& rules, const std::wstring& text) {
    return TextInRange(rules, {rules.typedMinimum, rules.range.maximum}, text);
}

void NumberField::open() const {
    Arrows(dialog_, rules_.arrows).setRange(rules_.arrowsMinimum, rules_.arrowsMaximum);
    if (rules_.openingText != nullptr)
        Edit(dialog_, rules_.edit).setText(rules_.openingText);
}

void NumberField::applyRules() const {
    const Edit edit(dialog_, rules_.edit);
    const std::wstring text = edit.text();
    keep(::GetFocus() == edit.window() ? TextWhileTyped(rules_, text) : TextByRules(rules_, text));
}

void NumberField::settle() const {
    keep(TextByRules(rules_, Edit(dialog_, rules_.edit).text()));
}

void NumberField::keep(const std::wstring& text) const {
    const Edit edit(dialog_, rules_.edit);
    if (edit.text() != text)
        edit.setTextAndCaret(text);
}

bool NumberField::step(int steps) const {
    if (rules_.step <= kOwnCount)
        return false;
    const Edit edit(dialog_, rules_.edit);
    edit.setTextAndCaret(StepDecimal(edit.text(), steps, rules_.step, rules_.range));
    return true;
}

} // namespace orv
