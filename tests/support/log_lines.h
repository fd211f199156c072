// What a log says, without when it said it.
#pragma once

#include <string>
#include <vector>

namespace orv {
namespace test {

// The lines of a log's bytes from their level word on, for example "[INFO] Submit successfully.".
// Lines that do not begin with a time stamp are returned whole, so that a test notices them.
std::vector<std::string> LogLines(const std::string& log);

} // namespace test
} // namespace orv
