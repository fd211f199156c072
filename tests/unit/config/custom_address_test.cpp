#include "config/client_info.h"

#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

FileHandle Open(const std::wstring& path, DWORD access) {
    return FileHandle(::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

TEST(ReadWideText, ReportsAFileThatCannotBeRead) {
    const test::TemporaryFolder folder;
    test::WriteFileBytes(folder.file(L"a.bin"), test::Utf16Bytes(L"ip=1"));
    const FileHandle writeOnly = Open(folder.file(L"a.bin"), GENERIC_WRITE);
    std::wstring text = L"before";
    DWORD error = 0;
    EXPECT_FALSE(ReadWideText(writeOnly.get(), text, error));
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(text, L"before");
}

TEST(ReadWideText, ReportsAHandleWithoutSize) {
    std::wstring text;
    DWORD error = 0;
    EXPECT_FALSE(ReadWideText(INVALID_HANDLE_VALUE, text, error));
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_INVALID_HANDLE));
}

TEST(ReadWideText, ReadsTheFirst64MebibytesOfALargerFile) {
    const test::TemporaryFolder folder;
    const LONGLONG limit = 64 * 1024 * 1024;
    const FileHandle file = Open(folder.file(L"large.bin"), GENERIC_READ | GENERIC_WRITE);
    LARGE_INTEGER size = {};
    size.QuadPart = limit - 2;
    ASSERT_TRUE(::SetFilePointerEx(file.get(), size, nullptr, FILE_BEGIN));
    DWORD written = 0;
    ASSERT_TRUE(::WriteFile(file.get(), L"ab", 4, &written, nullptr));
    size.QuadPart = 0;
    ASSERT_TRUE(::SetFilePointerEx(file.get(), size, nullptr, FILE_BEGIN));
    std::wstring text;
    DWORD error = 0;
    EXPECT_TRUE(ReadWideText(file.get(), text, error));
    EXPECT_EQ(text, L""); // the file begins with zeros
    LARGE_INTEGER position = {};
    ASSERT_TRUE(::SetFilePointerEx(file.get(), LARGE_INTEGER{}, &position, FILE_CURRENT));
    EXPECT_EQ(position.QuadPart, limit);
}

TEST(TakeCustomAddress, TakesWhatFollowsTheFirstSign) {
    std::wstring address = L"before";
    EXPECT_TRUE(TakeCustomAddress(L"a=b=c", address));
    EXPECT_EQ(address, L"b=c");
    EXPECT_TRUE(TakeCustomAddress(L"=", address));
    EXPECT_EQ(address, L"");
}

TEST(TakeCustomAddress, LeavesTheAddressWithoutASign) {
    std::wstring address = L"before";
    EXPECT_FALSE(TakeCustomAddress(L"", address));
    EXPECT_FALSE(TakeCustomAddress(L"10.0.0.5", address));
    EXPECT_EQ(address, L"before");
}

} // namespace
} // namespace orv
