#include "analysis/report_json.h"

#include "analysis/text/text_convert.h"

#include <algorithm>
#include <cstdlib>
#include <json/reader.h>
#include <limits>
#include <locale>
#include <sstream>

namespace orv {

bool ParseReport(const std::wstring& reportText, Json::Value& report) {
    try {
        Json::Reader reader;
        return reader.parse(WideToUtf8(reportText), report);
    } catch (const Json::Exception&) { // nested beyond JsonCpp's limit
        return false;
    }
}

const Json::Value& MemberOf(const Json::Value& object, const char* member) {
    return object.isObject() ? object[member] : Json::Value::nullSingleton();
}

std::string TextOf(const Json::Value& value) {
    return value.isArray() || value.isObject() ? std::string() : value.asString();
}

std::int32_t WholeNumber(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    const long lowest = std::numeric_limits<std::int32_t>::min();
    const long highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::max(lowest, std::min(value, highest)));
}

double DecimalNumber(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    return value;
}

} // namespace orv
