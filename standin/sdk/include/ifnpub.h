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

// What a published function answers.
#define FPS_OK 1
#define FPS_FAIL 0
#define FPS_NO_SUCH_FUNCTION -1
#define FPS_ACTION_DISABLED -2

// The interfaces that every publishing object has by itself.
#define NULLINTERFACE_ID Interface_ID(0, 0)
#define FPINTERFACE_ID Interface_ID(0, 2)
#define FPMIXININTERFACE_ID Interface_ID(0, 3)
#define FPINTERFACEDESC_ID Interface_ID(0, 4)

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

    // Takes a value of `kind` from the list and returns where the list goes on. With `pointer`
    // structures arrive by their address; numbers, texts and interfaces are the same either way.
    CoreExport va_list Loadva(int kind, va_list list, bool pointer = false);
    void LoadPtr(int kind, ...) {
        va_list list;
        va_start(list, kind);
        Loadva(kind, list, true);
        va_end(list);
    }
};

namespace MaxSDK {

// The host's growing array of objects. The plug-in only reads those that the host has filled.
template<class T>
class Array : public MaxHeapOperators {
public:
    T& operator[](size_t i) { return elements_[i]; }

private:
    T* elements_;
};

} // namespace MaxSDK

// The arguments of a call, from 0 on.
class FPParams : public MaxHeapOperators {
public:
    MaxSDK::Array<FPValue> params;
};

class FPInterface : public BaseInterface {
public:
    // What an object answers that has no description of itself.
    CoreExport static FPInterfaceDesc nullInterface;

    BaseInterface* GetInterface(Interface_ID id) override;

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
    Interface_ID GetID() override { return ID; }
    CoreExport void EnableActions(BOOL onOff) override;
    CoreExport virtual HINSTANCE HInstance();
    CoreExport virtual const MCHAR* GetRsrcString(StringResID id);

    Interface_ID ID;

protected:
    void* description_[10];
};

inline BaseInterface* FPInterface::GetInterface(Interface_ID id) {
    if (id == FPINTERFACE_ID)
        return this;
    if (id == FPINTERFACEDESC_ID)
        return GetDesc();
    return BaseInterface::GetInterface(id);
}

class FPStaticInterface : public FPInterfaceDesc {};

class FPMixinInterface : public FPInterface {
public:
    FPMixinInterface() : actions_(nullptr), callbacks_(nullptr) {}
    CoreExport ~FPMixinInterface() override;
    LifetimeType LifetimeControl() override { return serverControlled; }
    CoreExport bool RegisterNotifyCallback(InterfaceNotifyCallback* incb) override;
    // Takes out every occurrence of the callback.
    void UnRegisterNotifyCallback(InterfaceNotifyCallback* incb) override {
        if (!callbacks_)
            return;
        for (int i = callbacks_->Count() - 1; i >= 0; --i)
            if ((*callbacks_)[i] == incb)
                callbacks_->Delete(i, 1);
    }
    BaseInterface* GetInterface(Interface_ID id) override {
        return id == FPMIXININTERFACE_ID ? this : FPInterface::GetInterface(id);
    }
    virtual FPInterfaceDesc* GetDescByID(Interface_ID) { return &nullInterface; }
    Interface_ID GetID() override { return GetDesc()->ID; }

protected:
    void* actions_;
    Tab<InterfaceNotifyCallback*>* callbacks_; // null until the first one is registered
};
