// The host's objects answer at the slots where the host's compiler has put their functions.
#include "host/abi_facts.h"
#include "standin/maxutil.h"
#include "standin/menus.h"
#include "tests/hosts/bare_host.h"
#include "tests/system/abi/slots.h"

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using Calls = std::vector<std::wstring>;
using ::testing::ElementsAre;
namespace slot = host_abi::slot;

void* HostInterface() {
    return Exported<void* (*)()>(L"core.dll", "?GetCOREInterface@@YAPEAVInterface@@XZ")();
}

void* ActionManager() {
    return CallSlot<void*>(HostInterface(), slot::Interface_GetActionManager);
}

void* MenuManager() {
    return CallSlot<void*>(HostInterface(), slot::Interface_GetMenuManager);
}

void* NewMenu() {
    return Exported<void* (*)()>(L"menus.dll", "?GetIMenu@@YAPEAVIMenu@@XZ")();
}

void* NewItem() {
    return Exported<void* (*)()>(L"menus.dll", "?GetIMenuItem@@YAPEAVIMenuItem@@XZ")();
}

// The second base of menus and items, which has the titles.
void* Element(void* menuOrItem) {
    return static_cast<char*>(menuOrItem) + host_abi::offset::IMenu_Element;
}

void SetTitle(void* menuOrItem, const wchar_t* title) {
    CallSlot<void>(Element(menuOrItem), slot::IMenuElement_SetTitle, title);
}

std::wstring Title(void* menuOrItem) {
    return HostString::TextOf(
        CallSlot<const void*>(Element(menuOrItem), slot::IMenuElement_GetTitle));
}

struct Description {
    int command, description, shortName, category;
};

// An action table of the host's own class with commands 7 and 8, made on its heap.
void* NewActionTable(DWORD id) {
    Description rows[] = {{7, 0, 0, 0}, {8, 0, 0, 0}};
    void* table =
        Exported<void* (*)(std::size_t)>(L"maxutil.dll", "??2MaxHeapOperators@@SAPEAX_K@Z")(80);
    HostString name(L"A table");
    using Constructor = void* (*)(void*, DWORD, DWORD, void*, HACCEL, int, Description*, HINSTANCE);
    return Exported<Constructor>(L"core.dll", "??0ActionTable@@QEAA@KKAEAVWStr@@PEAUHACCEL__@@"
                                              "HPEAUActionDescription@@PEAUHINSTANCE__@@@Z")(
        table, id, 0x77, name.object(), nullptr, 2, rows, nullptr);
}

class HostSlots : public ::testing::Test {
protected:
    BareHost host;
};

TEST_F(HostSlots, InterfaceTellsWindowSceneAndFolder) {
    EXPECT_EQ(CallSlot<HWND>(HostInterface(), slot::Interface_GetMAXHWnd), host.mainWindow);
    EXPECT_STREQ(CallSlot<const wchar_t*>(HostInterface(), slot::Interface_GetDir, 29),
                 L"C:\\host");
    EXPECT_EQ(HostString::TextOf(CallSlot<void*>(HostInterface(), slot::Interface_GetCurFileName)),
              L"loft.max");
    EXPECT_EQ(HostString::TextOf(CallSlot<void*>(HostInterface(), slot::Interface_GetCurFilePath)),
              L"C:\\scenes\\loft.max");
    EXPECT_THAT(host.calls, ElementsAre(L"folder(29)", L"scene file name()", L"scene file path()"));
}

TEST_F(HostSlots, InterfaceSavesTheScene) {
    EXPECT_NE(CallSlot<BOOL>(HostInterface(), slot::Interface_FileSave), 0);
    EXPECT_NE(CallSlot<int>(HostInterface(), slot::Interface_SaveToFile, L"C:\\x.max", TRUE, FALSE),
              0);
    host.saved = 0;
    EXPECT_EQ(CallSlot<BOOL>(HostInterface(), slot::Interface_FileSave), 0);
    EXPECT_THAT(host.calls, ElementsAre(L"save()", L"save to(C:\\x.max, 1, 0)", L"save()"));
}

TEST_F(HostSlots, InterfaceTakesModelessDialogs) {
    CallSlot<void>(HostInterface(), slot::Interface_RegisterDlgWnd, ::GetDesktopWindow());
    CallSlot<int>(HostInterface(), slot::Interface_UnRegisterDlgWnd, ::GetDesktopWindow());
    EXPECT_THAT(host.calls, ElementsAre(L"register dialog()", L"unregister dialog()"));
}

TEST_F(HostSlots, ActionManagerKnowsTablesAndContexts) {
    void* manager = ActionManager();
    EXPECT_TRUE(CallSlot<BOOL>(manager, slot::IActionManager_RegisterActionContext, DWORD{0x77},
                               L"Drawing"));
    EXPECT_FALSE(CallSlot<BOOL>(manager, slot::IActionManager_RegisterActionContext, DWORD{0x77},
                                L"Drawing again"));
    EXPECT_STREQ(standin_action_context_name(0x77), L"Drawing");

    EXPECT_EQ(CallSlot<void*>(manager, slot::IActionManager_FindTable, DWORD{0x1234}), nullptr);
    void* table = NewActionTable(0x1234);
    CallSlot<void>(manager, slot::IActionManager_RegisterActionTable, table);
    EXPECT_EQ(CallSlot<void*>(manager, slot::IActionManager_FindTable, DWORD{0x1234}), table);
    EXPECT_EQ(standin_action_table_count(), 1);
}

TEST_F(HostSlots, TheLastActivatedCallbackIsInForce) {
    void* manager = ActionManager();
    void* table = NewActionTable(0x1234);
    CallSlot<void>(manager, slot::IActionManager_RegisterActionTable, table);
    alignas(8) char first[24], second[24];
    const auto construct = Exported<void* (*)(void*)>(L"core.dll", "??0ActionCallback@@QEAA@XZ");
    construct(first);
    construct(second);
    void* callbacks[] = {first, second};

    EXPECT_TRUE(CallSlot<int>(manager, slot::IActionManager_ActivateActionTable, callbacks[0],
                              DWORD{0x1234}));
    EXPECT_FALSE(CallSlot<int>(manager, slot::IActionManager_ActivateActionTable, callbacks[1],
                               DWORD{0x1234}))
        << "active already";
    EXPECT_FALSE(CallSlot<int>(manager, slot::IActionManager_ActivateActionTable, callbacks[1],
                               DWORD{0x9999}))
        << "unknown";
    EXPECT_EQ(CallSlot<void*>(table, slot::ActionTable_GetCallback), callbacks[1]);

    EXPECT_FALSE(CallSlot<int>(manager, slot::IActionManager_DeactivateActionTable, callbacks[0],
                               DWORD{0x1234}))
        << "not in force";
    EXPECT_TRUE(CallSlot<int>(manager, slot::IActionManager_DeactivateActionTable, callbacks[1],
                              DWORD{0x1234}));
    EXPECT_EQ(CallSlot<void*>(table, slot::ActionTable_GetCallback), nullptr);
    EXPECT_FALSE(CallSlot<BOOL>(callbacks[0], slot::ActionCallback_ExecuteAction, 7))
        << "the base handles no command";
}

TEST_F(HostSlots, ActionTableFindsItsItemsAndDeletesItself) {
    const long long before = standin_heap_block_count();
    void* table = NewActionTable(0x1234);
    void* item = CallSlot<void*>(table, slot::ActionTable_GetAction, 8);
    ASSERT_NE(item, nullptr);
    EXPECT_NE(CallSlot<void*>(table, slot::ActionTable_GetAction, 7), item);
    EXPECT_EQ(CallSlot<void*>(table, slot::ActionTable_GetAction, 9), nullptr);
    HostString text(L"unchanged");
    EXPECT_FALSE(CallSlot<BOOL>(table, slot::ActionTable_GetMenuText, 9, text.object()));
    EXPECT_TRUE(CallSlot<BOOL>(table, slot::ActionTable_GetMenuText, 8, text.object()));
    EXPECT_EQ(text.text(), L"") << "the row names no text";
    CallSlot<void>(table, slot::ActionTable_DeleteThis);
    EXPECT_EQ(standin_heap_block_count(), before);
}

TEST_F(HostSlots, MenuManagerRegistersAndFindsMenus) {
    void* manager = MenuManager();
    void* menu = NewMenu();
    SetTitle(menu, L"Tools");
    EXPECT_EQ(Title(menu), L"Tools");
    EXPECT_EQ(CallSlot<void*>(manager, slot::IMenuManager_FindMenu, L"Tools"), nullptr);
    EXPECT_TRUE(CallSlot<bool>(manager, slot::IMenuManager_RegisterMenu, menu, DWORD{0}));
    EXPECT_EQ(CallSlot<void*>(manager, slot::IMenuManager_FindMenu, L"Tools"), menu);
    EXPECT_TRUE(CallSlot<bool>(manager, slot::IMenuManager_UnRegisterMenu, menu));
    EXPECT_EQ(CallSlot<void*>(manager, slot::IMenuManager_FindMenu, L"Tools"), nullptr);
}

TEST_F(HostSlots, MenuContextsShowAMenu) {
    void* manager = MenuManager();
    EXPECT_TRUE(
        CallSlot<bool>(manager, slot::IMenuManager_RegisterMenuBarContext, 0x55, L"Own bar"));
    EXPECT_FALSE(
        CallSlot<bool>(manager, slot::IMenuManager_RegisterMenuBarContext, 0x55, L"Own bar"));
    EXPECT_EQ(CallSlot<void*>(manager, slot::IMenuManager_GetContext, 0x56), nullptr);
    void* context = CallSlot<void*>(manager, slot::IMenuManager_GetContext, 0x55);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(CallSlot<int>(context, slot::IMenuBarContext_GetId), 0x55);
    EXPECT_EQ(CallSlot<int>(context, slot::IMenuBarContext_GetType), 0);
    EXPECT_EQ(HostString::TextOf(CallSlot<void*>(context, slot::IMenuBarContext_GetName)),
              L"Own bar");
    void* menu = NewMenu();
    CallSlot<void>(context, slot::IMenuBarContext_SetMenu, menu);
    EXPECT_EQ(CallSlot<void*>(context, slot::IMenuBarContext_GetMenu), menu);
    CallSlot<void>(manager, slot::IMenuManager_UpdateMenuBar);
    EXPECT_THAT(host.calls, ElementsAre(L"menu bar changed()"));
}

TEST_F(HostSlots, MenusHoldItemsInOrder) {
    void* menu = NewMenu();
    void* items[] = {NewItem(), NewItem(), NewItem()};
    CallSlot<void>(menu, slot::IMenu_AddItem, items[0], -1);
    CallSlot<void>(menu, slot::IMenu_AddItem, items[1], -1);
    CallSlot<void>(menu, slot::IMenu_AddItem, items[2], 0);
    ASSERT_EQ(CallSlot<int>(menu, slot::IMenu_NumItems), 3);
    EXPECT_EQ(CallSlot<void*>(menu, slot::IMenu_GetItem, 0), items[2]);
    EXPECT_EQ(CallSlot<void*>(menu, slot::IMenu_GetItem, 2), items[1]);
    EXPECT_EQ(CallSlot<void*>(menu, slot::IMenu_GetItem, 3), nullptr);
    CallSlot<void>(menu, slot::IMenu_RemoveItem, items[0]); // by object
    ASSERT_EQ(CallSlot<int>(menu, slot::IMenu_NumItems), 2);
    CallSlot<void>(menu, slot::IMenu_RemoveItemAt, 0); // by position
    ASSERT_EQ(CallSlot<int>(menu, slot::IMenu_NumItems), 1);
    EXPECT_EQ(CallSlot<void*>(menu, slot::IMenu_GetItem, 0), items[1]);
}

TEST_F(HostSlots, MenusKeepACustomTitleBesideTheirOwn) {
    void* menu = NewMenu();
    SetTitle(menu, L"Tools");
    EXPECT_FALSE(CallSlot<bool>(menu, slot::IMenu_GetUseCustomTitle));
    CallSlot<void>(menu, slot::IMenu_SetCustomTitle, L"Gadgets");
    CallSlot<void>(menu, slot::IMenu_SetUseCustomTitle, true);
    EXPECT_EQ(HostString::TextOf(CallSlot<const void*>(menu, slot::IMenu_GetCustomTitle)),
              L"Gadgets");
    EXPECT_TRUE(CallSlot<bool>(menu, slot::IMenu_GetUseCustomTitle));
    EXPECT_EQ(Title(menu), L"Tools");
}

// Menus publish nothing, so these answers are the bodies of the host's headers.
TEST_F(HostSlots, MenusAnswerTheInterfacesOfEveryPublishingObject) {
    void* menu = NewMenu();
    void* const nothing =
        Exported<void*>(L"core.dll", "?nullInterface@FPInterface@@2VFPInterfaceDesc@@A");
    const auto interfaceOf = [menu](host_abi::TwoPartId id) {
        return CallSlot<void*>(menu, slot::FPMixinInterface_GetInterface, &id);
    };
    EXPECT_EQ(interfaceOf(host_abi::interface_id::Publishing), menu);
    EXPECT_EQ(interfaceOf(host_abi::interface_id::PublishingMixin), menu);
    EXPECT_EQ(interfaceOf(host_abi::interface_id::Description), nothing);
    EXPECT_EQ(interfaceOf(host_abi::TwoPartId{1, 2}), nullptr);
    host_abi::TwoPartId id = {1, 2};
    EXPECT_EQ(CallSlot<void*>(menu, slot::FPMixinInterface_GetDescByID, &id), nothing);
    CallSlot<void*>(menu, slot::FPMixinInterface_GetID, &id);
    EXPECT_EQ(id.a, host_abi::interface_id::NullInterface.a);
    EXPECT_EQ(id.b, host_abi::interface_id::NullInterface.b);
}

TEST_F(HostSlots, ItemsAreActionsSeparatorsOrSubMenus) {
    void* table = NewActionTable(0x1234);
    CallSlot<void>(ActionManager(), slot::IActionManager_RegisterActionTable, table);
    void* action = CallSlot<void*>(table, slot::ActionTable_GetAction, 7);
    void* item = NewItem();
    CallSlot<void>(item, slot::IMenuItem_SetActionItem, action);
    EXPECT_EQ(CallSlot<void*>(item, slot::IMenuItem_GetActionItem), action);
    EXPECT_FALSE(CallSlot<bool>(item, slot::IMenuItem_IsSeparator));
    SetTitle(item, L"My own words");
    CallSlot<void>(item, slot::IMenuItem_SetUseCustomTitle, true);
    EXPECT_EQ(Title(item), L"My own words");

    CallSlot<void>(item, slot::IMenuItem_ActAsSeparator);
    EXPECT_TRUE(CallSlot<bool>(item, slot::IMenuItem_IsSeparator));
    EXPECT_EQ(CallSlot<void*>(item, slot::IMenuItem_GetActionItem), nullptr);

    void* subMenu = NewMenu();
    CallSlot<void>(item, slot::IMenuItem_SetSubMenu, subMenu);
    EXPECT_EQ(CallSlot<void*>(item, slot::IMenuItem_GetSubMenu), subMenu);
}

// A dialog with a spinner (1) and its edit (2), as the product's dialogs have them.
class HostControls : public HostSlots {
protected:
    HWND dialog = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 200, 100, nullptr, nullptr,
                                    nullptr, nullptr);
    HWND spinner = child(L"SpinnerControl", 1);
    HWND edit = child(L"CustEdit", 2);

    ~HostControls() override { ::DestroyWindow(dialog); }

    HWND child(const wchar_t* kind, int id) {
        return ::CreateWindowExW(0, kind, L"", WS_CHILD | WS_VISIBLE, 0, 0, 60, 20, dialog,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                                 nullptr);
    }

    void* spinnerObject() {
        return Exported<void* (*)(HWND)>(
            L"core.dll", "?GetISpinner@@YAPEAVISpinnerControl@@PEAUHWND__@@@Z")(spinner);
    }

    std::wstring editText() {
        wchar_t text[64] = {};
        ::GetWindowTextW(edit, text, 64);
        return text;
    }
};

TEST_F(HostControls, SpinnersHoldWholeNumbers) {
    void* object = spinnerObject();
    ASSERT_NE(object, nullptr);
    CallSlot<void>(object, slot::ISpinnerControl_SetLimitsInt, 1, 10,
                   TRUE);                                              // limits of whole numbers
    CallSlot<void>(object, slot::ISpinnerControl_LinkToEdit, edit, 0); // an edit for whole numbers
    CallSlot<void>(object, slot::ISpinnerControl_SetValueInt, 7, FALSE);
    EXPECT_EQ(CallSlot<int>(object, slot::ISpinnerControl_GetIVal), 7);
    EXPECT_EQ(editText(), L"7");
    CallSlot<void>(object, slot::ISpinnerControl_SetValueInt, 99, FALSE);
    EXPECT_EQ(CallSlot<int>(object, slot::ISpinnerControl_GetIVal), 10);
}

TEST_F(HostControls, SpinnersHoldFractions) {
    void* object = spinnerObject();
    ASSERT_NE(object, nullptr);
    CallSlot<void>(object, slot::ISpinnerControl_SetLimitsFloat, 0.5F, 2.5F,
                   TRUE);                                              // limits of fractions
    CallSlot<void>(object, slot::ISpinnerControl_LinkToEdit, edit, 1); // an edit for fractions
    CallSlot<void>(object, slot::ISpinnerControl_SetValueFloat, 1.25F, FALSE);
    EXPECT_FLOAT_EQ(CallSlot<float>(object, slot::ISpinnerControl_GetFVal), 1.25F);
    EXPECT_EQ(editText(), L"1.25");
    CallSlot<void>(object, slot::ISpinnerControl_SetValueFloat, 9.0F, FALSE);
    EXPECT_FLOAT_EQ(CallSlot<float>(object, slot::ISpinnerControl_GetFVal), 2.5F);
}

TEST_F(HostControls, TooltipsShowTheirText) {
    alignas(8) char tips[16];
    Exported<void* (*)(void*)>(L"core.dll", "??0ToolTipExtender@@QEAA@XZ")(tips);
    const HostString text(L"Remember \u8BB0\u4F4F");
    CallSlot<void>(static_cast<void*>(tips), slot::ToolTipExtender_SetToolTip, edit,
                   const_cast<HostString&>(text).object());
    HostString read;
    CallSlot<void>(static_cast<void*>(tips), slot::ToolTipExtender_GetToolTip, edit, read.object());
    EXPECT_EQ(read.text(), L"Remember \u8BB0\u4F4F");
    const HWND window =
        CallSlot<HWND>(static_cast<void*>(tips), slot::ToolTipExtender_GetToolTipHWND);
    wchar_t name[64] = {};
    ::GetClassNameW(window, name, 64);
    EXPECT_STREQ(name, TOOLTIPS_CLASSW);
    Exported<void (*)(void*)>(L"core.dll", "??1ToolTipExtender@@UEAA@XZ")(tips);
    EXPECT_FALSE(::IsWindow(window));
}

// What the scripting library leaves in a value: its kind at 0 and the value itself at 8.
struct ScriptValue {
    int kind = -1;
    int padding = 0;
    union {
        int integer;
        float number;
        const wchar_t* text;
    } value = {0};
};

struct ScriptCase {
    const char* name;
    standin_value result;
    int kind;
};

class ScriptResults : public ::testing::TestWithParam<ScriptCase> {
protected:
    BareHost host;
    ScriptValue value;

    int run() {
        Exported<void (*)(void*)>(L"core.dll", "?Init@FPValue@@QEAAXXZ")(&value);
        using Execute = BOOL (*)(const wchar_t*, BOOL, void*, BOOL);
        return Exported<Execute>(
            L"MAXScrpt.dll", "?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@H@Z")(L"1 + 1", FALSE,
                                                                                   &value, TRUE);
    }
};

TEST_P(ScriptResults, ArriveWithTheirKind) {
    host.scriptResult = GetParam().result;
    EXPECT_EQ(run(), 1);
    EXPECT_EQ(value.kind, GetParam().kind);
    if (GetParam().result.kind == STANDIN_VALUE_FLOAT)
        EXPECT_FLOAT_EQ(value.value.number, static_cast<float>(GetParam().result.number));
    else if (GetParam().result.text)
        EXPECT_STREQ(value.value.text, GetParam().result.text);
    else
        EXPECT_EQ(value.value.integer, GetParam().result.integer);
    EXPECT_THAT(host.calls, ElementsAre(L"script(1 + 1, 0, 1)"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ScriptResults,
    ::testing::Values(ScriptCase{"Nothing", {STANDIN_VALUE_NONE, 0, 0.0, nullptr}, 46},
                      ScriptCase{"Boolean", {STANDIN_VALUE_BOOLEAN, 1, 0.0, nullptr}, 4},
                      ScriptCase{"Integer", {STANDIN_VALUE_INTEGER, -5, 0.0, nullptr}, 1},
                      ScriptCase{"Float", {STANDIN_VALUE_FLOAT, 0, 2.5, nullptr}, 0},
                      ScriptCase{"String", {STANDIN_VALUE_STRING, 0, 0.0, L"\u706F"}, 8},
                      ScriptCase{"Name", {STANDIN_VALUE_NAME, 0, 0.0, L"north"}, 61}),
    [](const auto& parameter) { return parameter.param.name; });

TEST_F(HostSlots, AFailedScriptAnswersZero) {
    host.scriptAnswer = 0;
    using Execute = BOOL (*)(const wchar_t*, BOOL, void*, BOOL);
    EXPECT_EQ(
        Exported<Execute>(L"MAXScrpt.dll", "?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@H@Z")(
            L"throw 1", FALSE, nullptr, TRUE),
        0);
}

} // namespace
} // namespace test
} // namespace orv
