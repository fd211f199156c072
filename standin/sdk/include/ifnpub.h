// Published functions: the bases of the host's interfaces, and the value that a script returns.
#pragma once

#include "CoreExport.h"
#include "baseinterface.h"
#include "paramtype.h"
#include "strclass.h"

#include <stdarg.h>

class ActionTable;
class ClassDesc;
class FPInterfaceDesc;
class FPParams;
class ILoad;
class ISave;
class Point3;
class Point4;
class Value;

typedef short FunctionID;
typedef int FPStatus;
typedef INT_PTR StringResID;

#define FPS_NO_SUCH_FUNCTION 2

class FPValue : public MaxHeapOperators {
public:
    ParamType2 type;
    union {
        int i;
        float f;
        DWORD d;
        bool b;
        INT_PTR intptr;
        INT64 i64;
        double dbl;
        int* iptr;
        float* fptr;
        Point3* p;
        Point4* p4;
        TimeValue t;
        const MCHAR* s;
        MSTR* tstr;
        HWND hwnd;
        void* ptr;
        FPValue* fpv;
        Value* v;
    };

    FPValue() { Init(); }
    FPValue(const FPValue& other) {
        Init();
        *this = other;
    }
    CoreExport ~FPValue();

    CoreExport void Init();
    CoreExport void Free();
    CoreExport FPValue& operator=(const FPValue& other);
};

class FPInterface : public BaseInterface {
protected:
    virtual FPStatus _dispatch_fn(FunctionID, TimeValue, FPValue&, FPParams*) {
        return FPS_NO_SUCH_FUNCTION;
    }

public:
    virtual FPInterfaceDesc* GetDesc() = 0;
    CoreExport virtual FPStatus Invoke(FunctionID fid, TimeValue t = 0, FPParams* params = nullptr);
    virtual FPStatus Invoke(FunctionID fid, FPParams* params) { return Invoke(fid, 0, params); }
    CoreExport virtual FPStatus Invoke(FunctionID fid, TimeValue t, FPValue& result,
                                       FPParams* params = nullptr);
    virtual FPStatus Invoke(FunctionID fid, FPValue& result, FPParams* params = nullptr) {
        return Invoke(fid, 0, result, params);
    }
    CoreExport virtual FunctionID FindFn(const MCHAR* name);
    CoreExport virtual BOOL IsEnabled(FunctionID actionID);
    CoreExport virtual BOOL IsChecked(FunctionID actionID);
    CoreExport virtual BOOL IsVisible(FunctionID actionID);
    CoreExport virtual FunctionID GetIsEnabled(FunctionID actionID);
    CoreExport virtual FunctionID GetIsChecked(FunctionID actionID);
    CoreExport virtual FunctionID GetIsVisible(FunctionID actionID);
    virtual ActionTable* GetActionTable() { return nullptr; }
    virtual void EnableActions(BOOL) {}
};

class FPInterfaceDesc : public FPInterface {
public:
    CoreExport FPInterfaceDesc();
    CoreExport ~FPInterfaceDesc() override;

    virtual void Init() {}
    LifetimeType LifetimeControl() override { return noRelease; }
    BaseInterface* GetInterface(Interface_ID id) override { return FPInterface::GetInterface(id); }
    FPInterfaceDesc* GetDesc() override { return this; }
    Interface_ID GetID() override { return id_; }
    CoreExport void EnableActions(BOOL onOff) override;
    CoreExport virtual HINSTANCE HInstance();
    CoreExport virtual const MCHAR* GetRsrcString(StringResID id);

protected:
    Interface_ID id_;
    void* description_[10];
};

class FPStaticInterface : public FPInterfaceDesc {};

class FPMixinInterface : public FPInterface {
public:
    FPMixinInterface() : callbacks_(), enabled_() {}
    CoreExport ~FPMixinInterface() override;
    LifetimeType LifetimeControl() override { return wantsRelease; }
    CoreExport bool RegisterNotifyCallback(InterfaceNotifyCallback* incb) override;
    void UnRegisterNotifyCallback(InterfaceNotifyCallback*) override {}
    BaseInterface* GetInterface(Interface_ID id) override { return FPInterface::GetInterface(id); }
    virtual FPInterfaceDesc* GetDescByID(Interface_ID) { return nullptr; }
    Interface_ID GetID() override { return Interface_ID(); }

protected:
    void* callbacks_;
    INT_PTR enabled_;
};

static_assert(sizeof(FPValue) == 16 && offsetof(FPValue, i) == 8, "type, then the value");
static_assert(sizeof(FPInterface) == 8, "a table pointer");
static_assert(sizeof(FPInterfaceDesc) == 96, "as in the host");
static_assert(sizeof(FPStaticInterface) == 96, "as in the host");
static_assert(sizeof(FPMixinInterface) == 24, "as in the host");
