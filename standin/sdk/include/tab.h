// The host's growing table: one pointer to a header that the elements follow.
#pragma once

#include "MaxHeap.h"
#include "base/windows.h"
#include "utilexp.h"

struct TabHdr {
    int count;
    int capacity; // elements that have room
};

// `size` is that of one element in bytes. The order of the numbers is the host's; another order has
// the same decorated names, so no linker would notice it.
UtilExport int TBMakeSize(TabHdr** tab, int capacity, int size);
UtilExport void TBSetCount(TabHdr** tab, int count, int size, int resize);
UtilExport int TBInsertAt(TabHdr** tab, int at, int count, const void* elements, int size,
                          int extra);
UtilExport int TBCopy(TabHdr** tab, int at, int count, const void* elements, int size);
UtilExport int TBDelete(TabHdr** tab, int start, int count, int size);

template<class T>
class Tab : public MaxHeapOperators {
public:
    Tab() : header_(nullptr) {}
    Tab(const Tab&) = delete;
    Tab& operator=(const Tab&) = delete;
    ~Tab() {
        if (header_)
            TBMakeSize(&header_, 0, elementSize());
    }

    int Count() const { return header_ ? header_->count : 0; }
    T& operator[](int i) { return reinterpret_cast<T*>(header_ + 1)[i]; }
    const T& operator[](int i) const { return reinterpret_cast<const T*>(header_ + 1)[i]; }
    int Append(int count, const T* elements, int extra = 0) {
        return TBInsertAt(&header_, Count(), count, elements, elementSize(), extra);
    }
    int Insert(int at, int count, const T* elements) {
        return TBInsertAt(&header_, at, count, elements, elementSize(), 0);
    }
    int Delete(int start, int count) { return TBDelete(&header_, start, count, elementSize()); }
    void ZeroCount() { TBSetCount(&header_, 0, elementSize(), FALSE); }

private:
    static int elementSize() { return static_cast<int>(sizeof(T)); }

    TabHdr* header_;
};
