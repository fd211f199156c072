// The class descriptor: describes the library's one class to the host.
#pragma once

#include "max.h"
// the host's own header comes first
#include "iparamb2.h"

class Orv_RenderingClassDesc : public ClassDesc2 {
public:
    int IsPublic() override;
    void* Create(BOOL loading = FALSE) override;
    int BeginCreate(Interface* i) override;
    int EndCreate(Interface* i) override;
    BOOL OkToCreate(Interface* i) override;
    const MCHAR* ClassName() override;
    SClass_ID SuperClassID() override;
    Class_ID ClassID() override;
    const MCHAR* Category() override;
    const MCHAR* InternalName() override;
    HINSTANCE HInstance() override;
};

// The one descriptor, built on the first call, by one thread.
ClassDesc2* GetOrv_RenderingDesc();
