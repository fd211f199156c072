#include "submit/submit_job.h"

#include "analysis/corona_gate.h"
#include "analysis/text/text_convert.h"
#include "analysis/virus_scripts.h"
#include "analysis/work_folder.h"
#include "client/client_link.h"
#include "client/guid_text.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "submit/dialog_input/camera_validation.h"
#include "submit/dialog_input/dialog_controls.h"
#include "submit/dialog_input/scene_name_text.h"
#include "submit/job_description.h"
#include "submit/paths.h"
#include "submit/scene_archive.h"
#include "submit/scene_backup.h"
#include "submit/scene_save.h"

#include <exception>
#include <utility>

namespace orv {
namespace {

constexpr wchar_t kClientAddress[] = L"127.0.0.1";
constexpr wchar_t kOutputFolderSuffix[] = L"_plugin_output";

// Virus scanners and the file system get a moment to let go of the new archive before the client is
// told.
constexpr DWORD kArchiveSettleMilliseconds = 1000;

// GI image scale by the selection in its list; no selection counts as the first.
constexpr const char* kGiScales[] = {"100%", "50%", "33%", "25%"};

const char* GiScaleText(LRESULT selection) {
    return kGiScales[selection >= 1 && selection <= 3 ? selection : 0];
}

// The progress window is another worker's; flags are all that is shared with it.
bool IsProgressShown(const PluginData& data) {
    return data.progressState == kWorkerRunning;
}

// One submission. The steps that can end it return false and have set `result_` by then.
class Submission {
public:
    Submission(HWND dialog, std::wstring caption) : dialog_(dialog), caption_(std::move(caption)) {}

    std::int32_t run() {
        takeCoronaLimits();
        if (!checkCameras())
            return result_;
        if (!checkCorona())
            return result_;
        takeRenderElements();
        if (!takeSceneName())
            return result_;
        if (!saveScene())
            return result_;
        if (!nameJob())
            return result_;
        preparePaths();
        if (!makeOutputFolder())
            return result_;
        if (IsChecked(dialog_, IDC_BACK_UP_SCENE))
            cleanScene();
        if (!packScene())
            return result_;
        runArchiver();
        if (!describeJob())
            return result_;
        postJob();
        return kSubmitEnded;
    }

    // Takes the progress window away.
    void endProgress() {
        if (IsProgressShown(data_))
            data_.done = true;
    }

private:
    void takeCoronaLimits();
    bool checkCameras();
    bool checkCorona();
    void takeRenderElements();
    bool takeSceneName();
    bool saveScene();
    bool nameJob();
    void preparePaths();
    bool makeOutputFolder();
    void cleanScene();
    bool packScene();
    void runArchiver();
    bool describeJob();
    void postJob();

    bool askWithoutCameras();
    int show(unsigned textId, UINT type = MB_OK);
    bool end(std::int32_t result);
    bool endWith(unsigned textId, std::int32_t result);
    void closeDialog() { ::EndDialog(dialog_, 0); }

    PluginData& data_ = PluginData::instance();
    SceneAnalysis& analysis_ = data_.analysis;
    HWND dialog_;
    const std::wstring caption_;
    std::int32_t result_ = kSubmitEnded;

    std::wstring sceneName_; // without extension
    std::string scenePath_;  // UTF-8, the saved scene
    std::wstring jobName_;   // a GUID
    JobPaths paths_;
    std::string requestBody_;
};

int Submission::show(unsigned textId, UINT type) {
    return ShowMessage(dialog_, ResourceText(textId), caption_, type);
}

bool Submission::end(std::int32_t result) {
    endProgress();
    result_ = result;
    return false;
}

bool Submission::endWith(unsigned textId, std::int32_t result) {
    end(result); // before the box, which would stand under the progress window
    show(textId);
    return false;
}

void Submission::takeCoronaLimits() {
    analysis_.useCorona = analysis_.coronaState != CoronaLimitState::NoLimits;
    if (!analysis_.useCorona)
        return;
    const std::int32_t passes = ControlWholeNumber(dialog_, IDC_PASS_LIMIT);
    const double hours = ControlNumber(dialog_, IDC_TIME_LIMIT);
    const double noise = ControlNumber(dialog_, IDC_NOISE_LEVEL);
    const bool hasLimit = passes != 0 || hours < 0.0 || hours > 0.0 || noise < 0.0 || noise > 0.0;
    if (!hasLimit)
        return;
    analysis_.coronaPassLimit = passes;
    analysis_.coronaTimeLimitHours = hours;
    analysis_.coronaTimeLimitSeconds = Truncated(hours * 3600.0);
    analysis_.coronaNoiseLimit = noise;
}

bool Submission::checkCameras() {
    std::vector<std::wstring> badNames;
    switch (
        ValidateCamerasForSubmit(::GetDlgItem(dialog_, IDC_CAMERAS), analysis_.cameras, badNames)) {
    case kCameraNamesBad:
        return endWith(IDS_CAMERA_NAMES_UNUSABLE, kSubmitFailed);
    case kNoCameraChecked:
        return askWithoutCameras();
    default:
        return true;
    }
}

bool Submission::askWithoutCameras() {
    if (IsProgressShown(data_))
        data_.hide = true;
    if (show(IDS_NO_CAMERA_TICKED, MB_OKCANCEL) == IDCANCEL)
        return end(kSubmitFailed);
    data_.hide = false;
    return true;
}

bool Submission::checkCorona() {
    return CheckCoronaLimits(dialog_) == kCoronaGoOn || end(kSubmitFailed);
}

void Submission::takeRenderElements() {
    analysis_.colorChannel = IsChecked(dialog_, IDC_COLOR_CHANNEL);
    analysis_.aoChannel = IsChecked(dialog_, IDC_AO_CHANNEL);
    if (analysis_.aoChannel) {
        analysis_.aoRadius = ControlNumber(dialog_, IDC_AO_RADIUS);
        analysis_.aoSubdivs = ControlWholeNumber(dialog_, IDC_AO_SUBDIVS);
    }
    analysis_.materialChannel = IsChecked(dialog_, IDC_MATERIAL_CHANNEL);
    analysis_.giChannel = IsChecked(dialog_, IDC_GI_CHANNEL);
    analysis_.psdChannel = IsChecked(dialog_, IDC_PSD_CHANNEL);
    analysis_.gamma = static_cast<float>(ControlNumber(dialog_, IDC_GAMMA));
}

bool Submission::takeSceneName() {
    const std::wstring typed = ControlText(dialog_, IDC_SCENE_NAME);
    sceneName_ = SceneNameOf(typed);
    if (IsUsableSceneName(typed) && IsUsableSceneName(sceneName_))
        return true;
    endWith(IDS_SCENE_NAME_UNUSABLE, kSubmitFailed);
    closeDialog();
    return false;
}

bool Submission::saveScene() {
    const std::string fileName =
        sceneName_.empty() ? std::string() : WideToUtf8(SceneFileNameOf(sceneName_));
    scenePath_ = SaveSceneAs(analysis_, ::GetDlgItem(dialog_, IDC_SCENE_NAME), fileName);
    if (scenePath_.empty())
        return endWith(IDS_SCENE_NOT_SAVED, kSubmitEnded);
    if (sceneName_.empty())
        sceneName_ = StemPart(Utf8ToWide(scenePath_)); // the name that the scene kept
    return true;
}

bool Submission::nameJob() {
    jobName_ = MakeGuidText();
    return !jobName_.empty() || end(kSubmitEnded);
}

void Submission::preparePaths() {
    data_.loadClientInfo(paths_);
    paths_.scenePath = scenePath_;
    const LRESULT selection = ::SendDlgItemMessageW(dialog_, IDC_GI_SCALE, CB_GETCURSEL, 0, 0);
    paths_.giScaleText = GiScaleText(selection);
    paths_.giScaleIndex = static_cast<std::int32_t>(selection);
    paths_.ip = kClientAddress;
}

bool Submission::makeOutputFolder() {
    const std::wstring sceneFolder = FolderPart(Utf8ToWide(scenePath_));
    if (sceneFolder.empty())
        return endWith(IDS_SCENE_NOT_SAVED, kSubmitEnded);
    const std::wstring outputFolder = sceneFolder + sceneName_ + kOutputFolderSuffix;
    EnsureFolder(outputFolder); // if it fails, the job file cannot be written, and that is told
    paths_.jsonDir = outputFolder + L"/json";
    paths_.compressDir = outputFolder + L"/compress";
    return true;
}

// The copy is a safety net for as long as the cleaning scripts run.
void Submission::cleanScene() {
    std::wstring backupPath;
    BackupSceneFile(analysis_, backupPath);
    RunVirusScripts();
    if (!backupPath.empty())
        ::DeleteFileW(backupPath.c_str());
}

bool Submission::packScene() {
    SessionData session;
    readSessionData(session);
    if (PackScene(scenePath_, paths_, session))
        return true;
    endWith(IDS_SCENE_NAME_UNUSABLE, kSubmitFailed);
    closeDialog();
    return false;
}

void Submission::runArchiver() {
    RunArchiver(paths_); // a failure is logged; the client checks the archive anyway
    ::Sleep(kArchiveSettleMilliseconds);
}

bool Submission::describeJob() {
    return WriteJobDescription(analysis_, dialog_, paths_, jobName_, requestBody_) ||
           end(kSubmitFailed);
}

void Submission::postJob() {
    ClientLink link;
    link.host = paths_.ip;
    link.port = paths_.port;
    if (PostToClient(link, requestBody_, dialog_) == kReplyAccepted)
        closeDialog();
}

} // namespace

std::int32_t SubmitJob(HWND dialog, std::wstring caption, std::wstring, std::wstring) {
    Submission submission(dialog, std::move(caption));
    try {
        return submission.run();
    } catch (const std::exception& error) {
        PluginData::instance().writeLog(kError, std::string("Submission ended: ") + error.what());
        submission.endProgress();
        return kSubmitFailed;
    }
}

} // namespace orv
