#pragma once

#include "MaxHeap.h"

namespace MaxSDK {
namespace Util {

class Noncopyable : public MaxHeapOperators {
protected:
    Noncopyable() {}
    ~Noncopyable() {}

private:
    Noncopyable(const Noncopyable&);
    Noncopyable& operator=(const Noncopyable&);
};

} // namespace Util
} // namespace MaxSDK
