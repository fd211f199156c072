#include "analysis/report_json.h"

#include "analysis/comment_run.h"
#include "analysis/text/text_convert.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <json/reader.h>
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

std::int32_t Within32Bits(long value) {
    const long lowest = std::numeric_limits<std::int32_t>::min();
    const long highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::max(lowest, std::min(value, highest)));
}

} // namespace

ParseOutcome ParseReportJson(const std::string& json, Json::Value& report) {
    try {
        Json::Reader reader;
        const char* const begin = json.data(); // from here, JsonCpp makes no copy of the text
        const bool isJson =
            reader.parse(begin, begin + json.size(), report, !HasLongCommentRun(json));
        return isJson ? ParseOutcome::Parsed : ParseOutcome::NotJson;
    } catch (const Json::RuntimeError&) { // how JsonCpp says that it went deep enough
        return ParseOutcome::TooDeep;
    } catch (const Json::Exception&) {
        return ParseOutcome::NotJson;
    }
}

bool ParseReport(const std::wstring& reportText, Json::Value& report) {
    return ParseReportJson(WideToUtf8(reportText), report) == ParseOutcome::Parsed;
}

const Json::Value& MemberOf(const Json::Value& object, const char* member) {
    return object.isObject() ? object[member] : Json::Value::nullSingleton();
}

std::string TextOf(const Json::Value& value) {
    return value.isArray() || value.isObject() ? std::string() : value.asString();
}

const char* RawText(const Json::Value& value) {
    return value.isString() ? value.asCString() : "";
}

std::int32_t WholeNumber(const std::string& text) {
    return Within32Bits(std::strtol(text.c_str(), nullptr, 10));
}

std::int32_t WholeNumber(const std::wstring& text) {
    return Within32Bits(std::wcstol(text.c_str(), nullptr, 10));
}

double DecimalNumber(const std::string& text) {
    std::istringstream stream(NumberAtStart(text));
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    return value;
}

} // namespace orv
