#include "tests/support/program_folder.h"

#include "base/windows.h"

#include <stdexcept>
#include <vector>

namespace orv {
namespace test {

std::wstring ProgramFolder() {
    std::vector<wchar_t> path(32768); // the longest path that Windows has
    const DWORD length =
        ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size())
        throw std::runtime_error("GetModuleFileNameW error no:" + std::to_string(::GetLastError()));
    const std::wstring program(path.data(), length);
    return program.substr(0, program.find_last_of(L"\\/"));
}

} // namespace test
} // namespace orv
