// Function publishing: the plug-in publishes nothing, so every question is answered with "none".
#include "ifnpub.h"
#include "plugapi.h"

FPStatus FPInterface::Invoke(FunctionID, TimeValue, FPParams*) {
    return FPS_NO_SUCH_FUNCTION;
}
FPStatus FPInterface::Invoke(FunctionID, TimeValue, FPValue&, FPParams*) {
    return FPS_NO_SUCH_FUNCTION;
}
FunctionID FPInterface::FindFn(const MCHAR*) {
    return -1;
}
BOOL FPInterface::IsEnabled(FunctionID) {
    return TRUE;
}
BOOL FPInterface::IsChecked(FunctionID) {
    return FALSE;
}
BOOL FPInterface::IsVisible(FunctionID) {
    return TRUE;
}
FunctionID FPInterface::GetIsEnabled(FunctionID) {
    return -1;
}
FunctionID FPInterface::GetIsChecked(FunctionID) {
    return -1;
}
FunctionID FPInterface::GetIsVisible(FunctionID) {
    return -1;
}

FPInterfaceDesc::FPInterfaceDesc() : description_() {}
FPInterfaceDesc::~FPInterfaceDesc() {}
void FPInterfaceDesc::EnableActions(BOOL) {}
HINSTANCE FPInterfaceDesc::HInstance() {
    return nullptr;
}
const MCHAR* FPInterfaceDesc::GetRsrcString(StringResID) {
    return L"";
}

FPMixinInterface::~FPMixinInterface() {}
bool FPMixinInterface::RegisterNotifyCallback(InterfaceNotifyCallback*) {
    return false;
}

FPInterface* ClassDesc::GetInterface(Interface_ID id) {
    for (int i = 0; i < interfaces.Count(); ++i)
        if (interfaces[i]->GetID() == id)
            return interfaces[i];
    return nullptr;
}
FPInterface* ClassDesc::GetInterface(const MCHAR*) {
    return nullptr;
}
void ClassDesc::AddInterface(FPInterface* fpi) {
    interfaces.Append(1, &fpi);
}

// The text stays until the next call, as a class descriptor's texts do in the host.
const MCHAR* ClassDesc::GetRsrcString(INT_PTR id) {
    static MCHAR text[256];
    return LoadStringW(HInstance(), static_cast<UINT>(id), text, 256) > 0 ? text : L"";
}
