#include "base/handles.h"

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace orv {
namespace {

std::vector<int> closed;

struct CountedKind {
    using Value = int;
    static Value none() noexcept { return -1; }
    static void close(Value value) noexcept { closed.push_back(value); }
};
using Counted = Owner<CountedKind>;

class OwnerTest : public testing::Test {
protected:
    OwnerTest() { closed.clear(); }
};

TEST_F(OwnerTest, ClosesOnceAtTheEndOfItsScope) {
    { const Counted owner(7); }
    EXPECT_EQ(closed, std::vector<int>{7});
}

TEST_F(OwnerTest, NeverClosesNone) {
    {
        const Counted empty;
        const Counted none(-1);
        EXPECT_FALSE(empty);
        EXPECT_FALSE(none);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, OwnsZeroWhereZeroIsAHandle) {
    {
        const Counted owner(0);
        EXPECT_TRUE(owner);
    }
    EXPECT_EQ(closed, std::vector<int>{0});
}

TEST_F(OwnerTest, MovesTheHandleAndLeavesNone) {
    Counted first(7);
    Counted second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), 7);
    Counted third(8);
    third = std::move(second);
    EXPECT_EQ(closed, std::vector<int>{8});
    EXPECT_EQ(third.get(), 7);
    EXPECT_FALSE(second);
}

TEST_F(OwnerTest, SurvivesBeingMovedToItself) {
    Counted owner(7);
    Counted& same = owner;
    owner = std::move(same);
    EXPECT_EQ(owner.get(), 7);
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, ReleasesTheHandleToItsCaller) {
    {
        Counted owner(7);
        EXPECT_EQ(owner.release(), 7);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, ClosesTheOldHandleWhenItTakesANewOne) {
    Counted owner(7);
    owner.reset(8);
    EXPECT_EQ(closed, std::vector<int>{7});
    owner.reset(8);
    EXPECT_EQ(closed, std::vector<int>{7});
    owner.reset();
    EXPECT_EQ(closed, (std::vector<int>{7, 8}));
}

template<class Handle>
class EachOwner : public testing::Test {};
using AllOwners = testing::Types<FileHandle, ProcessHandle, ThreadHandle, EventHandle, JobHandle,
                                 FileMappingHandle, FindHandle, MappedView, SocketHandle,
                                 GlobalMemory, FontHandle, BrushHandle, BitmapHandle, MemoryDc>;
TYPED_TEST_SUITE(EachOwner, AllOwners);

TYPED_TEST(EachOwner, CanBeMovedAndNotCopied) {
    EXPECT_TRUE(std::is_nothrow_move_constructible<TypeParam>::value);
    EXPECT_TRUE(std::is_nothrow_move_assignable<TypeParam>::value);
    EXPECT_FALSE(std::is_copy_constructible<TypeParam>::value);
    EXPECT_FALSE(std::is_copy_assignable<TypeParam>::value);
    EXPECT_FALSE(static_cast<bool>(TypeParam()));
}

TEST(Handles, OfDifferentKindsCannotBeMixedUp) {
    EXPECT_FALSE((std::is_assignable<ProcessHandle&, ThreadHandle>::value));
    EXPECT_FALSE((std::is_assignable<FileHandle&, FindHandle>::value));
    EXPECT_FALSE((std::is_convertible<HANDLE, FileHandle>::value));
}

TEST(Handles, KnowTheFailureOfTheirOwnFunction) {
    EXPECT_FALSE(FileHandle(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(FindHandle(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(SocketHandle(INVALID_SOCKET));
    EXPECT_FALSE(FileMappingHandle(nullptr));
}

TEST(Handles, CloseFiles) {
    const test::TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.txt");
    {
        const FileHandle held = test::HoldExclusively(path);
        EXPECT_THROW(test::ReadFileBytes(path), std::runtime_error);
    }
    EXPECT_EQ(test::ReadFileBytes(path), "");
}

TEST(Handles, CloseKernelObjects) {
    HANDLE raw = nullptr;
    DWORD flags = 0;
    {
        const EventHandle event(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
        raw = event.get();
        EXPECT_TRUE(::GetHandleInformation(raw, &flags));
    }
    EXPECT_FALSE(::GetHandleInformation(raw, &flags));
}

TEST(Handles, CloseMappingsAndTheirViews) {
    const wchar_t* name = L"orv-handles-test";
    void* address = nullptr;
    MEMORY_BASIC_INFORMATION memory = {};
    {
        const FileMappingHandle mapping(
            ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, name));
        ASSERT_TRUE(mapping);
        const MappedView view(::MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
        ASSERT_TRUE(view);
        address = view.get();
        ::VirtualQuery(address, &memory, sizeof(memory));
        EXPECT_EQ(memory.Type, static_cast<DWORD>(MEM_MAPPED));
    }
    ::VirtualQuery(address, &memory, sizeof(memory));
    EXPECT_EQ(memory.State, static_cast<DWORD>(MEM_FREE));
    EXPECT_FALSE(FileMappingHandle(::OpenFileMappingW(FILE_MAP_READ, FALSE, name)));
}

TEST(Handles, CloseSockets) {
    WSADATA data = {};
    ASSERT_EQ(::WSAStartup(MAKEWORD(2, 2), &data), 0);
    SOCKET raw = INVALID_SOCKET;
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    {
        const SocketHandle socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
        ASSERT_TRUE(socket);
        raw = socket.get();
        EXPECT_EQ(::bind(raw, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }
    EXPECT_EQ(::listen(raw, 1), SOCKET_ERROR);
    EXPECT_EQ(::WSAGetLastError(), WSAENOTSOCK);
    ::WSACleanup();
}

TEST(Handles, DeleteGdiObjectsAndContexts) {
    HGDIOBJ brush = nullptr;
    HGDIOBJ dc = nullptr;
    {
        const BrushHandle owner(::CreateSolidBrush(RGB(1, 2, 3)));
        const MemoryDc dcOwner(::CreateCompatibleDC(nullptr));
        brush = owner.get();
        dc = dcOwner.get();
        EXPECT_EQ(::GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
        EXPECT_EQ(::GetObjectType(dc), static_cast<DWORD>(OBJ_MEMDC));
    }
    EXPECT_EQ(::GetObjectType(brush), 0U);
    EXPECT_EQ(::GetObjectType(dc), 0U);
}

TEST(Handles, FreeGlobalMemory) {
    HGLOBAL raw = nullptr;
    {
        const GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, 100));
        raw = memory.get();
        EXPECT_GE(::GlobalSize(raw), 100U);
    }
    EXPECT_EQ(::GlobalSize(raw), 0U);
}

} // namespace
} // namespace orv
