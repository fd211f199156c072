// What the plug-in's action table publishes to scripts and to other objects of the host. The host
// exports no bodies for some of it: they are compiled into the plug-in.
#include "tests/system/abi/host_tab.h"
#include "tests/system/abi/loaded_plugin.h"

#include <gmock/gmock.h>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace slot = host_abi::slot;
namespace number = host_abi::number;

// A value of the host: its kind at 0 and the value itself at 8.
struct Value {
    int kind = number::TypeVoid;
    int padding = 0;
    union {
        int integer;
        DWORD dword;
        const wchar_t* text;
        void* object;
    } value = {0};
};
static_assert(sizeof(Value) == 16, "as the host's");

// The arguments of a call: an array, whose first member is the address of its elements.
struct Arguments {
    Value* elements;
    std::size_t others[3];
};

class Publishing : public StartedPlugin {
protected:
    // As the host calls: its exported function, which goes to the table's own one.
    int invoke(int function, Value& result, Arguments* arguments = nullptr) {
        using Invoke = int (*)(void*, short, int, Value*, Arguments*);
        return Exported<Invoke>(L"core.dll",
                                "?Invoke@FPInterface@@UEAAHFHAEAVFPValue@@PEAVFPParams@@@Z")(
            table, static_cast<short>(function), 0, &result, arguments);
    }
    int dispatch(int function, Value& result, Arguments* arguments = nullptr) {
        return CallSlot<int>(table, slot::ActionTable_DispatchFn, static_cast<short>(function), 0,
                             &result, arguments);
    }

    // The value of a function without arguments, asked for both ways.
    Value ask(int function, int kind) {
        Value invoked;
        EXPECT_EQ(invoke(function, invoked), number::StatusOk);
        EXPECT_EQ(invoked.kind, kind);
        Value dispatched;
        EXPECT_EQ(dispatch(function, dispatched), number::StatusOk);
        EXPECT_EQ(dispatched.kind, kind);
        EXPECT_EQ(dispatched.value.object, invoked.value.object);
        return dispatched;
    }

    void* itemAt(int index) {
        Value indexes[1];
        indexes[0].kind = number::TypeIndex;
        indexes[0].value.integer = index;
        Arguments arguments = {indexes, {1, 1, 1}};
        Value invoked;
        EXPECT_EQ(invoke(number::TableGetActionItem, invoked, &arguments), number::StatusOk);
        EXPECT_EQ(invoked.kind, number::TypeInterface);
        Value dispatched;
        EXPECT_EQ(dispatch(number::TableGetActionItem, dispatched, &arguments), number::StatusOk);
        EXPECT_EQ(dispatched.value.object, invoked.value.object);
        return dispatched.value.object;
    }

    void registerCallback(void* notified) {
        EXPECT_TRUE(CallSlot<bool>(table, slot::FPMixinInterface_RegisterNotifyCallback, notified));
    }
    void unregisterCallback(void* notified) {
        CallSlot<void>(table, slot::FPMixinInterface_UnRegisterNotifyCallback, notified);
    }
    // The table's list of callbacks, where the host's own code keeps it.
    const void* callbackList() const {
        return *reinterpret_cast<void* const*>(static_cast<const char*>(table) +
                                               host_abi::offset::FPMixinInterface_Callbacks);
    }

    template<class T>
    T fieldAt(int offset) const {
        T field;
        std::memcpy(&field, static_cast<const char*>(table) + offset, sizeof(field));
        return field;
    }
};

TEST_F(Publishing, TellsTheTablesIdAndName) {
    EXPECT_EQ(ask(number::TableGetId, number::TypeDword).value.dword, kTableId);
    EXPECT_STREQ(ask(number::TableGetName, number::TypeString).value.text,
                 L"Submit to Render Farm...");
}

TEST_F(Publishing, TellsTheContextsIdAndName) {
    EXPECT_EQ(ask(number::TableGetContextId, number::TypeDword).value.dword, 0x21933FB3U);
    EXPECT_STREQ(ask(number::TableGetContextName, number::TypeString).value.text, L"Tallowmere");
}

TEST_F(Publishing, HandsOutTheActions) {
    EXPECT_EQ(ask(number::TableNumActionItems, number::TypeInt).value.integer, 2);
    EXPECT_EQ(itemAt(0), CallSlot<void*>(table, slot::ActionTable_GetAction, 1498));
    EXPECT_EQ(itemAt(1), CallSlot<void*>(table, slot::ActionTable_GetAction, 1497));
    EXPECT_EQ(itemAt(2), nullptr);
}

TEST_F(Publishing, KnowsNoOtherFunction) {
    for (const int function : {6, -1, 1497}) {
        Value result;
        EXPECT_EQ(invoke(function, result), number::StatusNoSuchFunction) << function;
        EXPECT_EQ(dispatch(function, result), number::StatusNoSuchFunction) << function;
        EXPECT_EQ(result.kind, number::TypeVoid) << function;
    }
}

TEST_F(Publishing, AnswersEveryFormOfACall) {
    Value result;
    EXPECT_EQ(CallSlot<int>(table, slot::FPMixinInterface_InvokeTimeResult,
                            static_cast<short>(number::TableNumActionItems), 0, &result,
                            static_cast<Arguments*>(nullptr)),
              number::StatusOk);
    EXPECT_EQ(result.value.integer, 2);
    result = Value();
    EXPECT_EQ(CallSlot<int>(table, slot::FPMixinInterface_InvokeResult,
                            static_cast<short>(number::TableNumActionItems), &result,
                            static_cast<Arguments*>(nullptr)),
              number::StatusOk);
    EXPECT_EQ(result.value.integer, 2);
    EXPECT_EQ(CallSlot<int>(table, slot::FPMixinInterface_InvokeTime,
                            static_cast<short>(number::TableNumActionItems), 0,
                            static_cast<Arguments*>(nullptr)),
              number::StatusOk);
    EXPECT_EQ(CallSlot<int>(table, slot::FPMixinInterface_Invoke, short{6},
                            static_cast<Arguments*>(nullptr)),
              number::StatusNoSuchFunction);
}

TEST_F(Publishing, ForgetsEveryOccurrenceOfACallback) {
    int first = 0, second = 0;
    unregisterCallback(&first); // there is no list yet
    EXPECT_EQ(callbackList(), nullptr);
    registerCallback(&first);
    registerCallback(&second);
    registerCallback(&first);
    ASSERT_NE(callbackList(), nullptr);
    EXPECT_THAT(TabElements<void*>(callbackList()), ElementsAre(&first, &second, &first));
    unregisterCallback(&first);
    EXPECT_THAT(TabElements<void*>(callbackList()), ElementsAre(&second));
    unregisterCallback(&first);
    EXPECT_THAT(TabElements<void*>(callbackList()), ElementsAre(&second));
    unregisterCallback(&second);
    EXPECT_THAT(TabElements<void*>(callbackList()), IsEmpty());
}

TEST_F(Publishing, AnswersTheInterfacesOfEveryPublishingObject) {
    const auto interfaceOf = [this](host_abi::TwoPartId id) {
        return CallSlot<void*>(table, slot::FPMixinInterface_GetInterface, &id);
    };
    void* const description = CallSlot<void*>(table, slot::FPMixinInterface_GetDesc);
    ASSERT_NE(description, nullptr);
    EXPECT_EQ(interfaceOf(host_abi::interface_id::Publishing), table);
    EXPECT_EQ(interfaceOf(host_abi::interface_id::PublishingMixin), table);
    EXPECT_EQ(interfaceOf(host_abi::interface_id::Description), description);
    EXPECT_EQ(interfaceOf({0x5eed, 0x5eed}), nullptr);
    host_abi::TwoPartId own = {0, 0};
    CallSlot<void*>(table, slot::FPMixinInterface_GetID, &own);
    EXPECT_EQ(interfaceOf(own), table);
    EXPECT_EQ(CallSlot<void*>(table, slot::FPMixinInterface_GetDescByID, &own), description);
}

TEST_F(Publishing, LeavesItsLifetimeToTheHost) {
    EXPECT_EQ(CallSlot<int>(table, slot::FPMixinInterface_LifetimeControl),
              number::ServerControlled);
}

TEST_F(Publishing, KeepsItsMembersWhereTheHostsCodeReadsThem) {
    EXPECT_EQ(fieldAt<DWORD>(host_abi::offset::ActionTable_Id), kTableId);
    EXPECT_EQ(fieldAt<DWORD>(host_abi::offset::ActionTable_ContextId), 0x21933FB3U);
    EXPECT_EQ(
        HostString::TextOf(static_cast<const char*>(table) + host_abi::offset::ActionTable_Name),
        L"Submit to Render Farm...");
    EXPECT_EQ(fieldAt<void*>(host_abi::offset::ActionTable_Callback), callback);
    EXPECT_EQ(
        TabElements<void*>(static_cast<const char*>(table) + host_abi::offset::ActionTable_mOps)
            .size(),
        2U);
    EXPECT_EQ(*reinterpret_cast<void* const*>(static_cast<const char*>(callback) +
                                              host_abi::offset::ActionCallback_Table),
              table);
}

} // namespace
} // namespace test
} // namespace orv
