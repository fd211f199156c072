#include "bench/figures.h"

#include <cstdio>

namespace orv {
namespace bench {

void Figures::add(const std::string& name, double value, double limit) {
    const bool isOk = value <= limit; // NaN is over
    anyOver_ = anyOver_ || !isOk;
    std::printf("bench: %s %.2f limit %.2f %s\n", name.c_str(), value, limit, isOk ? "ok" : "over");
}

} // namespace bench
} // namespace orv
