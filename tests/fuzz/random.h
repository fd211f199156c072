// The source of chance of the hostile inputs: small, and the same everywhere, so that an input is
// known by its target's name, the run's seed and its number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orv {
namespace fuzz {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    // 0 to `count` - 1; 0 for a `count` of 0.
    std::size_t below(std::size_t count) {
        return count == 0 ? 0 : static_cast<std::size_t>(next() % count);
    }

    // True once in `times`.
    bool oneIn(std::size_t times) { return below(times) == 0; }

    // `values` must not be empty.
    template<typename T>
    const T& oneOf(const std::vector<T>& values) {
        return values[below(values.size())];
    }

private:
    std::uint64_t state_;
};

} // namespace fuzz
} // namespace orv
