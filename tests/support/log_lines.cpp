#include "tests/support/log_lines.h"

namespace orv {
namespace test {

namespace {

constexpr char kStampShape[] = "dddd-dd-dd dd:dd:dd:ddd ["; // d stands for a digit

bool BeginsWithStamp(const std::string& line) {
    for (std::size_t i = 0; i + 1 < sizeof(kStampShape); ++i) {
        if (i >= line.size())
            return false;
        const bool isDigit = line[i] >= '0' && line[i] <= '9';
        if (kStampShape[i] == 'd' ? !isDigit : line[i] != kStampShape[i])
            return false;
    }
    return true;
}

} // namespace

std::vector<std::string> LogLines(const std::string& log) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < log.size();) {
        std::size_t end = log.find("\r\n", begin);
        if (end == std::string::npos)
            end = log.size();
        std::string line = log.substr(begin, end - begin);
        if (BeginsWithStamp(line))
            line.erase(0, sizeof(kStampShape) - 2); // all but the bracket
        lines.push_back(line);
        begin = end + 2;
    }
    return lines;
}

} // namespace test
} // namespace orv
