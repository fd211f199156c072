// The host's heap: the process heap with a count of the blocks in use.
#include "MaxHeap.h"
#include "base/windows.h"
#include "standin/sdk/include/standin/maxutil.h"

namespace {

volatile LONG64 blockCount = 0;

void* Allocate(size_t size) {
    void* block = HeapAlloc(GetProcessHeap(), 0, size);
    if (block)
        InterlockedIncrement64(&blockCount);
    return block;
}

void Release(void* block) {
    if (!block)
        return;
    InterlockedDecrement64(&blockCount);
    HeapFree(GetProcessHeap(), 0, block);
}

// An aligned block stands behind a pointer to the block that really was allocated.
void*& HiddenBlock(void* aligned) {
    return static_cast<void**>(aligned)[-1];
}

} // namespace

void* MaxHeapOperators::operator new(size_t size) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, const std::nothrow_t&) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, int, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, const std::nothrow_t&, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, unsigned long) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t size, const std::nothrow_t&, unsigned long) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new(size_t, void* placement) {
    return placement;
}

void* MaxHeapOperators::operator new[](size_t size) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, const std::nothrow_t&) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, int, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, const std::nothrow_t&, const char*, int) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, unsigned long) {
    return Allocate(size);
}
void* MaxHeapOperators::operator new[](size_t size, const std::nothrow_t&, unsigned long) {
    return Allocate(size);
}

void MaxHeapOperators::operator delete(void* ptr) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, const std::nothrow_t&) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, int, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, const std::nothrow_t&, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, unsigned long) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void* ptr, const std::nothrow_t&, unsigned long) {
    Release(ptr);
}
void MaxHeapOperators::operator delete(void*, void*) {}

void MaxHeapOperators::operator delete[](void* ptr) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, const std::nothrow_t&) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, int, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, const std::nothrow_t&, const char*, int) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, unsigned long) {
    Release(ptr);
}
void MaxHeapOperators::operator delete[](void* ptr, const std::nothrow_t&, unsigned long) {
    Release(ptr);
}

void* MaxHeapOperators::aligned_malloc(size_t size, size_t alignment) {
    if (alignment < sizeof(void*))
        alignment = sizeof(void*);
    void* block = Allocate(size + alignment + sizeof(void*));
    if (!block)
        return nullptr;
    const UINT_PTR first = reinterpret_cast<UINT_PTR>(block) + sizeof(void*);
    void* aligned = reinterpret_cast<void*>((first + alignment - 1) / alignment * alignment);
    HiddenBlock(aligned) = block;
    return aligned;
}

void* MaxHeapOperators::aligned_realloc(void* ptr, size_t size, size_t alignment) {
    void* larger = aligned_malloc(size, alignment);
    if (!ptr || !larger)
        return larger;
    const char* block = static_cast<char*>(HiddenBlock(ptr));
    const size_t offset = static_cast<size_t>(static_cast<char*>(ptr) - block);
    const size_t old = HeapSize(GetProcessHeap(), 0, block) - offset;
    CopyMemory(larger, ptr, old < size ? old : size);
    aligned_free(ptr);
    return larger;
}

void MaxHeapOperators::aligned_free(void* ptr) {
    if (ptr)
        Release(HiddenBlock(ptr));
}

long long standin_heap_block_count(void) {
    return InterlockedOr64(&blockCount, 0);
}
