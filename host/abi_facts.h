// What the binary interface of the host's release 2019 is made of: sizes, offsets, entries of
// virtual tables, signatures, numbers. The one home of these facts. This header includes nothing
// and names the host's types only in macros, so sources without the host's headers read it as well.
//
// At compile time, in every build of the plug-in, host/abi_facts.cpp asserts that the host's
// headers in use say the same: sizes, offsets, signatures, numbers.
//
// At run time, host/abi_slots.cpp finds out which entry of a virtual table a call through those
// headers reaches, and tests/unit/host compares it. No compiler can assert that: a pointer to a
// virtual function does not tell its entry in a constant expression. The same test compares the ids
// of interfaces, which the headers make by a constructor.
//
// tests/system/abi calls the host's objects and the plug-in's by these numbers,
// without any header of the host, and reads private members, which have no accessible name, from
// objects.
#pragma once

// clang-format off

// X(class, bytes)
#define ORV_HOST_SIZES(X)                \
    X(InterfaceServer, 8)                \
    X(BaseInterfaceServer, 16)           \
    X(BaseInterface, 8)                  \
    X(FPInterface, 8)                    \
    X(FPInterfaceDesc, 96)               \
    X(FPStaticInterface, 96)             \
    X(FPMixinInterface, 24)              \
    X(FPValue, 16)                       \
    X(GUP, 8)                            \
    X(ClassDesc, 16)                     \
    X(ClassDesc2, 56)                    \
    X(ActionTable, 80)                   \
    X(ActionCallback, 24)                \
    X(ActionItem, 32)                    \
    X(ActionDescription, 16)             \
    X(IActionManager, 96)                \
    X(IMenuManager, 96)                  \
    X(IMenuContext, 8)                   \
    X(IMenuBarContext, 8)                \
    X(IMenuElement, 8)                   \
    X(IMenu, 40)                         \
    X(IMenuItem, 40)                     \
    X(Interface, 96)                     \
    X(MSTR, 8)                           \
    X(Tab<void*>, 8)                     \
    X(Class_ID, 8)                       \
    X(Interface_ID, 8)                   \
    X(NotifyInfo, 16)                    \
    X(ToolTipExtender, 16)               \
    X(ICustomControl, 8)                 \
    X(ISpinnerControl, 8)

// X(class, member, bytes from the start of the object): members that everybody may name.
#define ORV_HOST_OFFSETS(X)                       \
    X(FPValue, type, 0)                           \
    X(FPValue, i, 8)                              \
    X(FPValue, s, 8)                              \
    X(NotifyInfo, intcode, 0)                     \
    X(NotifyInfo, callParam, 8)                   \
    X(ActionDescription, mCmdID, 0)               \
    X(ActionDescription, mDescriptionResourceID, 4) \
    X(ActionDescription, mShortNameResourceID, 8) \
    X(ActionDescription, mCategoryResourceID, 12)

// The same for protected members, which a derived class may name.
#define ORV_HOST_PROTECTED_OFFSETS(X)             \
    X(BaseInterfaceServer, interfaces, 8)         \
    X(ActionTable, mOps, 32)

// X(name, bytes from the start of the object)
#define ORV_HOST_HIDDEN_OFFSETS(X)                \
    X(FPMixinInterface_Callbacks, 16)             \
    X(ActionTable_Id, 40)                         \
    X(ActionTable_ContextId, 44)                  \
    X(ActionTable_Name, 48)                       \
    X(ActionTable_Callback, 72)                   \
    X(ActionCallback_Table, 16)                   \
    X(ClassDesc_Interfaces, 8)                    \
    X(IMenu_Element, 32)                          \
    X(IMenuItem_Element, 32)

// X(name, how the host's headers spell it, value)
#define ORV_HOST_NUMBERS(X)                                              \
    X(Version, VERSION_3DSMAX, 0x52083400)                               \
    X(StatusOk, FPS_OK, 1)                                               \
    X(StatusFail, FPS_FAIL, 0)                                           \
    X(StatusNoSuchFunction, FPS_NO_SUCH_FUNCTION, -1)                    \
    X(StatusActionDisabled, FPS_ACTION_DISABLED, -2)                     \
    X(NoRelease, BaseInterface::noRelease, 0)                            \
    X(ImmediateRelease, BaseInterface::immediateRelease, 1)              \
    X(WantsRelease, BaseInterface::wantsRelease, 2)                      \
    X(ServerControlled, BaseInterface::serverControlled, 3)              \
    X(TableGetId, ActionTable::kGetId, 0)                                \
    X(TableGetName, ActionTable::kGetName, 1)                            \
    X(TableGetContextId, ActionTable::kGetContextId, 2)                  \
    X(TableGetContextName, ActionTable::kGetContextName, 3)              \
    X(TableNumActionItems, ActionTable::kNumActionItems, 4)              \
    X(TableGetActionItem, ActionTable::kGetActionItem, 5)                \
    X(TypeFloat, TYPE_FLOAT, 0)                                          \
    X(TypeInt, TYPE_INT, 1)                                              \
    X(TypeBool, TYPE_BOOL, 4)                                            \
    X(TypeString, TYPE_STRING, 8)                                        \
    X(TypeFilename, TYPE_FILENAME, 9)                                    \
    X(TypeIndex, TYPE_INDEX, 19)                                         \
    X(TypeVoid, TYPE_VOID, 46)                                           \
    X(TypeTstr, TYPE_TSTR, 57)                                           \
    X(TypeInterface, TYPE_INTERFACE, 59)                                 \
    X(TypeName, TYPE_NAME, 61)                                           \
    X(TypeDword, TYPE_DWORD, 65)                                         \
    X(TypeTstrByValue, TYPE_TSTR_BV, 0x2039)                             \
    X(IoOk, IO_OK, 0)                                                    \
    X(UtilityClass, GUP_CLASS_ID, 0x10E0)                                \
    X(UtilityKeep, GUPRESULT_KEEP, 0)                                    \
    X(MainMenuBar, kMainMenuBar, 1)                                      \
    X(ContextIsMenuBar, kMenuContextMenuBar, 0)                          \
    X(SystemStartup, NOTIFY_SYSTEM_STARTUP, 0x50)                        \
    X(SystemShutdown, NOTIFY_SYSTEM_SHUTDOWN, 0x49)                      \
    X(EditInt, EDITTYPE_INT, 0)                                          \
    X(EditFloat, EDITTYPE_FLOAT, 1)                                      \
    X(SpinnerChange, CC_SPINNER_CHANGE, 0x0400 + 600)                    \
    X(EditEnter, WM_CUSTEDIT_ENTER, 0x0400 + 685)

// X(name, how the host's headers spell it, part a, part b)
#define ORV_HOST_INTERFACE_IDS(X)                                        \
    X(NullInterface, NULLINTERFACE_ID, 0, 0)                             \
    X(Publishing, FPINTERFACE_ID, 0, 2)                                  \
    X(PublishingMixin, FPMIXININTERFACE_ID, 0, 3)                        \
    X(Description, FPINTERFACEDESC_ID, 0, 4)

// X(class, name, entry of the virtual table, function, result, (arguments), qualifier)
// Entry 0 of each is the destructor. Of overloads, which share the function's name and stand in the
// reverse of their order in the header, each has a name of its own here.
#define ORV_HOST_SLOTS(X)                                                                          \
    X(GUP, GetInterface, 1, GetInterface, BaseInterface*, (Interface_ID), )                        \
    X(GUP, MaxInst, 2, MaxInst, HINSTANCE, (), )                                                   \
    X(GUP, MaxWnd, 3, MaxWnd, HWND, (), )                                                          \
    X(GUP, MaxDllDir, 4, MaxDllDir, DllDir*, (), )                                                 \
    X(GUP, Max, 5, Max, Interface*, (), )                                                          \
    X(GUP, Bmi, 6, Bmi, BitmapManager*, (), )                                                      \
    X(GUP, EnumTree, 7, EnumTree, int, (ITreeEnumProc*), )                                         \
    X(GUP, ExecuteStringScript, 8, ExecuteStringScript, bool, (const MCHAR*), )                    \
    X(GUP, ExecuteFileScript, 9, ExecuteFileScript, bool, (const MCHAR*), )                        \
    X(GUP, Start, 10, Start, DWORD, (), )                                                          \
    X(GUP, Stop, 11, Stop, void, (), )                                                             \
    X(GUP, Control, 12, Control, DWORD_PTR, (DWORD), )                                             \
    X(GUP, Save, 13, Save, IOResult, (ISave*), )                                                   \
    X(GUP, Load, 14, Load, IOResult, (ILoad*), )                                                   \
    X(GUP, DeleteThis, 15, DeleteThis, void, (), )                                                 \
    X(ClassDesc, IsPublic, 1, IsPublic, int, (), )                                                 \
    X(ClassDesc, Create, 2, Create, void*, (BOOL), )                                               \
    X(ClassDesc, BeginCreate, 3, BeginCreate, int, (Interface*), )                                 \
    X(ClassDesc, EndCreate, 4, EndCreate, int, (Interface*), )                                     \
    X(ClassDesc, OkToCreate, 5, OkToCreate, BOOL, (Interface*), )                                  \
    X(ClassDesc, ClassName, 6, ClassName, const MCHAR*, (), )                                      \
    X(ClassDesc, SuperClassID, 7, SuperClassID, SClass_ID, (), )                                   \
    X(ClassDesc, ClassID, 8, ClassID, Class_ID, (), )                                              \
    X(ClassDesc, Category, 9, Category, const MCHAR*, (), )                                        \
    X(ClassDesc, NumActionTables, 13, NumActionTables, int, (), )                                  \
    X(ClassDesc, InitialRollupPageState, 23, InitialRollupPageState, DWORD, (), )                  \
    X(ClassDesc, InternalName, 24, InternalName, const MCHAR*, (), )                               \
    X(ClassDesc, HInstance, 26, HInstance, HINSTANCE, (), )                                        \
    X(ClassDesc, NumParamBlockDescs, 27, NumParamBlockDescs, int, (), )                            \
    X(ClassDesc, NumInterfaces, 42, NumInterfaces, int, (), )                                      \
    X(ClassDesc, GetInterfaceAt, 43, GetInterfaceAt, FPInterface*, (int), )                        \
    X(ClassDesc, GetInterfaceByName, 44, GetInterface, FPInterface*, (const MCHAR*), )             \
    X(ClassDesc, GetInterface, 45, GetInterface, FPInterface*, (Interface_ID), )                   \
    X(ClassDesc, AddInterface, 46, AddInterface, void, (FPInterface*), )                           \
    X(ClassDesc, ClearInterfaces, 47, ClearInterfaces, void, (), )                                 \
    X(ClassDesc, Execute, 49, Execute, INT_PTR, (int, ULONG_PTR, ULONG_PTR, ULONG_PTR), )          \
    X(FPMixinInterface, GetInterface, 1, GetInterface, BaseInterface*, (Interface_ID), )           \
    X(FPMixinInterface, GetID, 2, GetID, Interface_ID, (), )                                       \
    X(FPMixinInterface, LifetimeControl, 3, LifetimeControl, BaseInterface::LifetimeType, (), )    \
    X(FPMixinInterface, RegisterNotifyCallback, 4, RegisterNotifyCallback, bool,                   \
      (InterfaceNotifyCallback*), )                                                                \
    X(FPMixinInterface, UnRegisterNotifyCallback, 5, UnRegisterNotifyCallback, void,               \
      (InterfaceNotifyCallback*), )                                                                \
    X(FPMixinInterface, GetDesc, 11, GetDesc, FPInterfaceDesc*, (), )                              \
    X(FPMixinInterface, InvokeResult, 12, Invoke, FPStatus, (FunctionID, FPValue&, FPParams*), )   \
    X(FPMixinInterface, InvokeTimeResult, 13, Invoke, FPStatus,                                    \
      (FunctionID, TimeValue, FPValue&, FPParams*), )                                              \
    X(FPMixinInterface, Invoke, 14, Invoke, FPStatus, (FunctionID, FPParams*), )                   \
    X(FPMixinInterface, InvokeTime, 15, Invoke, FPStatus, (FunctionID, TimeValue, FPParams*), )    \
    X(FPMixinInterface, GetDescByID, 25, GetDescByID, FPInterfaceDesc*, (Interface_ID), )          \
    X(ActionTable, GetName, 30, GetName, MSTR&, (), )                                              \
    X(ActionTable, GetId, 31, GetId, ActionTableId, (), )                                          \
    X(ActionTable, GetContextId, 32, GetContextId, ActionContextId, (), )                          \
    X(ActionTable, GetCallback, 33, GetCallback, ActionCallback*, (), )                            \
    X(ActionTable, SetCallback, 34, SetCallback, void, (ActionCallback*), )                        \
    X(ActionTable, Count, 35, Count, int, (), )                                                    \
    X(ActionTable, GetAction, 37, GetAction, ActionItem*, (int), )                                 \
    X(ActionTable, GetActionByIndex, 38, GetActionByIndex, ActionItem*, (int), )                   \
    X(ActionTable, DeleteThis, 41, DeleteThis, void, (), )                                         \
    X(ActionTable, GetMenuText, 43, GetMenuText, BOOL, (int, MSTR&), )                             \
    X(ActionItem, GetId, 26, GetId, int, (), )                                                     \
    X(ActionCallback, ExecuteAction, 4, ExecuteAction, BOOL, (int), )                              \
    X(Interface, GetMAXHWnd, 35, GetMAXHWnd, HWND, (), const)                                      \
    X(Interface, RegisterDlgWnd, 166, RegisterDlgWnd, void, (HWND), )                              \
    X(Interface, UnRegisterDlgWnd, 167, UnRegisterDlgWnd, int, (HWND), )                           \
    X(Interface, GetActionManager, 170, GetActionManager, IActionManager*, (), )                   \
    X(Interface, GetMenuManager, 171, GetMenuManager, IMenuManager*, (), )                         \
    X(Interface, GetDir, 220, GetDir, const MCHAR*, (int), )                                       \
    X(Interface, GetCurFileName, 240, GetCurFileName, MSTR&, (), )                                 \
    X(Interface, GetCurFilePath, 241, GetCurFilePath, MSTR&, (), )                                 \
    X(Interface, FileSave, 244, FileSave, BOOL, (), )                                              \
    X(Interface, SaveToFile, 257, SaveToFile, int, (const MCHAR*, BOOL, BOOL), )                   \
    X(IActionManager, RegisterActionTable, 28, RegisterActionTable, void, (ActionTable*), )        \
    X(IActionManager, ActivateActionTable, 31, ActivateActionTable, int,                           \
      (ActionCallback*, ActionTableId), )                                                          \
    X(IActionManager, DeactivateActionTable, 32, DeactivateActionTable, int,                       \
      (ActionCallback*, ActionTableId), )                                                          \
    X(IActionManager, FindTable, 33, FindTable, ActionTable*, (ActionTableId), )                   \
    X(IActionManager, RegisterActionContext, 36, RegisterActionContext, BOOL,                      \
      (ActionContextId, const MCHAR*), )                                                           \
    X(IMenuManager, RegisterMenu, 28, RegisterMenu, bool, (IMenu*, DWORD), )                       \
    X(IMenuManager, UnRegisterMenu, 29, UnRegisterMenu, bool, (IMenu*), )                          \
    X(IMenuManager, FindMenu, 30, FindMenu, IMenu*, (const MCHAR*), )                              \
    X(IMenuManager, RegisterMenuBarContext, 32, RegisterMenuBarContext, bool,                      \
      (MenuContextId, const MCHAR*), )                                                             \
    X(IMenuManager, GetContext, 36, GetContext, IMenuContext*, (MenuContextId), )                  \
    X(IMenuManager, UpdateMenuBar, 37, UpdateMenuBar, void, (), )                                  \
    X(IMenuBarContext, GetId, 2, GetId, MenuContextId, (), )                                       \
    X(IMenuBarContext, GetType, 3, GetType, MenuContextType, (), )                                 \
    X(IMenuBarContext, GetName, 4, GetName, MSTR&, (), )                                           \
    X(IMenuBarContext, SetMenu, 5, SetMenu, void, (IMenu*), )                                      \
    X(IMenuBarContext, GetMenu, 6, GetMenu, IMenu*, (), )                                          \
    X(IMenuElement, SetTitle, 5, SetTitle, void, (const MCHAR*), )                                 \
    X(IMenuElement, GetTitle, 6, GetTitle, const MSTR&, (), )                                      \
    X(IMenu, SetIMenuGlobalContext, 26, SetIMenuGlobalContext, void,                               \
      (IMenuGlobalContext*, int, Tab<IMenuItem*>*, const MenuColors*), )                           \
    X(IMenu, NumItems, 28, NumItems, int, (), const)                                               \
    X(IMenu, GetItem, 29, GetItem, IMenuItem*, (int), )                                            \
    X(IMenu, AddItem, 30, AddItem, void, (IMenuItem*, int), )                                      \
    X(IMenu, RemoveItem, 31, RemoveItem, void, (IMenuItem*), )                                     \
    X(IMenu, RemoveItemAt, 32, RemoveItem, void, (int), )                                          \
    X(IMenu, SetCustomTitle, 48, SetCustomTitle, void, (const MCHAR*), )                           \
    X(IMenu, GetCustomTitle, 49, GetCustomTitle, const MSTR&, (), const)                           \
    X(IMenu, SetUseCustomTitle, 50, SetUseCustomTitle, void, (bool), )                             \
    X(IMenu, GetUseCustomTitle, 51, GetUseCustomTitle, bool, (), const)                            \
    X(IMenuItem, ActAsSeparator, 29, ActAsSeparator, void, (), )                                   \
    X(IMenuItem, IsSeparator, 30, IsSeparator, bool, (), const)                                    \
    X(IMenuItem, SetActionItem, 31, SetActionItem, void, (ActionItem*), )                          \
    X(IMenuItem, GetActionItem, 32, GetActionItem, ActionItem*, (), const)                         \
    X(IMenuItem, SetSubMenu, 35, SetSubMenu, void, (IMenu*), )                                     \
    X(IMenuItem, GetSubMenu, 36, GetSubMenu, IMenu*, (), )                                         \
    X(IMenuItem, SetUseCustomTitle, 47, SetUseCustomTitle, void, (bool), )                         \
    X(ISpinnerControl, GetFVal, 9, GetFVal, float, (), )                                           \
    X(ISpinnerControl, GetIVal, 10, GetIVal, int, (), )                                            \
    X(ISpinnerControl, SetValueInt, 13, SetValue, void, (int, int), )                              \
    X(ISpinnerControl, SetValueFloat, 14, SetValue, void, (float, int), )                          \
    X(ISpinnerControl, SetLimitsFloat, 15, SetLimits, void, (float, float, int), )                 \
    X(ISpinnerControl, SetLimitsInt, 16, SetLimits, void, (int, int, int), )                       \
    X(ISpinnerControl, LinkToEdit, 17, LinkToEdit, void, (HWND, EditSpinnerType), )                \
    X(ToolTipExtender, SetToolTip, 1, SetToolTip, void, (HWND, const MSTR&), )                     \
    X(ToolTipExtender, GetToolTip, 2, GetToolTip, void, (HWND, MSTR&), )                           \
    X(ToolTipExtender, RemoveToolTip, 3, RemoveToolTip, void, (HWND), )                            \
    X(ToolTipExtender, GetToolTipHWND, 5, GetToolTipHWND, HWND, (), )

// The same for protected functions, which a derived class may name.
#define ORV_HOST_PROTECTED_SLOTS(X)                                                                \
    X(ActionTable, DispatchFn, 10, _dispatch_fn, FPStatus,                                         \
      (FunctionID, TimeValue, FPValue&, FPParams*), )

// X(function, result, (arguments)): functions of the host's libraries. The linker checks their
// names, but a default that has moved or a result that has changed shows here.
#define ORV_HOST_FUNCTIONS(X)                                                                      \
    X(GetCOREInterface, Interface*, ())                                                            \
    X(RegisterNotification, int, (NOTIFYPROC, void*, int))                                         \
    X(UnRegisterNotification, int, (NOTIFYPROC, void*, int))                                       \
    X(GetIMenu, IMenu*, ())                                                                        \
    X(GetIMenuItem, IMenuItem*, ())                                                                \
    X(GetISpinner, ISpinnerControl*, (HWND))                                                       \
    X(ReleaseISpinner, void, (ISpinnerControl*))                                                   \
    X(SetupIntSpinner, ISpinnerControl*, (HWND, int, int, int, int, int))                          \
    X(SetupFloatSpinner, ISpinnerControl*, (HWND, int, int, float, float, float, float))           \
    X(MaxSDK::Util::UseLanguagePackLocale, void, (HMODULE))                                        \
    X(TBMakeSize, int, (TabHdr**, int, int))                                                       \
    X(TBSetCount, void, (TabHdr**, int, int, int))                                                 \
    X(TBInsertAt, int, (TabHdr**, int, int, const void*, int, int))                                \
    X(TBCopy, int, (TabHdr**, int, int, const void*, int))                                         \
    X(TBDelete, int, (TabHdr**, int, int, int))

namespace orv {
namespace host_abi {

// Entries of virtual tables: slot::ActionTable_GetAction and so on.
namespace slot {
#define ORV_SLOT_NUMBER(type, name, number, function, result, arguments, qualifier)                \
    const int type##_##name = number;
ORV_HOST_SLOTS(ORV_SLOT_NUMBER)
ORV_HOST_PROTECTED_SLOTS(ORV_SLOT_NUMBER)
#undef ORV_SLOT_NUMBER
} // namespace slot

// Bytes from the start of an object: offset::ActionTable_Id and so on.
namespace offset {
#define ORV_OFFSET(name, bytes) const int name = bytes;
ORV_HOST_HIDDEN_OFFSETS(ORV_OFFSET)
#undef ORV_OFFSET
#define ORV_OFFSET(type, member, bytes) const int type##_##member = bytes;
ORV_HOST_OFFSETS(ORV_OFFSET)
ORV_HOST_PROTECTED_OFFSETS(ORV_OFFSET)
#undef ORV_OFFSET
} // namespace offset

// The host's constants: number::StatusOk and so on.
namespace number {
#define ORV_NUMBER(name, spelling, value) const int name = value;
ORV_HOST_NUMBERS(ORV_NUMBER)
#undef ORV_NUMBER
} // namespace number

// What the host's Class_ID and Interface_ID consist of.
struct TwoPartId {
    unsigned a, b;
};

// The host's own interfaces: interface_id::Publishing and so on.
namespace interface_id {
#define ORV_INTERFACE_ID(name, spelling, first, second) const TwoPartId name = {first, second};
ORV_HOST_INTERFACE_IDS(ORV_INTERFACE_ID)
#undef ORV_INTERFACE_ID
} // namespace interface_id

} // namespace host_abi
} // namespace orv
// clang-format on
