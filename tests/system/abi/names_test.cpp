// What the plug-in and the stand-in's libraries export and import, by name.
#include "base/product.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"
#include "tests/system/abi/pe_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace orv {
namespace test {
namespace {

using Names = std::set<std::string>;
using ::testing::Contains;
using ::testing::IsSubsetOf;
using ::testing::Not;
using ::testing::StartsWith;

const std::vector<std::wstring> kHostLibraries = {L"core",      L"gup",   L"maxutil",
                                                  L"ParamBlk2", L"menus", L"MAXScrpt"};

std::string Narrow(const std::wstring& ascii) {
    return std::string(ascii.begin(), ascii.end());
}

std::string Lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::vector<std::string> Lines(const std::wstring& file) {
    std::istringstream text(ReadFileBytes(file));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line.substr(0, line.find('\r')));
    return lines;
}

// What the real host's library exports, as far as this plug-in is concerned.
Names HostNames(const std::string& library) {
    Names names;
    for (const std::string& line : Lines(ProgramFolder() + L"\\abi\\host_exports.txt")) {
        const std::size_t tab = line.find('\t');
        if (line[0] != '#' && tab != std::string::npos &&
            Lower(line.substr(0, tab)) == Lower(library))
            names.insert(line.substr(tab + 1));
    }
    return names;
}

// The names of a .def file, without quotation marks and what follows them.
Names DefinedNames(const std::wstring& file) {
    Names names;
    bool inExports = false;
    for (const std::string& line : Lines(ProgramFolder() + L"\\abi\\" + file)) {
        const std::size_t first = line.find_first_not_of(" \"");
        if (line == "EXPORTS")
            inExports = true;
        else if (inExports && first != std::string::npos && line[0] == ' ')
            names.insert(line.substr(first, line.find_first_of(" \"", first) - first));
    }
    return names;
}

class LoadedPlugin : public ::testing::Test {
protected:
    HMODULE module = ::LoadLibraryW((ProgramFolder() + L"\\OrvRendering.gup").c_str());
    ~LoadedPlugin() override { ::FreeLibrary(module); }
};

TEST_F(LoadedPlugin, ExportsTheEntriesUndecoratedAndTheOneConstructor) {
    ASSERT_NE(module, nullptr) << ::GetLastError();
    EXPECT_EQ(ExportedNames(module),
              (Names{"LibDescription", "LibNumberClasses", "LibClassDesc", "LibVersion",
                     "LibInitialize", "LibShutdown", "??0VertexNormalsControl@@QEAA@XZ"}));
}

TEST_F(LoadedPlugin, ImportsFromTheHostOnlyWhatTheHostExports) {
    ASSERT_NE(module, nullptr) << ::GetLastError();
    const auto imports = ImportedNames(module);
    for (const std::wstring& name : kHostLibraries) {
        const std::string library = Lower(Narrow(name)) + ".dll";
        ASSERT_THAT(imports, Contains(::testing::Key(library)));
        EXPECT_THAT(imports.at(library), IsSubsetOf(HostNames(library))) << library;
    }
}

TEST_F(LoadedPlugin, CallsScriptsWithFourArguments) {
    ASSERT_NE(module, nullptr) << ::GetLastError();
    EXPECT_EQ(ImportedNames(module).at("maxscrpt.dll"),
              (Names{"?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@H@Z"}));
}

// An artist's machine has neither GCC's run-time libraries nor ours beside the plug-in.
TEST_F(LoadedPlugin, NeedsNoLibraryOfTheCompiler) {
    ASSERT_NE(module, nullptr) << ::GetLastError();
    for (const auto& library : ImportedNames(module)) {
        EXPECT_THAT(library.first, Not(StartsWith("lib")));
        for (const std::string& name : library.second)
            EXPECT_THAT(name, Not(StartsWith("standin_"))) << library.first;
    }
}

TEST_F(LoadedPlugin, TellsItsVersionInTheFilesProperties) {
    const std::wstring path = ProgramFolder() + L"\\OrvRendering.gup";
    DWORD ignored = 0;
    std::vector<char> block(::GetFileVersionInfoSizeW(path.c_str(), &ignored));
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(
        ::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    const auto property = [&](const wchar_t* name) {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring query = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        return ::VerQueryValueW(block.data(), query.c_str(), &text, &length)
                   ? std::wstring(static_cast<wchar_t*>(text))
                   : std::wstring();
    };
    EXPECT_EQ(property(L"ProductVersion"), kPluginVersion);
    EXPECT_EQ(property(L"FileVersion"), kPluginVersion);
    EXPECT_EQ(property(L"ProductName"), L"Orv Rendering");
    EXPECT_EQ(property(L"FileDescription"), L"Orv Rendering for 3ds Max 2019");
    EXPECT_EQ(property(L"OriginalFilename"), L"OrvRendering.gup");
    EXPECT_EQ(property(L"LegalCopyright").substr(0, 9), L"Copyright");

    void* fixed = nullptr;
    UINT size = 0;
    ASSERT_TRUE(::VerQueryValueW(block.data(), L"\\", &fixed, &size));
    const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(fixed);
    const std::wstring text = std::to_wstring(HIWORD(numbers.dwProductVersionMS)) + L"." +
                              std::to_wstring(LOWORD(numbers.dwProductVersionMS)) + L"." +
                              std::to_wstring(HIWORD(numbers.dwProductVersionLS));
    EXPECT_EQ(text, kPluginVersion);
    EXPECT_EQ(numbers.dwFileVersionMS, numbers.dwProductVersionMS);
    EXPECT_EQ(numbers.dwFileVersionLS, numbers.dwProductVersionLS);
}

class StandinLibrary : public ::testing::TestWithParam<std::wstring> {};

TEST_P(StandinLibrary, DefinesNoNameThatTheHostDoesNotHave) {
    const Names names = DefinedNames(GetParam() + L".def");
    EXPECT_FALSE(names.empty());
    EXPECT_THAT(names, IsSubsetOf(HostNames(Narrow(GetParam()) + ".dll")));
}

TEST_P(StandinLibrary, ExportsWhatItDefinesAndItsSeam) {
    const HMODULE module = ::LoadLibraryW((GetParam() + L".dll").c_str());
    ASSERT_NE(module, nullptr);
    Names expected = DefinedNames(GetParam() + L".def");
    const std::wstring seam = GetParam() + L"_seam.def";
    if (PathExists(ProgramFolder() + L"\\abi\\" + seam))
        for (const std::string& name : DefinedNames(seam)) {
            EXPECT_THAT(name, StartsWith("standin_"));
            expected.insert(name);
        }
    EXPECT_EQ(ExportedNames(module), expected);
}

INSTANTIATE_TEST_SUITE_P(All, StandinLibrary, ::testing::ValuesIn(kHostLibraries),
                         [](const auto& parameter) { return Narrow(parameter.param); });

} // namespace
} // namespace test
} // namespace orv
