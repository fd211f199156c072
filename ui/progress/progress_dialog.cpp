#include "ui/progress/progress_dialog.h"

#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "submit/dialog_input/dialog_controls.h"
#include "ui/progress/progress_lines.h"

#include <commctrl.h>

#include <algorithm>
#include <memory>

namespace orv {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 30;
constexpr UINT kMarqueeMilliseconds = 40;
constexpr std::uint64_t kLinesMilliseconds = 250; // nobody reads faster

// The archiver writes the archive under a name of its own until it is whole.
constexpr wchar_t kUnfinishedSuffix[] = L".tmp";

void Replace(std::wstring& text, const std::wstring& mark, const std::wstring& value) {
    const std::size_t at = text.find(mark);
    if (at != std::wstring::npos)
        text.replace(at, mark.size(), value);
}

} // namespace

bool ProgressDialog::onInit(LPARAM /*parameter*/) {
    centreOverOwner();
    ::RemoveMenu(::GetSystemMenu(window(), FALSE), SC_CLOSE, MF_BYCOMMAND);
    ::SendMessageW(control(IDC_PROGRESS_BAR), PBM_SETMARQUEE, TRUE, kMarqueeMilliseconds);
    opened_ = ::GetTickCount64();
    showLines();
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
    if (data_.stage != shownStage_ || ::GetTickCount64() - shown_ >= kLinesMilliseconds)
        showLines();
    return true;
}

void ProgressDialog::showLines() {
    shown_ = ::GetTickCount64();
    shownStage_ = data_.stage;
    setText(IDC_PROGRESS_TEXT, ResourceText(StageText(shownStage_)));
    setText(IDC_PROGRESS_TIME, TimeLine(shown_ - opened_));

    const std::shared_ptr<const PackedFiles> files = data_.packedFiles();
    if (files == nullptr)
        return;
    std::wstring size = ResourceText(IDS_PROGRESS_SIZE);
    const std::uint64_t archive =
        std::max(FileSize(files->archive), FileSize(files->archive + kUnfinishedSuffix));
    Replace(size, L"%1", MegabyteText(archive));
    Replace(size, L"%2", MegabyteText(FileSize(files->scene)));
    setText(IDC_PROGRESS_SIZE, size);
}

void ProgressDialog::setText(int id, const std::wstring& text) {
    if (ControlText(window(), id) != text)
        ::SetDlgItemTextW(window(), id, text.c_str());
}

bool ProgressDialog::onClose() {
    end(0);
    return true;
}

} // namespace orv
