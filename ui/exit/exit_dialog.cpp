#include "ui/exit/exit_dialog.h"

#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/exit/exit_guard.h"
#include "ui/progress/progress_dialog.h"
#include "ui/workers.h"
#include "windows/controls.h"
#include "windows/measures.h"

namespace orv {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 50;

} // namespace

bool ExitDialog::onInit(LPARAM /*parameter*/) {
    CentreOverOwner(window());
    removeCloseCommand();
    ProgressBar(window(), IDC_EXIT_BAR).startMarquee();
    if (endAsked_ != 0)
        endSubmission();
    else if (waits_)
        wait();
    showLines();
    ::SetForegroundWindow(window());
    startTimer(kPollTimer, kPollMilliseconds);
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
    Control(window(), IDC_EXIT_HEADING).updateText(ResourceText(IDS_EXIT_WAITS));
    // A disabled button would keep the focus, and the next Enter must not reach the other one.
    ::SetFocus(control(IDC_EXIT_BAR));
    Control(window(), IDC_EXIT_WAIT).enable(false);
}

void ExitDialog::endSubmission() {
    if (endAsked_ == 0)
        endAsked_ = ::GetTickCount64();
    data_.endSubmission.make();
    Control(window(), IDC_EXIT_HEADING).updateText(ResourceText(IDS_EXIT_ENDS));
    Control(window(), IDC_EXIT_WAIT).enable(false);
    Control(window(), IDC_EXIT_END).enable(false);
    showLines();
}

void ExitDialog::showLines() {
    Control(window(), IDC_EXIT_STAGE)
        .updateText(ResourceText(endAsked_ != 0 ? IDS_STAGE_ENDING : StageText(data_.stage)));
    Control(window(), IDC_EXIT_TIME).updateText(TimeLine(::GetTickCount64() - data_.submitStarted));
}

} // namespace orv
