#include "ui/progress/progress_dialog.h"

#include "resources/controls.h"

#include <commctrl.h>

namespace orv {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 30;
constexpr UINT kMarqueeMilliseconds = 40;

} // namespace

bool ProgressDialog::onInit(LPARAM /*parameter*/) {
    centreOverOwner();
    ::RemoveMenu(::GetSystemMenu(window(), FALSE), SC_CLOSE, MF_BYCOMMAND);
    ::SendMessageW(control(IDC_PROGRESS_BAR), PBM_SETMARQUEE, TRUE, kMarqueeMilliseconds);
    if (::SetTimer(window(), kPollTimer, kPollMilliseconds, nullptr) == 0) {
        // Without the timer it would never go away.
        reportError("SetTimer failed, error no:" + std::to_string(::GetLastError()));
        end(0);
    }
    return true;
}

bool ProgressDialog::onTimer(UINT_PTR id) {
    if (id != kPollTimer)
        return false;
    // A submission that ended before this worker had begun could not ask for the end: it shows in
    // the submit worker's state alone.
    if (data_.done || data_.submitState != kWorkerRunning) {
        end(0);
        return true;
    }
    const bool visible = ::IsWindowVisible(window()) != FALSE;
    if (visible == data_.hide.load()) // not on each tick: showing a window anew takes the focus
        ::ShowWindow(window(), visible ? SW_HIDE : SW_SHOW);
    return true;
}

bool ProgressDialog::onClose() {
    end(0);
    return true;
}

} // namespace orv
