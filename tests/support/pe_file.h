// A program or library of Windows as its file describes it; nothing of it runs.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orv {
namespace test {

class PeFile {
public:
    // Throws std::runtime_error for a file that is no 64-bit program or library.
    explicit PeFile(const std::wstring& path);

    const IMAGE_NT_HEADERS64& header() const { return *header_; }
    std::vector<IMAGE_SECTION_HEADER> sections() const;

    // Where the file asks to be placed.
    std::uintptr_t preferredBase() const {
        return static_cast<std::uintptr_t>(header_->OptionalHeader.ImageBase);
    }

    // How many relocations of each kind (IMAGE_REL_BASED_...) the file has.
    std::map<int, int> relocations() const;

private:
    const char* at(DWORD address) const; // relative to the base
    std::string bytes_;
    const IMAGE_NT_HEADERS64* header_;
};

} // namespace test
} // namespace orv
