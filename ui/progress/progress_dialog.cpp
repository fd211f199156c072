#include "ui/progress/progress_dialog.h"

#include "analysis/text/numbers.h"
#include "config/submission_windows.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "submit/scene_archive.h"
#include "windows/controls.h"
#include "windows/measures.h"

#include <algorithm>
#include <memory>

namespace orv {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 30;
constexpr std::uint64_t kLinesMilliseconds = 250; // nobody reads faster

std::wstring TwoDigits(std::uint64_t number) {
    return (number < 10 ? L"0" : L"") + std::to_wstring(number);
}

} // namespace

unsigned StageText(SubmissionStage stage) {
    switch (stage) {
    case SubmissionStage::Checking:
        return IDS_STAGE_CHECKING;
    case SubmissionStage::Saving:
        return IDS_STAGE_SAVING;
    case SubmissionStage::Cleaning:
        return IDS_STAGE_CLEANING;
    case SubmissionStage::Packing:
        return IDS_STAGE_PACKING;
    case SubmissionStage::Describing:
        return IDS_STAGE_DESCRIBING;
    case SubmissionStage::Sending:
        return IDS_STAGE_SENDING;
    }
    return IDS_STAGE_CHECKING;
}

std::wstring ElapsedText(std::uint64_t milliseconds) {
    const std::uint64_t seconds = milliseconds / 1000;
    const std::wstring rest = TwoDigits(seconds % 60);
    if (seconds < 3600)
        return std::to_wstring(seconds / 60) + L":" + rest;
    return std::to_wstring(seconds / 3600) + L":" + TwoDigits(seconds / 60 % 60) + L":" + rest;
}

std::wstring TimeLine(std::uint64_t milliseconds) {
    return ResourceTextWith(IDS_PROGRESS_TIME, {ElapsedText(milliseconds)});
}

std::wstring MegabyteText(std::uint64_t bytes) {
    return DecimalText(static_cast<double>(bytes) / (1024.0 * 1024.0), 1);
}

std::uint64_t FileSize(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (path.empty() || !::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return 0;
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

bool ProgressDialog::waitForScreen() {
    while (!IsProgressOver()) {
        if (TakeScreenForProgress())
            return true;
        ::Sleep(kPollMilliseconds);
    }
    return false;
}

bool ProgressDialog::onInit(LPARAM /*parameter*/) {
    CentreOverOwner(window());
    removeCloseCommand();
    ProgressBar(window(), IDC_PROGRESS_BAR).startMarquee();
    opened_ = ::GetTickCount64();
    showLines();
    startTimer(kPollTimer, kPollMilliseconds);
    return true;
}

bool ProgressDialog::onTimer(UINT_PTR id) {
    if (id != kPollTimer)
        return false;
    if (IsProgressOver()) {
        leave();
        return true;
    }
    const bool visible = ::IsWindowVisible(window()) != FALSE;
    if (data_.hide) {
        handKeyboardToOwner();
        if (visible)
            ::ShowWindow(window(), SW_HIDE);
        LeaveScreenOfProgress();
    } else if (!visible && TakeScreenForProgress()) {
        ::ShowWindow(window(), SW_SHOW); // not on each tick: showing a window anew takes the focus
    }
    if (data_.stage != shownStage_ || ::GetTickCount64() - shown_ >= kLinesMilliseconds)
        showLines();
    return true;
}

void ProgressDialog::showLines() {
    shown_ = ::GetTickCount64();
    shownStage_ = data_.stage;
    Control(window(), IDC_PROGRESS_TEXT).updateText(ResourceText(StageText(shownStage_)));
    Control(window(), IDC_PROGRESS_TIME).updateText(TimeLine(shown_ - opened_));

    const std::shared_ptr<const PackedFiles> files = data_.packedFiles();
    if (files == nullptr)
        return;
    const std::uint64_t archive =
        std::max(FileSize(files->archive), FileSize(files->archive + kUnfinishedSuffix));
    Control(window(), IDC_PROGRESS_SIZE)
        .updateText(ResourceTextWith(
            IDS_PROGRESS_SIZE, {MegabyteText(archive), MegabyteText(FileSize(files->scene))}));
}

// The system shows a modal dialog some time after onInit, whatever the flags are by then.
bool ProgressDialog::onMessage(UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message != WM_WINDOWPOSCHANGING || data_.progressOnScreen)
        return false;
    auto& change = *reinterpret_cast<WINDOWPOS*>(lParam);
    if ((change.flags & SWP_SHOWWINDOW) == 0)
        return false;
    change.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    change.flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    return true;
}

// The dialog below is disabled: Windows would look for another window, which may be another
// program's, and the message box that comes next would open behind that one.
void ProgressDialog::handKeyboardToOwner() const {
    if (::GetForegroundWindow() == window())
        ::SetForegroundWindow(::GetWindow(window(), GW_OWNER));
}

// EndDialog enables the owner. The dialog below stays disabled for as long as it is held, so there
// must be none to enable: it would be enabled for a moment.
void ProgressDialog::leave() {
    handKeyboardToOwner();
    ::ShowWindow(window(), SW_HIDE);
    ::SetWindowLongPtrW(window(), GWLP_HWNDPARENT, 0);
    end(0);
}

bool ProgressDialog::onClose() {
    leave();
    return true;
}

} // namespace orv
