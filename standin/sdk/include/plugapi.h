// Versions of the host, and the description of a plug-in library's class.
#pragma once

#include "CoreExport.h"
#include "ifnpub.h"
#include "maxtypes.h"

#if defined(_MSC_VER) && !defined(_CPPRTTI) && !defined(__clang__)
#error The host refuses libraries without run-time type information.
#endif

#define MAX_RELEASE_R21 21000
#define MAX_RELEASE MAX_RELEASE_R21
#define MAX_API_NUM 52
#define MAX_SDK_REV 0
#define MAX_PRODUCT_YEAR_NUMBER 2019
#define MAX_VERSION_MAJOR 21

#define VERSION_3DSMAX ((MAX_RELEASE << 16) + (MAX_API_NUM << 8) + MAX_SDK_REV)
#define GET_MAX_RELEASE(x) (((x) >> 16) & 0xffff)
#define GET_MAX_API_NUM(x) (((x) >> 8) & 0xff)
#define GET_MAX_SDK_REV(x) ((x)&0xff)

#define GUP_CLASS_ID 0x0010E0

class ActionTable;
class Animatable;
class IAutoEParamDlg;
class ILoad;
class INode;
class IObjParam;
class IParamMap2;
class ISave;
class Interface;
class Manipulator;
class ParamBlockDesc2;
class ParamMap2UserDlgProc;
class Rect;
class ReferenceMaker;
class ReferenceTarget;

typedef short BlockID;
typedef short MapID;

class ClassDesc : public MaxHeapOperators {
private:
    Tab<FPInterface*> interfaces;

public:
    virtual ~ClassDesc() {}
    virtual int IsPublic() = 0;
    virtual void* Create(BOOL loading = FALSE) = 0;
    virtual int BeginCreate(Interface*) { return 0; }
    virtual int EndCreate(Interface*) { return 0; }
    virtual BOOL OkToCreate(Interface*) { return TRUE; }
    virtual const MCHAR* ClassName() = 0;
    virtual SClass_ID SuperClassID() = 0;
    virtual Class_ID ClassID() = 0;
    virtual const MCHAR* Category() = 0;
    virtual BOOL HasClassParams() { return FALSE; }
    virtual void EditClassParams(HWND) {}
    virtual void ResetClassParams(BOOL fileReset = FALSE) { (void)fileReset; }
    virtual int NumActionTables() { return 0; }
    virtual ActionTable* GetActionTable(int) { return nullptr; }
    virtual BOOL IsManipulator() { return FALSE; }
    virtual BOOL CanManipulate(ReferenceTarget*) { return FALSE; }
    virtual BOOL CanManipulateNode(INode*) { return FALSE; }
    virtual Manipulator* CreateManipulator(ReferenceTarget*, INode*) { return nullptr; }
    virtual Manipulator* CreateManipulator(INode*) { return nullptr; }
    virtual BOOL NeedsToSave() { return FALSE; }
    virtual IOResult Save(ISave*) { return IO_OK; }
    virtual IOResult Load(ILoad*) { return IO_OK; }
    virtual DWORD InitialRollupPageState() { return 0x7fffffff; }
    virtual const MCHAR* InternalName() { return nullptr; }
    virtual bool UseOnlyInternalNameForMAXScriptExposure() { return false; }
    virtual HINSTANCE HInstance() { return nullptr; }
    virtual int NumParamBlockDescs() { return 0; }
    virtual ParamBlockDesc2* GetParamBlockDesc(int) { return nullptr; }
    virtual ParamBlockDesc2* GetParamBlockDescByID(BlockID) { return nullptr; }
    virtual void AddParamBlockDesc(ParamBlockDesc2*) {}
    virtual void BeginEditParams(IObjParam*, ReferenceMaker*, ULONG, Animatable*) {}
    virtual void EndEditParams(IObjParam*, ReferenceMaker*, ULONG, Animatable*) {}
    virtual void InvalidateUI(ParamBlockDesc2*) {}
    CoreExport virtual const MCHAR* GetRsrcString(INT_PTR id);
    virtual void MakeAutoParamBlocks(ReferenceMaker*) {}
    virtual int NumParamMaps() { return 0; }
    virtual IParamMap2* GetParamMap(int) { return nullptr; }
    virtual IParamMap2* GetParamMap(ParamBlockDesc2*) { return nullptr; }
    virtual bool SetUserDlgProc(ParamBlockDesc2*, ParamMap2UserDlgProc* proc = nullptr) {
        (void)proc;
        return false;
    }
    virtual ParamMap2UserDlgProc* GetUserDlgProc(ParamBlockDesc2*) { return nullptr; }
    virtual bool DrawRepresentation(COLORREF, HDC, Rect&) { return false; }
    virtual int NumInterfaces() { return interfaces.Count(); }
    virtual FPInterface* GetInterfaceAt(int i) {
        return i >= 0 && i < interfaces.Count() ? interfaces[i] : nullptr;
    }
    CoreExport virtual FPInterface* GetInterface(Interface_ID id);
    CoreExport virtual FPInterface* GetInterface(const MCHAR* name);
    CoreExport virtual void AddInterface(FPInterface* fpi);
    virtual void ClearInterfaces() { interfaces.ZeroCount(); }
    virtual Class_ID SubClassID() { return Class_ID(); }
    virtual INT_PTR Execute(int, ULONG_PTR arg1 = 0, ULONG_PTR arg2 = 0, ULONG_PTR arg3 = 0) {
        (void)arg1, (void)arg2, (void)arg3;
        return 0;
    }
};
