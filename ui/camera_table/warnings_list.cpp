#include "ui/camera_table/warnings_list.h"

#include "analysis/text/text_convert.h"
#include "base/noncopyable.h"
#include "log/module_log.h"
#include "submit/dialog_input/dialog_log.h"

#include <algorithm>

namespace orv {
namespace {

// Measures texts in the font that a window draws with.
class TextMeasure : private rud_Noncopyable {
public:
    explicit TextMeasure(HWND window) : window_(window), dc_(::GetDC(window)) {
        const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0));
        if (dc_ != nullptr && font != nullptr)
            before_ = ::SelectObject(dc_, font);
    }
    ~TextMeasure() {
        if (before_ != nullptr)
            ::SelectObject(dc_, before_);
        if (dc_ != nullptr)
            ::ReleaseDC(window_, dc_);
    }
    int widthOf(const std::wstring& text) const {
        SIZE size = {};
        ::GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

private:
    HWND window_;
    HDC dc_;
    HGDIOBJ before_ = nullptr;
};

// List boxes draw a text a little in from the edge; without this the last character would be cut.
constexpr int kTextInset = 8;

} // namespace

std::vector<std::wstring> WarningLines(const SceneAnalysis& analysis) {
    std::vector<std::wstring> lines;
    for (const AnalysisMessage& message : analysis.messages) {
        if (message.severity != kInfo)
            lines.push_back(Utf8ToWide(message.text));
    }
    lines.insert(lines.end(), analysis.tips.begin(), analysis.tips.end());
    lines.insert(lines.end(), analysis.problemFiles.begin(), analysis.problemFiles.end());
    return lines;
}

void FillWarnings(HWND list, const std::vector<std::wstring>& lines) {
    ::SendMessageW(list, LB_RESETCONTENT, 0, 0);
    const TextMeasure measure(list);
    int widest = 0;
    for (const std::wstring& line : lines) {
        ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        widest = std::max(widest, measure.widthOf(line) + kTextInset);
    }
    ::SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
    if (lines.empty())
        WriteDialogLog(kInfo, "There is no warnning in this scene.");
    else
        WriteDialogLog(kInfo, "Get warnning infomation of current scene successfully.");
}

} // namespace orv
