// Calls every function of abi_facts.h, as the host's headers in use declare it, on an object whose
// virtual table only notes which of its entries was called.
#include "max.h"
// the host's own header comes first
#include "gup.h"
#include "imenuman.h"
#include "imenus.h"
#include "iparamb2.h"

#include "host/abi_facts.h"
#include "host/abi_slots.h"

namespace {

const int kEntries = 300; // more than the largest table that is asked about
int reached = -1;

// The referent of anything that a function takes or returns by reference; never read.
void* anything[64];

// On x64 the caller removes the arguments, so an entry may ignore them.
template<int number>
void* Entry() {
    reached = number;
    return anything;
}

typedef void* (*Function)();

// In halves, because compilers limit how deep templates nest.
template<int first, int count>
struct Fill {
    static void Into(Function* table) {
        Fill<first, count / 2>::Into(table);
        Fill<first + count / 2, count - count / 2>::Into(table);
    }
};
template<int first>
struct Fill<first, 1> {
    static void Into(Function* table) { table[first] = Entry<first>; }
};

// An object of the host as far as a call can see: it begins with the pointer to its virtual table.
struct Recorder {
    const Function* table;
    void* rest[64];
};

Function entries[kEntries];
Recorder recorder;

template<class T>
T* AnObject() {
    Fill<0, kEntries>::Into(entries);
    recorder.table = entries;
    reached = -1;
    return reinterpret_cast<T*>(&recorder);
}

template<class T>
struct Any {
    static T Value() { return T(); }
};
template<class T>
struct Any<T&> {
    static T& Value() { return *reinterpret_cast<T*>(anything); }
};

template<class T, class Result, class... Arguments>
int Reached(Result (T::*function)(Arguments...)) {
    (AnObject<T>()->*function)(Any<Arguments>::Value()...);
    return reached;
}
template<class T, class Result, class... Arguments>
int Reached(Result (T::*function)(Arguments...) const) {
    (AnObject<T>()->*function)(Any<Arguments>::Value()...);
    return reached;
}

typedef int (*Question)();

#define ORV_ASK(type, name, number, function, result, arguments, qualifier)                        \
    int type##_##name() {                                                                          \
        return Reached(static_cast<result(type::*) arguments qualifier>(&type::function));         \
    }
ORV_HOST_SLOTS(ORV_ASK)

// Only a derived class may name a protected function. Nobody makes an object of it.
#define ORV_ASK_PROTECTED(type, name, number, function, result, arguments, qualifier)              \
    struct type##_##name##_Access : type {                                                         \
        type##_##name##_Access();                                                                  \
        static int Ask() {                                                                         \
            return Reached(static_cast<result(type::*) arguments qualifier>(                       \
                &type##_##name##_Access::function));                                               \
        }                                                                                          \
    };
ORV_HOST_PROTECTED_SLOTS(ORV_ASK_PROTECTED)

#define ORV_QUESTION(type, name, number, function, result, arguments, qualifier) type##_##name,
#define ORV_PROTECTED_QUESTION(type, name, number, function, result, arguments, qualifier)         \
    type##_##name##_Access::Ask,
const Question kQuestions[] = {
    // clang-format off
    ORV_HOST_SLOTS(ORV_QUESTION)
    ORV_HOST_PROTECTED_SLOTS(ORV_PROTECTED_QUESTION)
    // clang-format on
};

typedef Interface_ID (*IdMaker)();

#define ORV_MAKE_ID(name, spelling, first, second)                                                 \
    Interface_ID name##Id() {                                                                      \
        return spelling;                                                                           \
    }
ORV_HOST_INTERFACE_IDS(ORV_MAKE_ID)

#define ORV_ID_MAKER(name, spelling, first, second) name##Id,
const IdMaker kIdMakers[] = {ORV_HOST_INTERFACE_IDS(ORV_ID_MAKER)};

template<class Derived>
int ElementOffset() {
    Derived* object = AnObject<Derived>();
    IMenuElement* element = object;
    return static_cast<int>(reinterpret_cast<char*>(element) - reinterpret_cast<char*>(object));
}

} // namespace

int orv_host_slot_reached(int row) {
    const int rows = sizeof(kQuestions) / sizeof(kQuestions[0]);
    return row >= 0 && row < rows ? kQuestions[row]() : -1;
}
int orv_host_interface_id(int row, unsigned* a, unsigned* b) {
    const int rows = sizeof(kIdMakers) / sizeof(kIdMakers[0]);
    if (row < 0 || row >= rows)
        return 0;
    Interface_ID id = kIdMakers[row]();
    *a = id.PartA();
    *b = id.PartB();
    return 1;
}
int orv_host_menu_element_offset(void) {
    return ElementOffset<IMenu>();
}
int orv_host_menu_item_element_offset(void) {
    return ElementOffset<IMenuItem>();
}
