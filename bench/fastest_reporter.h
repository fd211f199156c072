#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace orv {
namespace bench {

// Prints the usual table and keeps the fastest repetition of each benchmark, by processor time:
// whatever else runs on the machine only ever slows one down.
class FastestReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    // Whether the benchmark ran: a filter may have left it out.
    bool has(const std::string& name) const { return fastest_.count(name) > 0; }

    // Processor time of one iteration, in the benchmark's unit.
    double fastest(const std::string& name) const { return fastest_.at(name); }

private:
    void keep(const std::string& name, double time);

    std::map<std::string, double> fastest_;
};

} // namespace bench
} // namespace orv
