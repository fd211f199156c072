#include "tests/system/abi/pe_names.h"

#include <algorithm>
#include <cctype>

namespace orv {
namespace test {
namespace {

template<class T>
const T* At(HMODULE module, DWORD offset) {
    return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module) + offset);
}

DWORD Directory(HMODULE module, int entry) {
    const auto dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto header = At<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(dos->e_lfanew));
    return header->OptionalHeader.DataDirectory[entry].VirtualAddress;
}

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

std::set<std::string> ExportedNames(HMODULE module) {
    std::set<std::string> names;
    const DWORD offset = Directory(module, IMAGE_DIRECTORY_ENTRY_EXPORT);
    if (offset == 0)
        return names;
    const auto directory = At<IMAGE_EXPORT_DIRECTORY>(module, offset);
    const DWORD* entries = At<DWORD>(module, directory->AddressOfNames);
    for (DWORD i = 0; i < directory->NumberOfNames; ++i)
        names.insert(At<char>(module, entries[i]));
    return names;
}

std::map<std::string, std::set<std::string>> ImportedNames(HMODULE module) {
    std::map<std::string, std::set<std::string>> names;
    const DWORD offset = Directory(module, IMAGE_DIRECTORY_ENTRY_IMPORT);
    if (offset == 0)
        return names;
    for (auto library = At<IMAGE_IMPORT_DESCRIPTOR>(module, offset); library->Name; ++library) {
        auto& ofLibrary = names[Lower(At<char>(module, library->Name))];
        for (auto entry = At<ULONGLONG>(module, library->OriginalFirstThunk); *entry; ++entry)
            if (*entry & IMAGE_ORDINAL_FLAG64)
                ofLibrary.insert("#" + std::to_string(*entry & 0xffff));
            else
                ofLibrary.insert(
                    At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(*entry))->Name);
    }
    return names;
}

} // namespace test
} // namespace orv
