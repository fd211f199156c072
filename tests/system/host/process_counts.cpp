#include "tests/system/host/process_counts.h"

#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/support/handle_count.h"

#include <tlhelp32.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>

extern "C" void* NTAPI RtlGetCurrentPeb(); // of ntdll, declared in no public header

namespace {

// GetGuiResources answers 0 under Wine, so the table of GDI objects is read at its source.

struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type; // 0 for a free entry
    std::uint8_t flags;
    std::uint64_t userData;
};

constexpr std::size_t kGdiTableInPeb = 0xF8;
constexpr int kGdiEntries = 0x4000;

int CountGdiObjects() {
    const auto* const peb = static_cast<const unsigned char*>(RtlGetCurrentPeb());
    const GdiEntry* table = nullptr;
    std::memcpy(&table, peb + kGdiTableInPeb, sizeof(table));
    if (table == nullptr)
        return 0;
    int used = 0;
    for (int i = 0; i < kGdiEntries; ++i)
        used += table[i].type != 0 ? 1 : 0;
    return used;
}

int CountThreads() {
    const orv::FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    if (!snapshot)
        throw std::runtime_error("the system does not list its threads");
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    int own = 0;
    for (BOOL more = Thread32First(snapshot.get(), &entry); more != FALSE;
         more = Thread32Next(snapshot.get(), &entry)) {
        own += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    return own;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId())
        ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int CountWindows() {
    int count = 0;
    EnumWindows(&CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

// The mapped and committed memory of the process, by a walk over all of its addresses.
void CountMemory(ProcessCounts& counts) {
    MEMORY_BASIC_INFORMATION area = {};
    const void* lastView = nullptr;
    std::uint64_t privateBytes = 0;
    for (const unsigned char* at = nullptr; VirtualQuery(at, &area, sizeof(area)) == sizeof(area);
         at = static_cast<const unsigned char*>(area.BaseAddress) + area.RegionSize) {
        if (area.Type == MEM_MAPPED && area.AllocationBase != lastView) {
            lastView = area.AllocationBase;
            ++counts.mappedViews;
        }
        if (area.Type == MEM_PRIVATE && area.State == MEM_COMMIT)
            privateBytes += area.RegionSize;
    }
    counts.privateKib = static_cast<int>(privateBytes / 1024);
}

int CountTemporaryFiles() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return static_cast<int>(orv::test::ListFolder(folder).size());
}

} // namespace

ProcessCounts CountProcess() {
    ProcessCounts counts;
    counts.handles = static_cast<int>(orv::test::CountOpenHandles());
    counts.gdiObjects = CountGdiObjects();
    counts.threads = CountThreads();
    counts.windows = CountWindows();
    counts.temporaryFiles = CountTemporaryFiles();
    CountMemory(counts);
    return counts;
}

std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts) {
    return out << counts.handles << " handles, " << counts.gdiObjects << " GDI objects, "
               << counts.windows << " windows, " << counts.threads << " threads, "
               << counts.mappedViews << " mapped views, " << counts.privateKib << " KiB of memory, "
               << counts.temporaryFiles << " temporary files";
}
