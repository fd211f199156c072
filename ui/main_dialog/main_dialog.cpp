#include "ui/main_dialog/main_dialog.h"

#include "analysis/report_reader.h"
#include "analysis/scene_analysis_run.h"
#include "analysis/text/names.h"
#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "base/product.h"
#include "config/client_info.h"
#include "config/dialog_choices.h"
#include "config/submission_windows.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/camera_table/warnings_list.h"
#include "ui/main_dialog/main_layout.h"
#include "ui/render_options/render_options_rules.h"
#include "ui/workers.h"
#include "windows/controls.h"
#include "windows/measures.h"

#include <commctrl.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace orv {

ClientVersion CheckClientVersion(const std::wstring& lowestAccepted,
                                 const std::wstring& pluginVersion) {
    // The length of "1.3.7". The client writes its settings for plug-ins that compare in this way.
    const std::size_t compared = 5;
    if (lowestAccepted.empty())
        return ClientVersion::Missing;
    const int order = lowestAccepted.compare(0, compared, pluginVersion, 0, compared);
    if (order > 0 || (order == 0 && lowestAccepted.size() > compared))
        return ClientVersion::PluginTooOld;
    return ClientVersion::Accepted;
}

MainDialog::MainDialog(PluginData& data) : data_(data), options_(data) {}

void MainDialog::writeError(const std::string& line) noexcept {
    WriteLog(LogModule::Ui, kError, line);
}

bool MainDialog::onInit(LPARAM /*parameter*/) {
    LayOutMainDialog(window(), CameraTable::widthOfColumns(window()),
                     ResourceText(IDS_LANGUAGE_MARKER) == L"1");
    CentreOverOwner(window());
    winsock_ = std::make_unique<WinsockSession>();
    if (!winsock_->started()) {
        std::fputs("Load WinSock Failed!\n", stdout);
        WriteLog(LogModule::Ui, kError, "Load WinSock Failed!");
        // Nothing is filled in: there is nothing to submit.
        for (HWND control : EnabledControlsButCancel(window()))
            ::EnableWindow(control, FALSE);
        return true;
    }
    options_.open(window());
    switch (initialise(true)) {
    case Outcome::Filled:
        break;
    case Outcome::NotAnalysed:
        end(kSceneNotAnalysed);
        return true;
    case Outcome::Ended:
        return true;
    }
    toolTips_ = std::make_unique<host::ToolTips>();
    toolTips_->set(control(IDC_REMEMBER), ResourceText(IDS_REMEMBER_TOOLTIP));
    toolTips_->set(control(IDC_SAVE_SCENE_FILE), ResourceText(IDS_SAVE_SCENE_TOOLTIP));
    // The name is filled in already; the user's first choice is the cameras.
    ::SetFocus(control(data_.analysis.cameras.empty() ? IDC_SCENE_NAME : IDC_CAMERAS));
    return false;
}

bool MainDialog::onCommand(int id, int code) {
    if (id == IDCANCEL) {
        // The keyboard is with Cancel while a submission runs: an Enter that is held down since it
        // pressed Submit is no press of Cancel.
        if (!lock_.isLocked() || ::GetKeyState(VK_RETURN) >= 0)
            end(0);
        return true;
    }
    if (!isFree())
        return true; // a disabled control can still be made to notify
    if (options_.onCommand(id, code))
        return true;
    switch (id) {
    case IDC_SUBMIT:
        submit();
        return true;
    case IDC_ANALYSE_AGAIN:
        analyseAgain();
        return true;
    case IDC_EDIT_CAMERAS:
        EditSelectedCameras(window(), cameras_, data_);
        return true;
    case IDC_SELECT_ALL:
        cameras_.selectAll(data_.analysis.cameras);
        updateEditButton(); // the new rows are not selected
        return true;
    case IDC_INVERT_SELECTION:
        cameras_.invertSelection(data_.analysis.cameras);
        updateEditButton();
        return true;
    default:
        return false;
    }
}

bool MainDialog::onNotify(NMHDR& header, LRESULT& result) {
    if (header.idFrom == IDC_CAMERAS && ChangesSelection(header)) {
        updateEditButton();
        return false; // the table goes on with it
    }
    if (header.idFrom == IDC_CAMERAS && header.code == static_cast<UINT>(NM_DBLCLK)) {
        const int row = reinterpret_cast<const NMITEMACTIVATE&>(header).iItem;
        if (row >= 0 && isFree())
            EditCamera(window(), cameras_, data_, row);
        return true;
    }
    const int id = static_cast<int>(header.idFrom);
    if (header.code == static_cast<UINT>(UDN_DELTAPOS)) {
        if (isFree() && !options_.onArrows(id, reinterpret_cast<const NMUPDOWN&>(header).iDelta))
            return false;
        result = TRUE; // the arrows have no position of their own: the edit holds the number
        return true;
    }
    if (id != IDC_CAMERAS || header.code != static_cast<UINT>(NM_CUSTOMDRAW))
        return false;
    result = cameras_.drawEmptyText(reinterpret_cast<const NMCUSTOMDRAW&>(header));
    return true;
}

bool MainDialog::onClose() {
    end(0);
    return true;
}

void MainDialog::onDestroy() {
    toolTips_.reset();
    winsock_.reset();
    // A submission that runs has its own reference to the parsed report.
    data_.analysis.report.reset();
}

bool MainDialog::onMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    switch (message) {
    case kRebuildCameraTable:
        cameras_.update(data_.analysis.cameras);
        updateEditButton();
        fillWarnings();
        return true;
    case WM_ENABLE:
        if (DisableHeldDialogAgain(window(), wParam != FALSE))
            return true;
        if (wParam != FALSE)
            unlockAfterSubmission();
        return false;
    case kSubmissionEnded:
        if (::IsWindowEnabled(window())) // else when it is enabled again
            unlockAfterSubmission();
        return true;
    default:
        return AnswerTakeChoices(window(), message, wParam);
    }
}

MainDialog::Outcome MainDialog::initialise(bool first) {
    if (first)
        data_.analysis = SceneAnalysis();
    ClientInfo info;
    data_.loadClientInfo(info);
    if (!checkClientVersion(info.lowerVersion) || !checkSceneFile())
        return Outcome::Ended;
    if (!analyse(info.parserScript))
        return Outcome::NotAnalysed;
    if (!readReport())
        return Outcome::Ended;
    fill(first);
    return Outcome::Filled;
}

bool MainDialog::checkClientVersion(const std::wstring& lowestAccepted) {
    switch (CheckClientVersion(lowestAccepted, kPluginVersion)) {
    case ClientVersion::Missing:
        return refuse(ResourceText(IDS_CLIENT_NOT_FOUND));
    case ClientVersion::PluginTooOld:
        return refuse(ResourceText(IDS_PLUGIN_TOO_OLD));
    case ClientVersion::Accepted:
        break;
    }
    return true;
}

bool MainDialog::checkSceneFile() {
    return IsSceneFileNameAccepted(host::SceneFileName()) ||
           refuse(ResourceText(IDS_SCENE_NAME_UNUSABLE));
}

bool MainDialog::analyse(const std::wstring& parserScript) {
    host::ScriptValue result;
    return RunSceneAnalysis(window(), result.get(), parserScript, data_.analysis.reportText);
}

bool MainDialog::readReport() {
    cameras_.readTicks(data_.analysis.cameras);
    const CameraMap edited = std::move(data_.analysis.cameras);
    forgetFindings();
    const int result = ReadAnalysisReport(data_.analysis);
    data_.confirmationRequired = data_.analysis.hasIllegalReference; // the farm leaves those out
    CameraMap found = data_.analysis.cameras;
    KeepCameraEdits(foundCameras_, edited, data_.analysis.cameras);
    foundCameras_ = std::move(found);
    if (result == kReportDuplicateCameras)
        return refuse(ResourceText(IDS_SAME_CAMERA_NAMES_BEFORE) +
                      data_.analysis.duplicateCameraNames +
                      ResourceText(IDS_SAME_CAMERA_NAMES_AFTER));
    if (result == kReportNoCameras) {
        if (ShowMessage(window(), IDS_NO_CAMERAS_QUESTION, IDS_CAPTION, MB_YESNO) == IDYES)
            return true;
        end(0);
        return false;
    }
    if (result == kReportRefused) { // its last message says what is wrong with it
        const std::wstring reason = data_.analysis.messages.back().shown;
        return refuse(ResourceText(IDS_REPORT_UNREADABLE) +
                      (reason.empty() ? reason : L"\n\n" + reason));
    }
    // A report that is no JSON reads as one without cameras; a table left empty would explain
    // nothing.
    if (data_.analysis.cameras.empty())
        return refuse(ResourceText(IDS_REPORT_UNREADABLE));
    return true;
}

// The reader adds to what is there: nothing of an earlier scene may show up in the next.
void MainDialog::forgetFindings() {
    SceneAnalysis& old = data_.analysis;
    SceneAnalysis fresh;
    fresh.reportText = std::move(old.reportText); // the one to be read
    fresh.reportPath = std::move(old.reportPath);
    fresh.sceneFileName = std::move(old.sceneFileName); // and what was saved so far
    fresh.sceneFilePath = std::move(old.sceneFilePath);
    fresh.recordedSceneName = std::move(old.recordedSceneName);
    fresh.saveCount = old.saveCount;
    data_.analysis = std::move(fresh);
}

void MainDialog::fill(bool first) {
    const std::string sceneFile = InitSceneName(data_.analysis);
    SetSceneName(control(IDC_SCENE_NAME), sceneFile);
    // The open scene lies under this name: only another one that is typed has to be saved.
    data_.analysis.recordedSceneName =
        sceneFile.empty() ? std::string() : WideToUtf8(SceneFileNameOf(Utf8ToWide(sceneFile)));
    fillWarnings();
    if (first)
        cameras_.attach(control(IDC_CAMERAS));
    if (first) {
        cameras_.createHead();
        cameras_.create(data_.analysis.cameras);
    } else {
        cameras_.update(data_.analysis.cameras);
    }
    updateEditButton();
    options_.fill(first);
}

void MainDialog::fillWarnings() {
    const std::vector<std::wstring> lines = WarningLines(data_.analysis);
    FillWarnings(control(IDC_WARNINGS), lines);
    Control(window(), IDC_WARNINGS).show(!lines.empty());
    Control(window(), IDC_NO_WARNINGS).show(lines.empty());
}

void MainDialog::analyseAgain() {
    if (initialise(false) == Outcome::NotAnalysed)
        end(kSceneNotAnalysed);
}

void MainDialog::submit() {
    isSubmitting_ = true;
    if (!startSubmission())
        endSubmitting();
}

bool MainDialog::startSubmission() {
    if (!HasOnlySceneNameCharacters(GetSceneName(control(IDC_SCENE_NAME))))
        return refuse(ResourceText(IDS_SCENE_NAME_UNUSABLE));
    if (data_.confirmationRequired &&
        ShowMessage(window(), IDS_CONFIRM_SUBMISSION, IDS_CAPTION, MB_OKCANCEL) != IDOK)
        return false;
    options_.prepareSubmission();
    cameras_.readTicks(data_.analysis.cameras); // the submission has the table rebuilt from them
    lock_.lock(window());
    const SubmissionStart start = StartSubmission(window());
    if (start == SubmissionStart::Failed)
        ShowMessage(window(), IDS_SUBMISSION_NOT_STARTED, IDS_CAPTION);
    return start == SubmissionStart::Started;
}

void MainDialog::unlockAfterSubmission() {
    if (lock_.isLocked() && !IsSubmissionRunning())
        endSubmitting();
}

void MainDialog::endSubmitting() {
    isSubmitting_ = false;
    lock_.unlock();
    updateEditButton(); // rows may have been selected or rebuilt meanwhile
}

bool MainDialog::isFree() const {
    return !isSubmitting_ && !IsSubmissionRunning();
}

void MainDialog::updateEditButton() {
    if (!lock_.isLocked())
        UpdateEditButton(window());
}

bool MainDialog::refuse(const std::wstring& text) {
    ShowMessage(window(), text, ResourceText(IDS_CAPTION));
    end(0);
    return false;
}

} // namespace orv
