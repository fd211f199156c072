#include "ui/camera_table/scene_name_field.h"

#include "analysis/text/names.h"
#include "analysis/text/text_convert.h"
#include "log/module_log.h"
#include "submit/dialog_input/dialog_log.h"
#include "windows/controls.h"

namespace orv {

void SetSceneName(HWND field, const std::string& fileName) {
    const std::wstring name = SceneNameOf(Utf8ToWide(fileName));
    Edit(field).setText(name);
    if (name.empty())
        WriteDialogLog(kWarn, "The scene name is empty!");
    else
        WriteDialogLog(kInfo, "Set scene name successfully.");
}

std::wstring GetSceneName(HWND field) {
    std::wstring name = SceneFileNameOf(Edit(field).text());
    WriteDialogLog(kInfo, "Get scene name text down, it is :" + WideToUtf8(name));
    return name;
}

} // namespace orv
