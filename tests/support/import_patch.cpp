#include "tests/support/import_patch.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace orv {
namespace test {
namespace {

const IMAGE_IMPORT_DESCRIPTOR* FirstImport(const char* base) {
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const nt = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const DWORD at = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    return at == 0 ? nullptr : reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + at);
}

// The place in the module where the address of function `name` stands; null when it has none.
ULONGLONG* FindSlot(char* base, const char* name) {
    for (const auto* library = FirstImport(base); library != nullptr && library->Name != 0;
         ++library) {
        const auto* thunk =
            reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->FirstThunk);
        for (; thunk->u1.AddressOfData != 0; ++thunk, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL64(thunk->u1.Ordinal))
                continue;
            const auto* const import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + thunk->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0)
                return &slot->u1.Function;
        }
    }
    return nullptr;
}

} // namespace

ImportPatch::ImportPatch(HMODULE module, const char* name, ULONGLONG replacement)
    : slot_(FindSlot(reinterpret_cast<char*>(module), name)) {
    if (slot_ == nullptr)
        throw std::runtime_error(std::string("the module does not import ") + name);
    original_ = *slot_;
    put(replacement);
}

ImportPatch::~ImportPatch() {
    put(original_);
}

void ImportPatch::put(ULONGLONG function) const {
    DWORD protection = 0;
    ::VirtualProtect(slot_, sizeof(*slot_), PAGE_READWRITE, &protection);
    *slot_ = function;
    ::VirtualProtect(slot_, sizeof(*slot_), protection, &protection);
}

} // namespace test
} // namespace orv
