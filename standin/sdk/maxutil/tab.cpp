// Tables: a header with count and capacity, then the elements.
#include "tab.h"
#include "base/windows.h"

#include <string.h>

namespace {

char* Element(TabHdr* header, int index, int size) {
    return reinterpret_cast<char*>(header + 1) + static_cast<INT_PTR>(index) * size;
}

int CountOf(const TabHdr* header) {
    return header ? header->count : 0;
}

bool Reallocate(TabHdr** tab, int capacity, int size) {
    TabHdr* header = nullptr;
    const int kept = CountOf(*tab) < capacity ? CountOf(*tab) : capacity;
    if (capacity > 0) {
        header = static_cast<TabHdr*>(MaxHeapOperators::operator new(
            sizeof(TabHdr) + static_cast<size_t>(capacity) * static_cast<size_t>(size)));
        if (!header)
            return false;
        header->count = kept;
        header->capacity = capacity;
        if (kept > 0)
            memcpy(header + 1, *tab + 1, static_cast<size_t>(kept) * static_cast<size_t>(size));
    }
    MaxHeapOperators::operator delete(*tab);
    *tab = header;
    return true;
}

} // namespace

int TBMakeSize(TabHdr** tab, int capacity, int size) {
    return Reallocate(tab, capacity < 0 ? 0 : capacity, size) ? 1 : 0;
}

void TBSetCount(TabHdr** tab, int count, int size, int resize) {
    const int capacity = *tab ? (*tab)->capacity : 0;
    if (count > capacity || resize)
        Reallocate(tab, count, size);
    if (*tab)
        (*tab)->count = count;
}

int TBInsertAt(TabHdr** tab, int at, int count, const void* elements, int size, int extra) {
    const int present = CountOf(*tab);
    const int capacity = *tab ? (*tab)->capacity : 0;
    if (count <= 0)
        return present;
    if (present + count > capacity && !Reallocate(tab, (present + count) * 2 + extra, size))
        return -1;
    if (at < 0 || at > present)
        at = present;
    memmove(Element(*tab, at + count, size), Element(*tab, at, size),
            static_cast<size_t>(present - at) * static_cast<size_t>(size));
    memcpy(Element(*tab, at, size), elements,
           static_cast<size_t>(count) * static_cast<size_t>(size));
    (*tab)->count = present + count;
    return at;
}

int TBCopy(TabHdr** tab, int at, int count, const void* elements, int size) {
    const int present = CountOf(*tab);
    if (at < 0 || count <= 0 || at > present)
        return 0;
    if (at + count > present)
        TBSetCount(tab, at + count, size, FALSE);
    memcpy(Element(*tab, at, size), elements,
           static_cast<size_t>(count) * static_cast<size_t>(size));
    return count;
}

int TBDelete(TabHdr** tab, int start, int count, int size) {
    const int present = CountOf(*tab);
    if (start < 0 || start >= present || count <= 0)
        return present;
    if (count > present - start)
        count = present - start;
    memmove(Element(*tab, start, size), Element(*tab, start + count, size),
            static_cast<size_t>(present - start - count) * static_cast<size_t>(size));
    (*tab)->count = present - count;
    return present - count;
}
