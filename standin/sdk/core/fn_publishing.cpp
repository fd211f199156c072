// Function publishing: calls go to the object's own table of functions. Nothing here has actions or
// names, so every question about those is answered with "none".
#include "ifnpub.h"
#include "plugapi.h"

FPInterfaceDesc FPInterface::nullInterface;

FPStatus FPInterface::Invoke(FunctionID fid, TimeValue t, FPParams* params) {
    FPValue unused;
    return _dispatch_fn(fid, t, unused, params);
}
FPStatus FPInterface::Invoke(FunctionID fid, TimeValue t, FPValue& result, FPParams* params) {
    return _dispatch_fn(fid, t, result, params);
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

FPInterfaceDesc::FPInterfaceDesc() : ID(NULLINTERFACE_ID), description_() {}
FPInterfaceDesc::~FPInterfaceDesc() {}
void FPInterfaceDesc::EnableActions(BOOL) {}
HINSTANCE FPInterfaceDesc::HInstance() {
    return nullptr;
}
const MCHAR* FPInterfaceDesc::GetRsrcString(StringResID) {
    return L"";
}

FPMixinInterface::~FPMixinInterface() {
    delete callbacks_;
}
bool FPMixinInterface::RegisterNotifyCallback(InterfaceNotifyCallback* incb) {
    if (!callbacks_)
        callbacks_ = new Tab<InterfaceNotifyCallback*>;
    return callbacks_->Append(1, &incb) >= 0;
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
