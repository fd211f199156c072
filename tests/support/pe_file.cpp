#include "tests/support/pe_file.h"

#include "tests/support/files.h"

#include <stdexcept>

namespace orv {
namespace test {

PeFile::PeFile(const std::wstring& path) : bytes_(ReadFileBytes(path)) {
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes_.data());
    if (bytes_.size() < sizeof(*dos) || dos->e_magic != IMAGE_DOS_SIGNATURE ||
        static_cast<std::size_t>(dos->e_lfanew) + sizeof(*header_) > bytes_.size())
        throw std::runtime_error("no program of Windows");
    header_ = reinterpret_cast<const IMAGE_NT_HEADERS64*>(bytes_.data() + dos->e_lfanew);
    if (header_->Signature != IMAGE_NT_SIGNATURE ||
        header_->FileHeader.Machine != IMAGE_FILE_MACHINE_AMD64)
        throw std::runtime_error("no 64-bit program");
}

std::vector<IMAGE_SECTION_HEADER> PeFile::sections() const {
    const IMAGE_SECTION_HEADER* const first = IMAGE_FIRST_SECTION(header_);
    return {first, first + header_->FileHeader.NumberOfSections};
}

const char* PeFile::at(DWORD address) const {
    for (const IMAGE_SECTION_HEADER& section : sections()) {
        if (address >= section.VirtualAddress &&
            address < section.VirtualAddress + section.SizeOfRawData)
            return bytes_.data() + section.PointerToRawData + (address - section.VirtualAddress);
    }
    throw std::runtime_error("an address outside all sections");
}

std::map<int, int> PeFile::relocations() const {
    std::map<int, int> counts;
    const IMAGE_DATA_DIRECTORY& all =
        header_->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC];
    DWORD done = 0;
    while (done < all.Size) {
        const char* const start = at(all.VirtualAddress + done);
        const auto block = reinterpret_cast<const IMAGE_BASE_RELOCATION*>(start);
        if (block->SizeOfBlock < sizeof(*block))
            throw std::runtime_error("a damaged block of relocations");
        const auto first = reinterpret_cast<const WORD*>(start + sizeof(*block));
        const std::size_t count = (block->SizeOfBlock - sizeof(*block)) / sizeof(WORD);
        for (std::size_t i = 0; i < count; ++i)
            ++counts[first[i] >> 12];
        done += block->SizeOfBlock;
    }
    return counts;
}

} // namespace test
} // namespace orv
