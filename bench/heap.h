// Counting of this process' memory from the C run-time's heap, which C++ and JsonCpp use as well.
#pragma once

#include "base/noncopyable.h"

#include <cstdint>

namespace orv {
namespace bench {

// Counts the bytes that blocks were asked for, from construction to destruction, relative to the
// start: memory of before that is freed meanwhile counts against it. One at a time. Nothing is
// counted without one, so that measured times are not slowed down.
class HeapCount : private rud_Noncopyable {
public:
    HeapCount();
    ~HeapCount();

    std::int64_t inUse() const; // bytes
    std::int64_t peak() const;  // bytes, the most that were in use at once
};

} // namespace bench
} // namespace orv
