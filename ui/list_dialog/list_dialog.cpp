#include "ui/list_dialog/list_dialog.h"

#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "windows/controls.h"
#include "windows/dialog.h"
#include "windows/measures.h"

namespace orv {
namespace {

class ListDialog : public Dialog {
public:
    explicit ListDialog(const std::vector<std::wstring>& lines) : lines_(lines) {}

protected:
    bool onInit(LPARAM /*parameter*/) override {
        Control(window()).setText(ResourceText(IDS_LIST_TITLE));
        Control(window(), IDC_LIST_LABEL).setText(ResourceText(IDS_LIST_LABEL));
        Control(window(), IDC_LIST_CLOSE).setText(ResourceText(IDS_LIST_CLOSE));
        ListBox(window(), IDC_LIST_LINES)
            .setLines(lines_); // paths are long: it scrolls to their ends
        CentreInWorkArea(window());
        return true;
    }

    bool onCommand(int id, int /*code*/) override {
        if (id != IDC_LIST_CLOSE && id != IDCANCEL)
            return false;
        end(id);
        return true;
    }

private:
    const std::vector<std::wstring>& lines_;
};

} // namespace

INT_PTR RunListDialog(HWND owner, const std::vector<std::wstring>& lines) {
    ListDialog dialog(lines);
    return dialog.run(IDD_LIST, owner);
}

} // namespace orv
