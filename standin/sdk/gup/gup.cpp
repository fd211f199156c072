// The base of global utilities: what the system answers for them.
#include "max.h"
// max.h first
#include "gup.h"
#include "standin/sdk/include/standin/host_services.h"

GUP::GUP() {}
GUP::~GUP() {}
HINSTANCE GUP::MaxInst() {
    return GetModuleHandleW(nullptr);
}
HWND GUP::MaxWnd() {
    return GetCOREInterface() ? GetCOREInterface()->GetMAXHWnd() : nullptr;
}
DllDir* GUP::MaxDllDir() {
    return nullptr;
}
Interface* GUP::Max() {
    return GetCOREInterface();
}
BitmapManager* GUP::Bmi() {
    return nullptr;
}
int GUP::EnumTree(ITreeEnumProc*) {
    return 0;
}
bool GUP::ExecuteStringScript(const MCHAR* string) {
    standin_value value = {STANDIN_VALUE_NONE, 0, 0.0, nullptr};
    return standin_run_script(string ? string : L"", FALSE, TRUE, &value) != 0;
}
bool GUP::ExecuteFileScript(const MCHAR*) {
    return false;
}
DWORD_PTR GUP::Control(DWORD) {
    return 0;
}
IOResult GUP::Save(ISave*) {
    return IO_OK;
}
IOResult GUP::Load(ILoad*) {
    return IO_OK;
}
