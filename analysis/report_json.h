// The report as JSON, and the reading of its members.
#pragma once

#include <cstdint>
#include <json/value.h>
#include <string>

namespace orv {

// Parses a report (comments are kept with the values). False for a text that is not JSON or nested
// too deeply; never throws.
bool ParseReport(const std::wstring& reportText, Json::Value& report);

// The name of the first member that the reader needs and that is missing or of another type, such
// as "cameras[2].name", with what is expected of it; empty when the report can be read.
std::string FindReportFault(const Json::Value& report);

// `member` of `object`; the null value when it is missing or `object` is no object. The readers
// below answer for any type, so that code which meets an unchecked report cannot fail.
const Json::Value& MemberOf(const Json::Value& object, const char* member);

// A string, number or boolean as text; empty for everything else.
std::string TextOf(const Json::Value& value);

// The whole number at the start of a text, as C's atoi reads it, but kept within 32 bits.
std::int32_t WholeNumber(const std::string& text);

// The decimal number at the start of a text, always with "." before the fraction, whatever language
// the host has set; 0 when there is none.
double DecimalNumber(const std::string& text);

} // namespace orv
