// The host's growing table (Tab), read as memory: one pointer to a header that the elements follow.
#pragma once

#include <vector>

namespace orv {
namespace test {

struct TabHeader {
    int count;
    int capacity;
};

// The elements of a table, whose one pointer stands at `tab`. A table without elements may have a
// null pointer.
template<class T>
std::vector<T> TabElements(const void* tab) {
    const TabHeader* header = *static_cast<const TabHeader* const*>(tab);
    if (!header)
        return {};
    const T* first = reinterpret_cast<const T*>(header + 1);
    return {first, first + header->count};
}

} // namespace test
} // namespace orv
