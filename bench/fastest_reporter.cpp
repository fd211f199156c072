#include "bench/fastest_reporter.h"

#include <algorithm>

namespace orv {
namespace bench {

void FastestReporter::ReportRuns(const std::vector<Run>& runs) {
    std::vector<Run> shown; // the single repetitions would bury their summary
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            shown.push_back(run);
        else if (!run.error_occurred)
            keep(run.run_name.function_name, run.GetAdjustedCPUTime());
    }
    if (!shown.empty())
        benchmark::ConsoleReporter::ReportRuns(shown);
}

void FastestReporter::keep(const std::string& name, double time) {
    const auto known = fastest_.emplace(name, time).first;
    known->second = std::min(known->second, time);
}

} // namespace bench
} // namespace orv
