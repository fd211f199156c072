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
    return OrvClassID();
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

ClassDesc2* GetOrv_RenderingDesc() {
    static Orv_RenderingClassDesc descriptor;
    return &descriptor;
}
