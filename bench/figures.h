// The figures of a benchmark program that have a limit.
#pragma once

#include <string>

namespace orv {
namespace bench {

class Figures {
public:
    // Prints "bench: NAME VALUE limit LIMIT ok", or "over" at its end.
    void add(const std::string& name, double value, double limit);

    // The program's exit code: 0 when no figure was over its limit.
    int exitCode() const { return anyOver_ ? 1 : 0; }

private:
    bool anyOver_ = false;
};

} // namespace bench
} // namespace orv
