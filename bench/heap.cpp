#include "bench/heap.h"

#include <atomic>
#include <malloc.h>

namespace {

std::atomic<bool> isCounting(false);
std::atomic<std::int64_t> bytesInUse(0);
std::atomic<std::int64_t> mostInUse(0);

std::int64_t SizeOf(void* block) {
    return block == nullptr ? 0 : static_cast<std::int64_t>(_msize(block));
}

void Count(std::int64_t bytes) {
    const std::int64_t now = bytesInUse += bytes;
    std::int64_t most = mostInUse;
    while (now > most && !mostInUse.compare_exchange_weak(most, now)) {
    }
}

} // namespace

// The linker turns every call of malloc into one of __wrap_malloc, and __real_malloc into malloc.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void __wrap_free(void* block);

void* __wrap_malloc(std::size_t size) {
    void* const block = __real_malloc(size);
    if (isCounting)
        Count(SizeOf(block));
    return block;
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    void* const block = __real_calloc(count, size);
    if (isCounting)
        Count(SizeOf(block));
    return block;
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (!isCounting)
        return __real_realloc(block, size);
    const std::int64_t before = SizeOf(block);
    void* const moved = __real_realloc(block, size);
    if (moved != nullptr || size == 0)
        Count(SizeOf(moved) - before);
    return moved;
}

void __wrap_free(void* block) {
    if (isCounting)
        Count(-SizeOf(block));
    __real_free(block);
}
}

namespace orv {
namespace bench {

HeapCount::HeapCount() {
    bytesInUse = 0;
    mostInUse = 0;
    isCounting = true;
}

HeapCount::~HeapCount() {
    isCounting = false;
}

std::int64_t HeapCount::inUse() const {
    return bytesInUse;
}

std::int64_t HeapCount::peak() const {
    return mostInUse;
}

} // namespace bench
} // namespace orv
