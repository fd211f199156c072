// Reports of large scenes.
#pragma once

#include <string>

namespace orv {
namespace bench {

struct ReportSize {
    int references;
    int missingFiles;
    int cameras;
    int illegalEvery; // every how many-th reference has a name that may not be; 0 for none
};

constexpr ReportSize kLargeReport = {100000, 20000, 1000, 0}; // 15 MB
constexpr int kTimesALarge = 4; // how often it is read for a time to measure

// A report as the parser writes it for such a scene, with Chinese and Latin names mixed: JSON in
// UTF-8, about 125 bytes for each file. The same for the same size.
std::string MakeReport(const ReportSize& size);

} // namespace bench
} // namespace orv
