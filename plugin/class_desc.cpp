#include "plugin/class_desc.h"

#include "plugin/ids.h"
#include "plugin/utility.h"
#include "resources/text.h"
#include "resources/texts.h"

int Orv_RenderingClassDesc::IsPublic() {
    return 1;
}

void* Orv_RenderingClassDesc::Create(BOOL) {
    return new Orv_Rendering;
}

int Orv_RenderingClassDesc::BeginCreate(Interface*) {
    return 0;
}

int Orv_RenderingClassDesc::EndCreate(Interface*) {
    return 0;
}

BOOL Orv_RenderingClassDesc::OkToCreate(Interface*) {
    return TRUE;
}

// Class name and category come from different buffers, so that the host may hold both.
const MCHAR* Orv_RenderingClassDesc::ClassName() {
    return loadResourceString(IDS_CLASS_NAME);
}

SClass_ID Orv_RenderingClassDesc::SuperClassID() {
    return GUP_CLASS_ID;
}

Class_ID Orv_RenderingClassDesc::ClassID() {
    return kOrvClassID;
}

const MCHAR* Orv_RenderingClassDesc::Category() {
    return loadResourceString2(IDS_CLASS_CATEGORY);
}

const MCHAR* Orv_RenderingClassDesc::InternalName() {
    return _M("Orv_Rendering");
}

HINSTANCE Orv_RenderingClassDesc::HInstance() {
    return hInstance;
}

namespace {

// InitOnceExecuteOnce lets one thread build the descriptor and makes every other one wait. A local
// static's own guard is a thread-local variable, which objects of the host's layout must not have
// (docs/host-layout.md).
INIT_ONCE descriptorOnce = INIT_ONCE_STATIC_INIT;

BOOL CALLBACK BuildDescriptor(PINIT_ONCE, PVOID, PVOID* built) {
    static Orv_RenderingClassDesc descriptor; // destroyed when the library is unloaded
    *built = static_cast<ClassDesc2*>(&descriptor);
    return TRUE;
}

} // namespace

ClassDesc2* GetOrv_RenderingDesc() {
    PVOID descriptor = nullptr;
    InitOnceExecuteOnce(&descriptorOnce, BuildDescriptor, nullptr, &descriptor);
    return static_cast<ClassDesc2*>(descriptor);
}
