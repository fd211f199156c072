// What Visual C++'s start-up library would supply to objects that clang compiled for its layout:
// the guards of function-local statics and the table of std::type_info. Every library made of such
// objects links this source; Visual C++ itself never compiles it.
#include "base/windows.h"

#include <limits.h>

namespace {

// One lock for all guards, as in Visual C++'s own library. Both are valid without initialisation.
SRWLOCK guardLock = SRWLOCK_INIT;
CONDITION_VARIABLE guardChanged = CONDITION_VARIABLE_INIT;

// A guard is 0 before, -1 during and above kEpochStart after the construction of its static.
const int kNotStarted = 0;
const int kBeingBuilt = -1;
const int kEpochStart = INT_MIN;
int epoch = kEpochStart;

} // namespace

extern "C" {

// A thread whose number is at or above a guard's has seen that static finished and asks no more.
extern __thread int _Init_thread_epoch;
__thread int _Init_thread_epoch = kEpochStart;

void _Init_thread_header(int* guard) {
    AcquireSRWLockExclusive(&guardLock);
    while (*guard == kBeingBuilt)
        SleepConditionVariableSRW(&guardChanged, &guardLock, INFINITE, 0);
    if (*guard == kNotStarted)
        *guard = kBeingBuilt;
    else
        _Init_thread_epoch = epoch;
    ReleaseSRWLockExclusive(&guardLock);
}

void _Init_thread_footer(int* guard) {
    AcquireSRWLockExclusive(&guardLock);
    *guard = ++epoch;
    _Init_thread_epoch = epoch;
    ReleaseSRWLockExclusive(&guardLock);
    WakeAllConditionVariable(&guardChanged);
}

void _Init_thread_abort(int* guard) {
    AcquireSRWLockExclusive(&guardLock);
    *guard = kNotStarted;
    ReleaseSRWLockExclusive(&guardLock);
    WakeAllConditionVariable(&guardChanged);
}

// Run-time type descriptors point here. Nothing calls through the table: the host reads names only.
extern const void* const typeInfoTable[2] __asm__("??_7type_info@@6B@");
const void* const typeInfoTable[2] = {nullptr, nullptr};
}
