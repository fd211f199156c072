// Class descriptors with parameter blocks.
#pragma once

#include "PB2Export.h"
#include "plugapi.h"

class IParamBlock2;

namespace MaxSDK {
class QMaxParamBlockWidget;
}

class ClassDesc2 : public ClassDesc {
public:
    PB2Export ClassDesc2();
    PB2Export ~ClassDesc2() override;

    PB2Export void ResetClassParams(BOOL fileReset = FALSE) override;
    PB2Export int NumParamBlockDescs() override;
    PB2Export ParamBlockDesc2* GetParamBlockDesc(int i) override;
    PB2Export ParamBlockDesc2* GetParamBlockDescByID(BlockID id) override;
    PB2Export void AddParamBlockDesc(ParamBlockDesc2* pbd) override;
    PB2Export void BeginEditParams(IObjParam* ip, ReferenceMaker* obj, ULONG flags,
                                   Animatable* prev) override;
    PB2Export void EndEditParams(IObjParam* ip, ReferenceMaker* obj, ULONG flags,
                                 Animatable* prev) override;
    PB2Export void InvalidateUI(ParamBlockDesc2* pbd) override;
    PB2Export void MakeAutoParamBlocks(ReferenceMaker* owner) override;
    PB2Export int NumParamMaps() override;
    PB2Export IParamMap2* GetParamMap(int i) override;
    bool SetUserDlgProc(ParamBlockDesc2* pbd, ParamMap2UserDlgProc* proc = nullptr) override {
        return SetUserDlgProc(pbd, 0, proc);
    }
    PB2Export bool SetUserDlgProc(ParamBlockDesc2* pbd, MapID mapId,
                                  ParamMap2UserDlgProc* proc = nullptr);
    virtual MaxSDK::QMaxParamBlockWidget* CreateQtWidget(ReferenceMaker&, IParamBlock2&,
                                                         const MapID, MSTR&, int&, int&) {
        return nullptr;
    }

protected:
    Tab<ParamBlockDesc2*> blocks_;
    Tab<IParamMap2*> maps_;
    void* dialogs_[3];
};
