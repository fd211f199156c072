// The roots of the host's interfaces.
#pragma once

#include "MaxHeap.h"
#include "interface_id.h"
#include "tab.h"

class BaseInterface;
class InterfaceNotifyCallback;

class InterfaceServer : public MaxHeapOperators {
public:
    UtilExport virtual ~InterfaceServer();
    UtilExport virtual BaseInterface* GetInterface(Interface_ID id);
};

class BaseInterfaceServer : public InterfaceServer {
public:
    UtilExport ~BaseInterfaceServer() override;
    UtilExport BaseInterface* GetInterface(Interface_ID id) override;
    UtilExport virtual int NumInterfaces() const;
    UtilExport virtual BaseInterface* GetInterfaceAt(int i) const;

protected:
    Tab<BaseInterface*> interfaces;
};

class BaseInterface : public InterfaceServer {
public:
    enum LifetimeType { noRelease, immediateRelease, wantsRelease, serverControlled };

    UtilExport ~BaseInterface() override;
    UtilExport BaseInterface* GetInterface(Interface_ID id) override;
    UtilExport virtual Interface_ID GetID();
    virtual LifetimeType LifetimeControl() { return noRelease; }
    virtual bool RegisterNotifyCallback(InterfaceNotifyCallback*) { return false; }
    virtual void UnRegisterNotifyCallback(InterfaceNotifyCallback*) {}
    virtual BaseInterface* AcquireInterface() { return this; }
    virtual void ReleaseInterface() {}
    virtual void DeleteInterface() {}
    virtual BaseInterface* CloneInterface(void* remapDir = nullptr) {
        (void)remapDir;
        return nullptr;
    }
};
