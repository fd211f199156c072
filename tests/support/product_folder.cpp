#include "tests/support/product_folder.h"

#include "base/folders.h"
#include "base/windows.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"

namespace orv {
namespace test {
namespace {

void Empty() {
    // Only the folder of the product itself is ever emptied, whatever the shell answers.
    if (!CommonAppDataFolder().empty())
        DeleteTree(ProductFolder());
}

} // namespace

TestProductFolder::TestProductFolder() {
    Empty();
    MakeFolders(path(L"/script"));
}

TestProductFolder::~TestProductFolder() {
    Empty();
}

std::wstring TestProductFolder::path(const std::wstring& suffix) const {
    return ProductFolder() + suffix;
}

void TestProductFolder::write(const std::wstring& suffix, const std::string& bytes) const {
    WriteFileBytes(path(suffix), bytes);
}

std::string TestProductFolder::read(const std::wstring& suffix) const {
    return ReadFileBytes(path(suffix));
}

void TestProductFolder::installScripts() const {
    const std::wstring folder = ProgramFolder() + L"\\scripts";
    for (const std::wstring& name : ListFolder(folder))
        write(L"/script/" + name, ReadFileBytes(folder + L"\\" + name));
    write(L"/script/MaxRenderGlobalsParser.mse", read(L"/script/MaxRenderGlobalsParser.ms"));
}

void TestProductFolder::writeSettings(const std::string& lines) const {
    WriteFileBytes(SettingsFile(), "[general]\r\n" + lines);
}

std::string TestProductFolder::log(const std::wstring& name,
                                   const std::wstring& lowerVersion) const {
    const std::wstring file = path(L"/log" + lowerVersion + L"\\" + name + L".log");
    return PathExists(file) ? ReadFileBytes(file) : std::string();
}

} // namespace test
} // namespace orv
