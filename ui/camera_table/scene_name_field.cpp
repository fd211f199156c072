#include "ui/camera_table/scene_name_field.h"

#include "analysis/text/text_convert.h"
#include "config/dialog_choices.h"
#include "log/module_log.h"
#include "submit/dialog_input/dialog_log.h"
#include "submit/dialog_input/scene_name_text.h"

namespace orv {

void SetSceneName(HWND field, const std::string& fileName) {
    const std::wstring name = SceneNameOf(Utf8ToWide(fileName));
    ::SetWindowTextW(field, name.c_str());
    if (name.empty())
        WriteDialogLog(kWarn, "The scene name is empty!");
    else
        WriteDialogLog(kInfo, "Set scene name successfully.");
}

std::wstring GetSceneName(HWND field) {
    std::wstring name = SceneFileNameOf(ControlText(::GetParent(field), ::GetDlgCtrlID(field)));
    WriteDialogLog(kInfo, "Get scene name text down, it is :" + WideToUtf8(name));
    return name;
}

} // namespace orv
