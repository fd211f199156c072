// A library that Windows cannot load: the host says what is missing, and goes on.
#include "standin/maxutil.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/shell/plugin_in_host.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

// The plug-in's file with every `from` replaced by `to`, which is as long.
std::string PluginWith(const std::string& from, const std::string& to) {
    std::string bytes = ReadFileBytes(PluginPath());
    int replaced = 0;
    for (std::size_t at = bytes.find(from); at != std::string::npos; at = bytes.find(from, at)) {
        bytes.replace(at, to.size(), to);
        ++replaced;
    }
    if (replaced == 0 || from.size() != to.size())
        throw std::runtime_error("the library does not contain " + from);
    return bytes;
}

struct Lack {
    const char* name;
    const char* from;
    const char* to;
    const wchar_t* reason;
};

class LackingLibrary : public ::testing::TestWithParam<Lack> {};

TEST_P(LackingLibrary, IsRefusedWithTheNameOfWhatIsMissing) {
    BareHost host;
    standin_set_language(kEnglish);
    const TemporaryFolder folder;
    const std::wstring copy = folder.file(L"Lacking.gup");
    WriteFileBytes(copy, PluginWith(GetParam().from, GetParam().to));
    wchar_t reason[300] = {};
    EXPECT_EQ(standin_plugin_load(copy.c_str(), reason, 300), nullptr);
    EXPECT_STREQ(reason, GetParam().reason);
    EXPECT_TRUE(host.calls.empty()) << "nothing of it ran";
    EXPECT_EQ(::GetModuleHandleW(copy.c_str()), nullptr);
    EXPECT_TRUE(::DeleteFileW(copy.c_str())) << "nothing holds the file";
    const PluginInHost whole; // the host goes on
}

INSTANTIATE_TEST_SUITE_P(
    Imports, LackingLibrary,
    ::testing::Values(Lack{"OfCore", "?GetCOREInterface@@YAPEAVInterface@@XZ",
                           "?GetCOREInterfaze@@YAPEAVInterface@@XZ",
                           L"the library needs ?GetCOREInterfaze@@YAPEAVInterface@@XZ of core.dll, "
                           L"which does not export it"},
                      Lack{"OfScripts", "?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@H@Z",
                           "?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@P@Z",
                           L"the library needs "
                           L"?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@P@Z of MAXScrpt.dll, "
                           L"which does not export it"},
                      Lack{"WholeLibrary", "menus.dll", "manus.dll",
                           L"the library needs manus.dll, which cannot be loaded"}),
    [](const auto& parameter) { return parameter.param.name; });

TEST(RefusedFile, OfAnotherProcessorIsNamed) {
    BareHost host;
    std::string bytes = ReadFileBytes(PluginPath());
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
    const std::size_t machine = static_cast<std::size_t>(dos->e_lfanew) + 4;
    bytes[machine] = '\x4C'; // IMAGE_FILE_MACHINE_I386
    bytes[machine + 1] = '\x01';
    const TemporaryFolder folder;
    const std::wstring copy = folder.file(L"Other.gup");
    WriteFileBytes(copy, bytes);
    wchar_t reason[200] = {};
    EXPECT_EQ(standin_plugin_load(copy.c_str(), reason, 200), nullptr);
    EXPECT_STRNE(reason, L"");
}

} // namespace
} // namespace test
} // namespace orv
