#include "bench/spread.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace bench {
namespace {

constexpr double kConfidence = 0.95;

// How many of `count` sorted values lie outside the interval at each end. Each value is above the
// true median with a chance of one half, so the number of those below follows a binomial
// distribution: the ends move inwards while the tails of it stay below 5 per cent.
std::size_t OutsideAtEachEnd(std::size_t count) {
    double chance = std::pow(0.5, static_cast<double>(count)); // that exactly `below` are below
    double tail = chance;
    std::size_t below = 0;
    while (2.0 * tail <= 1.0 - kConfidence) {
        chance *= static_cast<double>(count - below) / static_cast<double>(below + 1);
        tail += chance;
        ++below;
    }
    return below == 0 ? 0 : below - 1;
}

} // namespace

Spread SpreadOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t count = values.size();
    const std::size_t outside = OutsideAtEachEnd(count);
    const double median = (values[(count - 1) / 2] + values[count / 2]) / 2.0;
    return {median, values[outside], values[count - 1 - outside], static_cast<int>(count)};
}

bool IsWithin(const Spread& spread, double share) {
    return spread.high - spread.low <= share * spread.value;
}

bool IsOver(const Spread& spread, double limit) {
    return !(spread.low <= limit); // also when it is not a number
}

} // namespace bench
} // namespace orv
