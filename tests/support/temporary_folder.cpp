#include "tests/support/temporary_folder.h"

#include "base/windows.h"
#include "tests/support/files.h"

#include <array>
#include <atomic>

namespace orv {
namespace test {
namespace {

std::wstring UniqueRoot() {
    static std::atomic<unsigned> counter{0};
    std::array<wchar_t, MAX_PATH + 1> temporary{};
    ::GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
    return std::wstring(temporary.data()) + L"orv-test-" +
           std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
}

} // namespace

TemporaryFolder::TemporaryFolder(const std::wstring& name)
    : root_(UniqueRoot()), path_(root_ + L"\\" + name) {
    DeleteTree(root_);
    MakeFolders(path_);
}

TemporaryFolder::~TemporaryFolder() {
    DeleteTree(root_);
}

} // namespace test
} // namespace orv
