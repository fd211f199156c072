#include "tests/support/handle_count.h"

#include "base/windows.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace orv {
namespace test {

namespace {

// One entry of the system's table of handles (information class 16).
struct HandleEntry {
    std::uint16_t processId; // the lower half
    std::uint16_t backTraceIndex;
    std::uint8_t objectType;
    std::uint8_t attributes;
    std::uint16_t value;
    void* object;
    std::uint32_t access;
};

struct HandleTable {
    std::uint32_t count;
    HandleEntry entries[1];
};

constexpr int kSystemHandleInformation = 16;
constexpr NTSTATUS kBufferTooSmall = static_cast<NTSTATUS>(0xC0000004);

using QuerySystem = NTSTATUS(WINAPI*)(int, void*, ULONG, ULONG*);

std::size_t CountInSystemTable() {
    const HMODULE ntdll = ::GetModuleHandleW(L"ntdll.dll");
    const auto query = reinterpret_cast<QuerySystem>(
        reinterpret_cast<void*>(::GetProcAddress(ntdll, "NtQuerySystemInformation")));
    std::vector<std::uint64_t> buffer(1 << 13);
    for (;;) {
        ULONG used = 0;
        const NTSTATUS status = query(kSystemHandleInformation, buffer.data(),
                                      static_cast<ULONG>(buffer.size() * sizeof(buffer[0])), &used);
        if (status == 0)
            break;
        if (status != kBufferTooSmall)
            throw std::runtime_error("the system's handles cannot be listed");
        buffer.resize(buffer.size() * 2);
    }
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    const auto self = static_cast<std::uint16_t>(::GetCurrentProcessId());
    return static_cast<std::size_t>(
        std::count_if(table->entries, table->entries + table->count,
                      [self](const HandleEntry& entry) { return entry.processId == self; }));
}

} // namespace

std::size_t CountOpenHandles() {
    DWORD count = 0;
    if (::GetProcessHandleCount(::GetCurrentProcess(), &count) && count != 0)
        return count;
    return CountInSystemTable(); // Wine answers 0 above
}

} // namespace test
} // namespace orv
