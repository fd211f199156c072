#include "bench/figures.h"

#include "base/windows.h"
#include "bench/spread.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace orv {
namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double kNarrow = 0.03; // of the figure

Spread Repeated(const Effort& effort, const Ratio& ratio) {
    const Clock::time_point end = Clock::now() + effort.longest;
    std::vector<double> ratios;
    for (;;) {
        ratios.push_back(ratio());
        const Spread spread = SpreadOf(ratios);
        const bool isEnough = IsWithin(spread, kNarrow) || spread.count >= effort.most;
        if (spread.count >= effort.fewest && (isEnough || Clock::now() >= end))
            return spread;
    }
}

double Seconds(const FILETIME& time) {
    const std::uint64_t ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    return static_cast<double>(ticks) * 1e-7;
}

} // namespace

void Figures::measure(const std::string& name, const Effort& effort, const Cost& ours,
                      const Cost& theirs, double limit) {
    bool oursFirst = false;
    const auto ratio = [&] {
        oursFirst = !oursFirst;
        const double first = oursFirst ? ours() : theirs();
        const double second = oursFirst ? theirs() : ours();
        return oursFirst ? first / second : second / first;
    };
    measure(name, effort, ratio, limit);
}

void Figures::measure(const std::string& name, const Effort& effort, const Ratio& ratio,
                      double limit) {
    if (!std::regex_search(name, filter_))
        return;
    const Spread spread = Repeated(effort, ratio);
    const bool isOver = IsOver(spread, limit);
    anyMeasured_ = true;
    anyOver_ = anyOver_ || isOver;
    std::printf("bench: %s %.3f (%.3f to %.3f, %d pairs) limit %.2f %s\n", name.c_str(),
                spread.value, spread.low, spread.high, spread.count, limit, isOver ? "over" : "ok");
    std::fflush(stdout);
}

int Figures::exitCode() const {
    if (!anyMeasured_)
        return kNothingMeasured;
    return anyOver_ ? 1 : 0;
}

double ProcessorSeconds() {
    FILETIME created = {};
    FILETIME ended = {};
    FILETIME kernel = {};
    FILETIME user = {};
    ::GetProcessTimes(::GetCurrentProcess(), &created, &ended, &kernel, &user);
    return Seconds(kernel) + Seconds(user);
}

} // namespace bench
} // namespace orv
