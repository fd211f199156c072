// Class descriptors of plug-ins without parameter blocks: nothing to keep.
#include "iparamb2.h"

ClassDesc2::ClassDesc2() : dialogs_() {}
ClassDesc2::~ClassDesc2() {}
void ClassDesc2::ResetClassParams(BOOL) {}
int ClassDesc2::NumParamBlockDescs() {
    return blocks_.Count();
}
ParamBlockDesc2* ClassDesc2::GetParamBlockDesc(int i) {
    return i >= 0 && i < blocks_.Count() ? blocks_[i] : nullptr;
}
ParamBlockDesc2* ClassDesc2::GetParamBlockDescByID(BlockID) {
    return nullptr;
}
void ClassDesc2::AddParamBlockDesc(ParamBlockDesc2* pbd) {
    blocks_.Append(1, &pbd);
}
void ClassDesc2::BeginEditParams(IObjParam*, ReferenceMaker*, ULONG, Animatable*) {}
void ClassDesc2::EndEditParams(IObjParam*, ReferenceMaker*, ULONG, Animatable*) {}
void ClassDesc2::InvalidateUI(ParamBlockDesc2*) {}
void ClassDesc2::MakeAutoParamBlocks(ReferenceMaker*) {}
int ClassDesc2::NumParamMaps() {
    return maps_.Count();
}
IParamMap2* ClassDesc2::GetParamMap(int i) {
    return i >= 0 && i < maps_.Count() ? maps_[i] : nullptr;
}
bool ClassDesc2::SetUserDlgProc(ParamBlockDesc2*, MapID, ParamMap2UserDlgProc*) {
    return false;
}
