#include "bench/spread.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

namespace orv {
namespace bench {
namespace {

// 1, 2, 3 ... in an order that is not theirs.
std::vector<double> FirstNumbers(int count) {
    std::vector<double> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.rbegin(), numbers.rend(), 1.0);
    std::swap(numbers.front(), numbers[numbers.size() / 2]);
    return numbers;
}

TEST(SpreadOf, HasTheMedianAsItsValue) {
    EXPECT_EQ(SpreadOf({3.0, 1.0, 2.0}).value, 2.0);
    EXPECT_EQ(SpreadOf({4.0, 1.0, 2.0, 3.0}).value, 2.5);
}

// The ends are those of the tables for the 95 per cent interval of a median.
TEST(SpreadOf, HasTheIntervalThatHoldsTheMedian) {
    const struct {
        int count;
        double low;
    } rows[] = {{1, 1}, {3, 1},  {5, 1},  {6, 1},   {8, 1},
                {9, 2}, {12, 3}, {20, 6}, {40, 14}, {80, 31}};
    for (const auto& row : rows) {
        const Spread spread = SpreadOf(FirstNumbers(row.count));
        EXPECT_EQ(spread.low, row.low) << row.count;
        EXPECT_EQ(spread.high, row.count + 1 - row.low) << row.count;
        EXPECT_EQ(spread.count, row.count);
    }
}

TEST(SpreadIsWithin, AShareOfTheValue) {
    EXPECT_TRUE(IsWithin({2.0, 1.9, 2.1, 20}, 0.11));
    EXPECT_FALSE(IsWithin({2.0, 1.9, 2.1, 20}, 0.09));
}

TEST(SpreadIsOver, OnlyWithAllOfIt) {
    EXPECT_FALSE(IsOver({1.0, 0.9, 1.1, 20}, 1.2));
    EXPECT_FALSE(IsOver({1.3, 1.2, 1.4, 20}, 1.2));
    EXPECT_TRUE(IsOver({1.3, 1.21, 1.4, 20}, 1.2));
}

TEST(SpreadIsOver, WithoutANumber) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(IsOver({none, none, none, 3}, 1.2));
}

} // namespace
} // namespace bench
} // namespace orv
