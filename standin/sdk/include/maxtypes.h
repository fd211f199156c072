// Basic types of the host.
#pragma once

#include "MaxHeap.h"
#include "strbasic.h"

typedef unsigned long ulong;
typedef unsigned char uchar;
typedef unsigned char UBYTE;
typedef unsigned short UWORD;
typedef ULONG SClass_ID;
typedef int TimeValue;

#define TIME_TICKSPERSEC 4800

enum IOResult { IO_OK = 0, IO_END = 1, IO_ERROR = 2, IO_INTERRUPT = 3 };

// Names one kind of plug-in object; the second part of a plug-in's own is never 0.
class Class_ID : public MaxHeapOperators {
public:
    Class_ID() : a_(0xffffffff), b_(0xffffffff) {}
    Class_ID(const Class_ID& other) : a_(other.a_), b_(other.b_) {}
    Class_ID(ulong aa, ulong bb) : a_(aa), b_(bb) {}

    ULONG PartA() const { return a_; }
    ULONG PartB() const { return b_; }
    void SetPartA(ulong part) { a_ = part; }
    void SetPartB(ulong part) { b_ = part; }

    bool operator==(const Class_ID& other) const { return a_ == other.a_ && b_ == other.b_; }
    bool operator!=(const Class_ID& other) const { return !(*this == other); }
    bool operator<(const Class_ID& other) const {
        return b_ < other.b_ || (b_ == other.b_ && a_ < other.a_);
    }
    Class_ID& operator=(const Class_ID& other) {
        a_ = other.a_;
        b_ = other.b_;
        return *this;
    }

private:
    ULONG a_;
    ULONG b_;
};
