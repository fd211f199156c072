// What the GNU run-time leaves behind when a library is unloaded, put right. Its threads are
// emulated on Windows: the first guarded static and the first thread-local value make semaphores
// that nothing closes, and a host's thread that meets the emulation gets an event and a handle of
// itself, which are closed only when that thread ends. Every load and unload of the plug-in would
// cost the host four handles.
#ifdef __MINGW32__

#include "base/windows.h"

#include <cerrno>
#include <cstdlib>

namespace {

// ---- Guards of function-local statics, as the C++ ABI lays them out: the first byte says that the
// object is there, the second that a thread is making it.

SRWLOCK guardLock = SRWLOCK_INIT;
CONDITION_VARIABLE guardChanged = CONDITION_VARIABLE_INIT;

constexpr int kMade = 0;
constexpr int kBusy = 1;

void EndGuard(volatile char* guard, bool made) {
    AcquireSRWLockExclusive(&guardLock);
    guard[kBusy] = 0;
    guard[kMade] = made ? 1 : 0;
    ReleaseSRWLockExclusive(&guardLock);
    WakeAllConditionVariable(&guardChanged);
}

// ---- Thread-local values. The emulation's own keep a lock; Windows' fiber-local ones need none,
// and call the destructor at a thread's end as well.

constexpr int kMostKeys = 32; // the run-time needs two or three
SRWLOCK keyLock = SRWLOCK_INIT;
DWORD keys[kMostKeys];
int keyCount = 0;

} // namespace

// The names are the run-time's own.
// NOLINTBEGIN(bugprone-reserved-identifier)

extern "C" {

int __cxa_guard_acquire(volatile char* guard);
void __cxa_guard_release(volatile char* guard);
void __cxa_guard_abort(volatile char* guard);

int __cxa_guard_acquire(volatile char* guard) {
    AcquireSRWLockExclusive(&guardLock);
    while (guard[kBusy] != 0 && guard[kMade] == 0)
        SleepConditionVariableSRW(&guardChanged, &guardLock, INFINITE, 0);
    const bool toMake = guard[kMade] == 0;
    if (toMake)
        guard[kBusy] = 1;
    ReleaseSRWLockExclusive(&guardLock);
    return toMake ? 1 : 0;
}

void __cxa_guard_release(volatile char* guard) {
    EndGuard(guard, true);
}

void __cxa_guard_abort(volatile char* guard) {
    EndGuard(guard, false);
}

// The linker turns each call of pthread_key_create and its like into a call of these (--wrap).
int __wrap_pthread_key_create(unsigned* key, void(WINAPI* destroy)(void*));
int __wrap_pthread_key_delete(unsigned key);
int __wrap_pthread_setspecific(unsigned key, const void* value);
void* __wrap_pthread_getspecific(unsigned key);

int __wrap_pthread_key_create(unsigned* key, void(WINAPI* destroy)(void*)) {
    AcquireSRWLockExclusive(&keyLock);
    const DWORD index = keyCount < kMostKeys ? FlsAlloc(destroy) : FLS_OUT_OF_INDEXES;
    const bool made = index != FLS_OUT_OF_INDEXES;
    if (made)
        keys[keyCount++] = index;
    ReleaseSRWLockExclusive(&keyLock);
    *key = index;
    return made ? 0 : EAGAIN;
}

int __wrap_pthread_key_delete(unsigned) {
    return 0; // all of them go with the library
}

int __wrap_pthread_setspecific(unsigned key, const void* value) {
    return FlsSetValue(key, const_cast<void*>(value)) != FALSE ? 0 : EINVAL;
}

void* __wrap_pthread_getspecific(unsigned key) {
    const DWORD error = GetLastError(); // which the call below clears
    void* const value = FlsGetValue(key);
    SetLastError(error);
    return value;
}

// The library's own directory of thread-local storage, made by the linker.
extern const IMAGE_TLS_DIRECTORY _tls_used;
}

// NOLINTEND(bugprone-reserved-identifier)

namespace {

// The thread that unloads the library takes leave of it as an ending thread does.
void LeaveLibrary() {
    for (int i = 0; i < keyCount; ++i)
        FlsFree(keys[i]);
    const auto* callback =
        reinterpret_cast<const PIMAGE_TLS_CALLBACK*>(_tls_used.AddressOfCallBacks);
    for (; callback != nullptr && *callback != nullptr; ++callback)
        (*callback)(nullptr, DLL_THREAD_DETACH, nullptr);
}

// Before every other constructor, so that LeaveLibrary comes after every static destructor.
__attribute__((constructor(101))) void Arrive() {
    std::atexit(&LeaveLibrary);
}

} // namespace

#endif
