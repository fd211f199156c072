// The figures of a benchmark program: ratios of two costs, each with a limit.
#pragma once

#include <chrono>
#include <functional>
#include <regex>
#include <string>
#include <vector>

namespace orv {
namespace bench {

// Does the work once and returns what it cost, in any unit.
using Cost = std::function<double()>;

// Measures one pair and returns the ratio of its costs.
using Ratio = std::function<double()>;

// How often a figure is measured: until its spread is narrow, at least `fewest` and at most `most`
// times, and not again after `longest`.
struct Effort {
    int fewest;
    int most;
    std::chrono::seconds longest;
};

constexpr Effort kShortWork = {9, 40, std::chrono::seconds(120)};
constexpr Effort kLongWork = {3, 9, std::chrono::seconds(300)};
constexpr Effort kSameEachTime = {3, 3, std::chrono::seconds(60)}; // memory

class Figures {
public:
    // Measures only what has a name in which the regular expression `filter` is found.
    explicit Figures(const std::string& filter) : filter_(filter) {}

    // Measures `ours` and `theirs` in turn, as pairs that begin with either: what else the machine
    // does slows both. Prints the median of the pairs' ratios with its spread:
    // "bench: NAME VALUE (LOW to HIGH, N pairs) limit LIMIT ok", or "over" at its end when the
    // whole spread is over the limit.
    void measure(const std::string& name, const Effort& effort, const Cost& ours,
                 const Cost& theirs, double limit);

    // The same for two costs that are measured at once.
    void measure(const std::string& name, const Effort& effort, const Ratio& ratio, double limit);

    // The program's exit code: 0 when no figure was over its limit, 1 when one was,
    // kNothingMeasured when the filter left out all.
    int exitCode() const;

    static constexpr int kNothingMeasured = 3;

private:
    std::regex filter_;
    bool anyMeasured_ = false;
    bool anyOver_ = false;
};

// The processor time that this process has taken, in seconds. It ticks in hundredths: work of a
// tenth of a second has to be done several times to be measured.
double ProcessorSeconds();

// The processor time of doing `work` `times` times.
template<class Work>
double ProcessorTime(int times, Work work) {
    const double start = ProcessorSeconds();
    for (int i = 0; i < times; ++i)
        work();
    return ProcessorSeconds() - start;
}

// The same for work that needs something new each time: `prepare` makes it, and is not measured.
template<class Prepare, class Work>
double ProcessorTime(int times, Prepare prepare, Work work) {
    std::vector<decltype(prepare())> prepared;
    for (int i = 0; i < times; ++i)
        prepared.push_back(prepare());
    auto next = prepared.begin();
    return ProcessorTime(times, [&] { work(*next++); });
}

} // namespace bench
} // namespace orv
