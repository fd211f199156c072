// Takes the place of one virtual function of a host's object.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <cstring>

namespace orv {
namespace test {

// While it lives, calls of entry `slot` in the virtual table of `object`, and of every object with
// the same table, reach `replacement`. Its first argument is the object.
template<class Result, class... Arguments>
class SlotPatch : private rud_Noncopyable {
public:
    using Function = Result (*)(void*, Arguments...);

    SlotPatch(void* object, int slot, Function replacement)
        : place_(*static_cast<void***>(object) + slot), original_(*place_) {
        void* address = nullptr;
        std::memcpy(&address, &replacement, sizeof(address));
        put(address);
    }
    ~SlotPatch() { put(original_); }

    // The function whose place is taken.
    Result original(void* object, Arguments... arguments) const {
        Function function = nullptr;
        std::memcpy(&function, &original_, sizeof(function));
        return function(object, arguments...);
    }

private:
    void put(void* function) const {
        DWORD protection = 0;
        ::VirtualProtect(place_, sizeof(*place_), PAGE_READWRITE, &protection);
        *place_ = function;
        ::VirtualProtect(place_, sizeof(*place_), protection, &protection);
    }

    void** const place_;
    void* const original_;
};

} // namespace test
} // namespace orv
