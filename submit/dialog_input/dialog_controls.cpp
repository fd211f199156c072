#include "submit/dialog_input/dialog_controls.h"

#include "analysis/report_json.h"
#include "analysis/text/text_convert.h"

#include <algorithm>
#include <limits>

namespace orv {

bool IsChecked(HWND dialog, int control) {
    return ::IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

std::wstring ControlText(HWND dialog, int control) {
    HWND window = ::GetDlgItem(dialog, control);
    std::wstring text(static_cast<std::size_t>(std::max(0, ::GetWindowTextLengthW(window))) + 1,
                      L'\0');
    const int length = ::GetWindowTextW(window, &text[0], static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

double ControlNumber(HWND dialog, int control) {
    return DecimalNumber(WideToUtf8(ControlText(dialog, control)));
}

std::int32_t ControlWholeNumber(HWND dialog, int control) {
    return Truncated(ControlNumber(dialog, control));
}

std::int32_t Truncated(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double kept = std::max<double>(Limits::min(), std::min<double>(value, Limits::max()));
    return static_cast<std::int32_t>(kept); // the conversion cuts towards zero
}

} // namespace orv
