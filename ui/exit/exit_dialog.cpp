#include "ui/exit/exit_dialog.h"

#include "config/dialog_choices.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/exit/exit_guard.h"
#include "ui/progress/progress_lines.h"
#include "ui/workers.h"

#include <commctrl.h>

namespace orv {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 50;
constexpr UINT kMarqueeMilliseconds = 40;

} // namespace

bool ExitDialog::onInit(LPARAM /*parameter*/) {
    centreOverOwner();
    ::RemoveMenu(::GetSystemMenu(window(), FALSE), SC_CLOSE, MF_BYCOMMAND);
    ::SendMessageW(control(IDC_EXIT_BAR), PBM_SETMARQUEE, TRUE, kMarqueeMilliseconds);
    if (endAsked_ != 0)
        endSubmission();
    else if (waits_)
        wait();
    showLines();
    ::SetForegroundWindow(window());
    if (::SetTimer(window(), kPollTimer, kPollMilliseconds, nullptr) == 0) {
        // Without the timer it would never go away.
        reportError("SetTimer failed, error no:" + std::to_string(::GetLastError()));
        end(0);
    }
    return true;
}

bool ExitDialog::onCommand(int id, int /*code*/) {
    switch (id) {
    case IDC_EXIT_WAIT:
        wait();
        return true;
    case IDC_EXIT_END:
        endSubmission();
        return true;
    default:
        return id == IDCANCEL; // Escape: it waits already
    }
}

bool ExitDialog::onTimer(UINT_PTR id) {
    if (id != kPollTimer)
        return false;
    if (HaveWorkersEnded()) {
        end(kSubmissionEnded);
        return true;
    }
    if (endAsked_ != 0 && ::GetTickCount64() - endAsked_ >= kEndingMilliseconds) {
        end(kGivenUp);
        return true;
    }
    const bool visible = ::IsWindowVisible(window()) != FALSE;
    if (visible == IsSubmissionAsking()) // not on each tick: showing a window anew takes the focus
        ::ShowWindow(window(), visible ? SW_HIDE : SW_SHOW);
    showLines();
    return true;
}

void ExitDialog::wait() {
    waits_ = true;
    setText(IDC_EXIT_HEADING, ResourceText(IDS_EXIT_WAITS));
    // A disabled button would keep the focus, and the next Enter must not reach the other one.
    ::SetFocus(control(IDC_EXIT_BAR));
    ::EnableWindow(control(IDC_EXIT_WAIT), FALSE);
}

void ExitDialog::endSubmission() {
    if (endAsked_ == 0)
        endAsked_ = ::GetTickCount64();
    data_.endSubmission.make();
    setText(IDC_EXIT_HEADING, ResourceText(IDS_EXIT_ENDS));
    ::EnableWindow(control(IDC_EXIT_WAIT), FALSE);
    ::EnableWindow(control(IDC_EXIT_END), FALSE);
    showLines();
}

void ExitDialog::showLines() {
    setText(IDC_EXIT_STAGE,
            ResourceText(endAsked_ != 0 ? IDS_STAGE_ENDING : StageText(data_.stage)));
    setText(IDC_EXIT_TIME, TimeLine(::GetTickCount64() - data_.submitStarted));
}

// Writes only what has changed, which would flicker otherwise.
void ExitDialog::setText(int id, const std::wstring& text) {
    if (ControlText(window(), id) != text)
        ::SetDlgItemTextW(window(), id, text.c_str());
}

} // namespace orv
