// Counting what this process holds, to show that nothing is left behind.
#pragma once

#include <cstddef>

namespace orv {
namespace test {

// The handles open in this process: files, sockets, threads, events and all other kernel objects.
std::size_t CountOpenHandles();

} // namespace test
} // namespace orv
