#pragma once

#include "maxtypes.h"

// Names one interface of an object.
class Interface_ID : public MaxHeapOperators {
public:
    Interface_ID() : a_(0xffffffff), b_(0xffffffff) {}
    Interface_ID(const Interface_ID& other) : a_(other.a_), b_(other.b_) {}
    Interface_ID(ulong aa, ulong bb) : a_(aa), b_(bb) {}

    ULONG PartA() { return a_; }
    ULONG PartB() { return b_; }

    bool operator==(const Interface_ID& other) const { return a_ == other.a_ && b_ == other.b_; }
    bool operator!=(const Interface_ID& other) const { return !(*this == other); }
    Interface_ID& operator=(const Interface_ID& other) {
        a_ = other.a_;
        b_ = other.b_;
        return *this;
    }

private:
    ULONG a_;
    ULONG b_;
};
