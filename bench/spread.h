// What repeated measurements say of a figure.
#pragma once

#include <vector>

namespace orv {
namespace bench {

struct Spread {
    double value; // the median
    // The interval of two of the measured values that has the figure in it in 95 of 100 cases, the
    // narrowest around the median; all values when they are fewer than six.
    double low;
    double high;
    int count; // of the values
};

// The spread of `values`, which may be in any order and are at least one.
Spread SpreadOf(std::vector<double> values);

// Whether the width of the interval is at most `share` of the median.
bool IsWithin(const Spread& spread, double share);

// Whether all of the interval is over `limit`. A figure without a number is over any limit.
bool IsOver(const Spread& spread, double limit);

} // namespace bench
} // namespace orv
