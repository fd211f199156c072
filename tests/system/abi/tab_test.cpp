// The host's growing table, on both sides of a library's border: the exported helpers, called with
// their numbers in the host's order, and tables that the plug-in's code shares with the host's.
#include "tests/system/abi/host_tab.h"
#include "tests/system/abi/loaded_plugin.h"

#include <gmock/gmock.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace slot = host_abi::slot;

class HostTab : public ::testing::Test {
protected:
    ~HostTab() override { makeSize(&header, 0, kSize); }

    void fill() {
        const short values[] = {10, 11, 12, 13, 14};
        insertAt(&header, 0, 5, values, kSize, 0);
    }
    std::vector<short> elements() const { return TabElements<short>(&header); }

    // Two bytes: a size that no count here equals.
    static constexpr int kSize = sizeof(short);

    template<class Function>
    static Function helper(const char* name) {
        return Exported<Function>(L"maxutil.dll", name);
    }
    using MakeSize = int (*)(TabHeader**, int capacity, int size);
    using SetCount = void (*)(TabHeader**, int count, int size, int resize);
    using InsertAt = int (*)(TabHeader**, int at, int count, const void*, int size, int extra);
    using Copy = int (*)(TabHeader**, int at, int count, const void*, int size);
    using Delete = int (*)(TabHeader**, int start, int count, int size);
    const MakeSize makeSize = helper<MakeSize>("?TBMakeSize@@YAHPEAPEAUTabHdr@@HH@Z");
    const SetCount setCount = helper<SetCount>("?TBSetCount@@YAXPEAPEAUTabHdr@@HHH@Z");
    const InsertAt insertAt = helper<InsertAt>("?TBInsertAt@@YAHPEAPEAUTabHdr@@HHPEBXHH@Z");
    const Copy copy = helper<Copy>("?TBCopy@@YAHPEAPEAUTabHdr@@HHPEBXH@Z");
    const Delete erase = helper<Delete>("?TBDelete@@YAHPEAPEAUTabHdr@@HHH@Z");

    TabHeader* header = nullptr;
};

TEST_F(HostTab, MakesRoomWithoutElements) {
    EXPECT_NE(makeSize(&header, 7, kSize), 0);
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->count, 0);
    EXPECT_EQ(header->capacity, 7);
    makeSize(&header, 0, kSize);
    EXPECT_EQ(header, nullptr);
}

TEST_F(HostTab, InsertsWithRoomForMore) {
    const short first[] = {1, 2, 3};
    insertAt(&header, 0, 3, first, kSize, 50);
    EXPECT_THAT(elements(), ElementsAre(1, 2, 3));
    EXPECT_GE(header->capacity, 53);
    const short middle[] = {8, 9};
    insertAt(&header, 1, 2, middle, kSize, 0);
    EXPECT_THAT(elements(), ElementsAre(1, 8, 9, 2, 3));
}

TEST_F(HostTab, SetsTheCountAndKeepsTheRoomUnlessAsked) {
    fill();
    const int room = header->capacity;
    setCount(&header, 3, kSize, 0);
    EXPECT_THAT(elements(), ElementsAre(10, 11, 12));
    EXPECT_EQ(header->capacity, room);
    setCount(&header, 1, kSize, 1);
    EXPECT_THAT(elements(), ElementsAre(10));
    EXPECT_EQ(header->capacity, 1);
}

TEST_F(HostTab, CopiesOverElements) {
    fill();
    const short values[] = {20, 21, 22};
    copy(&header, 1, 3, values, kSize);
    EXPECT_THAT(elements(), ElementsAre(10, 20, 21, 22, 14));
}

TEST_F(HostTab, DeletesAStretch) {
    fill();
    erase(&header, 1, 3, kSize);
    EXPECT_THAT(elements(), ElementsAre(10, 14));
}

class DescriptorTab : public PluginSlots {
protected:
    ~DescriptorTab() override { CallSlot<void>(descriptor, slot::ClassDesc_ClearInterfaces); }

    const void* tab() const {
        return static_cast<const char*>(descriptor) + host_abi::offset::ClassDesc_Interfaces;
    }
    // Two objects of the host that have an id, which the host's search asks for.
    void* first = newMenu();
    void* second = newMenu();

    static void* newMenu() {
        return Exported<void* (*)()>(L"menus.dll", "?GetIMenu@@YAPEAVIMenu@@XZ")();
    }
};

TEST_F(DescriptorTab, GrowsInTheHostAndIsReadByThePlugin) {
    CallSlot<void>(descriptor, slot::ClassDesc_AddInterface, first);
    CallSlot<void>(descriptor, slot::ClassDesc_AddInterface, second);
    EXPECT_EQ(CallSlot<int>(descriptor, slot::ClassDesc_NumInterfaces), 2);
    EXPECT_EQ(CallSlot<void*>(descriptor, slot::ClassDesc_GetInterfaceAt, 0), first);
    EXPECT_EQ(CallSlot<void*>(descriptor, slot::ClassDesc_GetInterfaceAt, 1), second);
}

TEST_F(DescriptorTab, IsEmptiedByThePluginAndReadByTheHost) {
    CallSlot<void>(descriptor, slot::ClassDesc_AddInterface, first);
    host_abi::TwoPartId id = host_abi::interface_id::NullInterface;
    EXPECT_EQ(CallSlot<void*>(descriptor, slot::ClassDesc_GetInterface, &id), first);
    EXPECT_THAT(TabElements<void*>(tab()), ElementsAre(first));
    CallSlot<void>(descriptor, slot::ClassDesc_ClearInterfaces);
    EXPECT_EQ(CallSlot<void*>(descriptor, slot::ClassDesc_GetInterface, &id), nullptr);
    EXPECT_THAT(TabElements<void*>(tab()), IsEmpty());
}

} // namespace
} // namespace test
} // namespace orv
