// The host's own heap. Whatever the host may free derives from this class.
#pragma once

#include "utilexp.h"

#include <stddef.h>

namespace std {
struct nothrow_t;
}

class MaxHeapOperators {
public:
    UtilExport static void* operator new(size_t size);
    UtilExport static void* operator new(size_t size, const std::nothrow_t& e);
    UtilExport static void* operator new(size_t size, const char* filename, int line);
    UtilExport static void* operator new(size_t size, int block_type, const char* filename,
                                         int line);
    UtilExport static void* operator new(size_t size, const std::nothrow_t& e, const char* filename,
                                         int line);
    UtilExport static void* operator new(size_t size, unsigned long flags);
    UtilExport static void* operator new(size_t size, const std::nothrow_t& e, unsigned long flags);
    UtilExport static void* operator new(size_t size, void* placement);

    UtilExport static void* operator new[](size_t size);
    UtilExport static void* operator new[](size_t size, const std::nothrow_t& e);
    UtilExport static void* operator new[](size_t size, const char* filename, int line);
    UtilExport static void* operator new[](size_t size, int block_type, const char* filename,
                                           int line);
    UtilExport static void* operator new[](size_t size, const std::nothrow_t& e,
                                           const char* filename, int line);
    UtilExport static void* operator new[](size_t size, unsigned long flags);
    UtilExport static void* operator new[](size_t size, const std::nothrow_t& e,
                                           unsigned long flags);

    UtilExport static void operator delete(void* ptr);
    UtilExport static void operator delete(void* ptr, const std::nothrow_t& e);
    UtilExport static void operator delete(void* ptr, const char* filename, int line);
    UtilExport static void operator delete(void* ptr, int block_type, const char* filename,
                                           int line);
    UtilExport static void operator delete(void* ptr, const std::nothrow_t& e, const char* filename,
                                           int line);
    UtilExport static void operator delete(void* ptr, unsigned long flags);
    UtilExport static void operator delete(void* ptr, const std::nothrow_t& e, unsigned long flags);
    UtilExport static void operator delete(void* ptr, void* placement);

    UtilExport static void operator delete[](void* ptr);
    UtilExport static void operator delete[](void* ptr, const std::nothrow_t& e);
    UtilExport static void operator delete[](void* ptr, const char* filename, int line);
    UtilExport static void operator delete[](void* ptr, int block_type, const char* filename,
                                             int line);
    UtilExport static void operator delete[](void* ptr, const std::nothrow_t& e,
                                             const char* filename, int line);
    UtilExport static void operator delete[](void* ptr, unsigned long flags);
    UtilExport static void operator delete[](void* ptr, const std::nothrow_t& e,
                                             unsigned long flags);

    UtilExport static void* aligned_malloc(size_t size, size_t alignment);
    UtilExport static void* aligned_realloc(void* ptr, size_t size, size_t alignment);
    UtilExport static void aligned_free(void* ptr);
};
