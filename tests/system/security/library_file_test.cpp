// What the plug-in's file promises Windows before a line of it runs.
#include "base/windows.h"
#include "tests/support/pe_file.h"
#include "tests/system/abi/pe_names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orv {
namespace test {
namespace {

class LibraryFile : public ::testing::Test {
protected:
    const PeFile file{L"OrvRendering.gup"};
};

// Without the whole address space there is little for randomisation to choose from.
TEST_F(LibraryFile, AsksForRandomPlacesInTheWholeAddressSpace) {
    const WORD promises = file.header().OptionalHeader.DllCharacteristics;
    EXPECT_NE(promises & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
    EXPECT_NE(promises & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA, 0);
}

TEST_F(LibraryFile, IsOfTheWindowsSubsystem) {
    EXPECT_EQ(file.header().OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
}

TEST_F(LibraryFile, SaysNothingOfWhenItWasLinked) {
    EXPECT_EQ(file.header().FileHeader.TimeDateStamp, 0U);
}

TEST_F(LibraryFile, RunsNoData) {
    EXPECT_NE(file.header().OptionalHeader.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT,
              0);
}

TEST_F(LibraryFile, HasNoSectionThatIsBothWrittenAndRun) {
    constexpr DWORD kBoth = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
    bool hasCode = false;
    for (const IMAGE_SECTION_HEADER& section : file.sections()) {
        const std::string name(reinterpret_cast<const char*>(section.Name),
                               ::strnlen(reinterpret_cast<const char*>(section.Name), 8));
        EXPECT_NE(section.Characteristics & kBoth, kBoth) << name;
        hasCode = hasCode || (section.Characteristics & IMAGE_SCN_MEM_EXECUTE) != 0;
    }
    EXPECT_TRUE(hasCode);
}

TEST_F(LibraryFile, LoadsNothingLateByName) {
    EXPECT_EQ(file.header()
                  .OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT]
                  .VirtualAddress,
              0U);
}

// Windows finds a library of such a list before or beside the host's own, never by a search that
// reaches the current folder first: they are the host's, which are loaded already when it loads the
// plug-in, and Windows' own.
TEST_F(LibraryFile, ImportsOnlyFromTheHostAndWindows) {
    const std::set<std::string> known = {
        // the host
        "core.dll", "gup.dll", "maxutil.dll", "paramblk2.dll", "maxscrpt.dll", "menus.dll",
        // Windows
        "advapi32.dll", "bcrypt.dll", "comctl32.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll",
        "msimg32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll", "shlwapi.dll",
        "user32.dll", "ws2_32.dll"};
    const HMODULE module =
        ::LoadLibraryExW(L"OrvRendering.gup", nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(module, nullptr) << ::GetLastError();
    const auto imports = ImportedNames(module);
    EXPECT_GT(imports.size(), 3U);
    for (const auto& library : imports)
        EXPECT_EQ(known.count(library.first), 1U) << library.first;
    // The plug-in loads nothing while it runs. LoadLibraryW is there for the run-time's random
    // numbers, which name advapi32.dll: Windows takes that one from its own folder always.
    for (const auto& library : imports) {
        for (const char* name :
             {"LoadLibraryA", "LoadLibraryExA", "LoadLibraryExW", "LoadPackagedLibrary"})
            EXPECT_EQ(library.second.count(name), 0U) << library.first << ": " << name;
    }
    ::FreeLibrary(module);
}

} // namespace
} // namespace test
} // namespace orv
