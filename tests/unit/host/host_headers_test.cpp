// The host's headers in use put every virtual function at the entry that host/abi_facts.h states,
// and agree with it in what else no compiler asserts.
#include "host/abi_facts.h"
#include "host/abi_slots.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

struct SlotFact {
    const char* function;
    int slot;
};

#define ORV_SLOT_FACT(type, name, number, function, result, arguments, qualifier)                  \
    {#type "::" #name, number},
constexpr SlotFact kFacts[] = {
    // clang-format off
    ORV_HOST_SLOTS(ORV_SLOT_FACT)
    ORV_HOST_PROTECTED_SLOTS(ORV_SLOT_FACT)
    // clang-format on
};

TEST(HostHeaders, CallsReachTheirEntries) {
    int row = 0;
    for (const SlotFact& fact : kFacts)
        EXPECT_EQ(orv_host_slot_reached(row++), fact.slot) << fact.function;
}

TEST(HostHeaders, EveryRowIsAsked) {
    EXPECT_EQ(orv_host_slot_reached(-1), -1);
    EXPECT_EQ(orv_host_slot_reached(static_cast<int>(sizeof(kFacts) / sizeof(kFacts[0]))), -1);
}

struct IdFact {
    const char* name;
    host_abi::TwoPartId id;
};

#define ORV_ID_FACT(name, spelling, first, second) {#name, {first, second}},
constexpr IdFact kIds[] = {ORV_HOST_INTERFACE_IDS(ORV_ID_FACT)};

TEST(HostHeaders, InterfacesHaveTheirIds) {
    int row = 0;
    for (const IdFact& fact : kIds) {
        host_abi::TwoPartId id = {~0U, ~0U};
        EXPECT_TRUE(orv_host_interface_id(row++, &id.a, &id.b)) << fact.name;
        EXPECT_EQ(id.a, fact.id.a) << fact.name;
        EXPECT_EQ(id.b, fact.id.b) << fact.name;
    }
    host_abi::TwoPartId none = {7, 8};
    EXPECT_FALSE(orv_host_interface_id(row, &none.a, &none.b)) << "every row is asked";
    EXPECT_EQ(none.a, 7U);
}

TEST(HostHeaders, MenusAndItemsHaveTheirElementBehindThePadding) {
    EXPECT_EQ(orv_host_menu_element_offset(), host_abi::offset::IMenu_Element);
    EXPECT_EQ(orv_host_menu_item_element_offset(), host_abi::offset::IMenuItem_Element);
}

} // namespace
} // namespace test
} // namespace orv
