#include "analysis/text/numbers.h"

#include "analysis/text/text_convert.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <limits>
#include <locale>
#include <sstream>

namespace orv {
namespace {

constexpr char kDigits[] = "0123456789";
constexpr char kBlanks[] = " \t\n\v\f\r";

bool IsAt(const std::string& text, std::size_t position, const char* either) {
    return position < text.size() && std::string(either).find(text[position]) != std::string::npos;
}

// The position behind the sign, if there is one.
std::size_t SkipSign(const std::string& text, std::size_t position) {
    return IsAt(text, position, "+-") ? position + 1 : position;
}

std::size_t SkipDigits(const std::string& text, std::size_t position) {
    return std::min(text.find_first_not_of(kDigits, position), text.size());
}

// The part at the start of a text that is a decimal number. A stream alone would take a letter "e"
// behind a number for an exponent and then refuse the whole, where C's atof stops before it.
std::string NumberAtStart(const std::string& text) {
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    const std::size_t whole = SkipSign(text, begin);
    const std::size_t wholeEnd = SkipDigits(text, whole);
    std::size_t end = wholeEnd;
    std::size_t digits = wholeEnd - whole;
    if (IsAt(text, end, ".")) {
        end = SkipDigits(text, end + 1);
        digits += end - wholeEnd - 1;
    }
    if (digits == 0)
        return {};
    if (IsAt(text, end, "eE")) {
        const std::size_t exponent = SkipSign(text, end + 1);
        const std::size_t exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    return text.substr(begin, end - begin);
}

} // namespace

// strtol and wcstol return the nearest end for a number that does not fit; atoi is undefined there.
// A long has 32 bits on Windows and more elsewhere.

std::int32_t WholeNumber(const std::string& text) {
    return Within32Bits(std::strtol(text.c_str(), nullptr, 10));
}

std::int32_t WholeNumber(const std::wstring& text) {
    return Within32Bits(std::wcstol(text.c_str(), nullptr, 10));
}

std::int32_t ClampedWholeNumber(const std::wstring& text, std::int32_t minimum,
                                std::int32_t maximum) {
    return std::max(minimum, std::min(WholeNumber(text), maximum));
}

double DecimalNumber(const std::string& text) {
    std::istringstream stream(NumberAtStart(text));
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    return value;
}

double DecimalNumber(const std::wstring& text) {
    return DecimalNumber(WideToUtf8(text));
}

std::wstring DecimalText(double value, int fractionDigits) {
    char buffer[400]; // the longest double has 309 digits before the "."
    const int length = std::snprintf(buffer, sizeof(buffer), "%.*f", fractionDigits, value);
    std::string text(buffer, static_cast<std::size_t>(std::max(0, length)));
    std::replace(text.begin(), text.end(), ',', '.'); // of a host that speaks German, for one
    return std::wstring(text.begin(), text.end());
}

std::int32_t Within32Bits(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double kept = std::max<double>(Limits::min(), std::min<double>(value, Limits::max()));
    return static_cast<std::int32_t>(kept); // the conversion cuts towards zero
}

} // namespace orv
