// The base of the plug-in's modal dialogs: it cracks the messages once, and no exception leaves it.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>

namespace orv {

class Dialog : private rud_Noncopyable {
public:
    // Runs the dialog of number `templateId` modally over `owner`, which may be null, and returns
    // the code that it ended with; -1, with a line in the log, when it could not be shown.
    // `parameter` reaches onInit. Runs on the calling thread; an object runs one dialog at a time.
    INT_PTR run(int templateId, HWND owner, LPARAM parameter = 0);

protected:
    Dialog() = default;
    virtual ~Dialog() = default;

    HWND window() const { return window_; }
    // The control of number `id`, null when the dialog has none.
    HWND control(int id) const { return ::GetDlgItem(window_, id); }
    // Ends the dialog; it is gone once the current message has been handled.
    void end(INT_PTR result) { ::EndDialog(window_, result); }

    // Takes the close command out of the system menu, and the button out of the title bar.
    void removeCloseCommand();
    // Starts the timer that onTimer answers to. Without a timer the dialog would never end: it ends
    // with 0 then, with a line in the log.
    void startTimer(UINT_PTR id, UINT milliseconds);

    // What a dialog answers to. The controls exist from onInit to onDestroy. An exception ends the
    // dialog with 0 and is logged.

    // True to let the system set the focus to the first control.
    virtual bool onInit(LPARAM) { return true; }
    // `id` is the control, menu item or key (IDCANCEL for Escape), `code` its notification. These
    // and the next return whether they dealt with it.
    virtual bool onCommand(int /*id*/, int /*code*/) { return false; }
    // `result` is what the control gets as its answer.
    virtual bool onNotify(NMHDR& /*header*/, LRESULT& /*result*/) { return false; }
    virtual bool onTimer(UINT_PTR /*id*/) { return false; }
    virtual bool onClose() { return false; }
    virtual void onDestroy() {}
    // Every other message, the private ones (from WM_USER on) among them.
    virtual bool onMessage(UINT /*message*/, WPARAM, LPARAM) { return false; }

    // Writes `line`, UTF-8, as an error to the dialog's log: "rud_data" unless a dialog overrides
    // it.
    virtual void writeError(const std::string& line) noexcept;

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
};

} // namespace orv
