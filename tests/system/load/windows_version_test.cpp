// The Windows that the tests run on is the one that artists have.
#include "base/windows.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(Windows, IsTen) {
    using GetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    ASSERT_NE(found, nullptr);
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    reinterpret_cast<GetVersionFunction>(reinterpret_cast<void*>(found))(&version);
    EXPECT_EQ(version.dwMajorVersion, 10U);
}

} // namespace
} // namespace test
} // namespace orv
