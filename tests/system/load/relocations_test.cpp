// What the loader has to change when it moves a file of ours.
#include "tests/support/files.h"
#include "tests/support/pe_file.h"
#include "tests/support/program_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::Key;

std::vector<std::wstring> OwnFiles() {
    std::vector<std::wstring> files;
    for (const std::wstring& name : ListFolder(ProgramFolder())) {
        const std::wstring ending = name.substr(name.size() < 4 ? 0 : name.size() - 4);
        if (ending == L".gup" || ending == L".dll" || ending == L".exe")
            files.push_back(name);
    }
    return files;
}

// A 32-bit relocation (HIGHLOW) in a 64-bit file is an offset that the linker took for an address:
// the loader adds the distance of the move to it, and the first use of it ends the host.
TEST(Relocations, AreAllOfWholeAddresses) {
    const auto files = OwnFiles();
    EXPECT_THAT(files, Contains(L"OrvRendering.gup"));
    EXPECT_THAT(files, Contains(L"core.dll"));
    EXPECT_GT(files.size(), 10U);
    for (const std::wstring& name : files) {
        const auto kinds = PeFile(ProgramFolder() + L"\\" + name).relocations();
        for (const auto& kind : kinds)
            EXPECT_THAT(kind.first, AnyOf(IMAGE_REL_BASED_DIR64, IMAGE_REL_BASED_ABSOLUTE))
                << std::string(name.begin(), name.end()) << ": " << kind.second << " relocations";
        EXPECT_THAT(kinds, Contains(Key(IMAGE_REL_BASED_DIR64)))
            << std::string(name.begin(), name.end()) << " cannot be moved";
    }
}

} // namespace
} // namespace test
} // namespace orv
