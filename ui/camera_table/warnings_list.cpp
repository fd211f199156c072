#include "ui/camera_table/warnings_list.h"

#include "log/log.h"
#include "windows/controls.h"

namespace orv {

std::vector<std::wstring> WarningLines(const SceneAnalysis& analysis) {
    std::vector<std::wstring> lines;
    for (const AnalysisMessage& message : analysis.messages) {
        if (!message.shown.empty())
            lines.push_back(message.shown);
    }
    lines.insert(lines.end(), analysis.tips.begin(), analysis.tips.end());
    lines.insert(lines.end(), analysis.problemFiles.begin(), analysis.problemFiles.end());
    return lines;
}

void FillWarnings(HWND list, const std::vector<std::wstring>& lines) {
    ListBox(list).setLines(lines);
    if (lines.empty())
        WriteLog(LogModule::Ui, kInfo, "There is no warnning in this scene.");
    else
        WriteLog(LogModule::Ui, kInfo, "Get warnning infomation of current scene successfully.");
}

} // namespace orv
