#include "submit/submit_job.h"

#include "analysis/submission_checks.h"
#include "analysis/text/names.h"
#include "analysis/text/numbers.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "analysis/work_folder.h"
#include "client/client_link.h"
#include "client/guid_text.h"
#include "config/dialog_choices.h"
#include "config/plugin_data.h"
#include "config/render_choices.h"
#include "config/submission_windows.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "submit/camera_validation.h"
#include "submit/job_description.h"
#include "submit/scene_archive.h"
#include "submit/scene_file.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

namespace orv {
namespace {

constexpr wchar_t kClientAddress[] = L"127.0.0.1";
constexpr wchar_t kOutputFolderSuffix[] = L"_plugin_output";

// Time for virus scanners and the file system to release the new archive before the client reads
// it.
constexpr DWORD kArchiveSettleMilliseconds = 1000;

// One submission. The steps that can end it return false and have set `result_` by then.
class Submission {
public:
    Submission(SubmissionChoices choices, HWND dialog, const std::wstring& caption,
               const std::wstring& languageMarker)
        : choices_(std::move(choices)), dialog_(dialog), caption_(caption),
          languageMarker_(languageMarker) {}

    std::int32_t run() {
        takeCoronaLimits();
        if (!checkCameras())
            return result_;
        if (!checkCorona())
            return result_;
        takeRenderElements();
        if (!takeSceneName())
            return result_;
        if (isEnded())
            return result_;
        if (!saveScene())
            return result_;
        if (!nameJob())
            return result_;
        preparePaths();
        if (isEnded())
            return result_;
        if (!makeOutputFolder())
            return result_;
        if (choices_.isChecked(IDC_BACK_UP_SCENE))
            cleanScene();
        if (isEnded())
            return result_;
        if (!packScene())
            return result_;
        runArchiver();
        if (isEnded())
            return result_;
        if (!describeJob())
            return result_;
        if (isEnded())
            return result_;
        postJob();
        return kSubmitEnded;
    }

    // Hands on what was collected, for the dialog to show and for the next submission to go by.
    void keepResults();

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
    bool mayReplace(const std::wstring& scene);
    double number(int control, double otherwise) const;
    std::int32_t wholeNumber(int control, std::int32_t otherwise) const;
    int show(unsigned textId, UINT type = MB_OK);
    bool isEnded();
    void deleteFile(const std::wstring& path);
    bool end(std::int32_t result);
    bool endWith(unsigned textId, std::int32_t result, const char* reason);
    void closeDialog() { ::EndDialog(dialog_, 0); }

    PluginData& data_ = PluginData::instance();
    SubmissionChoices choices_;
    SceneAnalysis& analysis_ =
        choices_.analysis; // its own: the scene may be analysed anew meanwhile
    HWND dialog_;
    const std::wstring& caption_;
    const std::wstring& languageMarker_;
    std::int32_t result_ = kSubmitEnded;

    std::wstring sceneName_; // without extension
    std::string scenePath_;  // UTF-8, the saved scene
    std::wstring jobName_;   // a GUID
    JobPaths paths_;
    std::string requestBody_;
    bool isPacked_ = false;    // an archive of this submission may be there
    bool isDescribed_ = false; // paths_.jsonDir is the job file
};

// What the dialog has no control for keeps the value that the analysis found.
double Submission::number(int control, double otherwise) const {
    return choices_.texts.count(control) != 0 ? DecimalNumber(choices_.text(control)) : otherwise;
}

std::int32_t Submission::wholeNumber(int control, std::int32_t otherwise) const {
    return Within32Bits(number(control, otherwise));
}

int Submission::show(unsigned textId, UINT type) {
    return ShowSubmissionMessage(dialog_, ResourceText(textId), caption_, type, languageMarker_);
}

bool Submission::end(std::int32_t result) {
    EndProgress();
    result_ = result;
    return false;
}

bool Submission::endWith(unsigned textId, std::int32_t result, const char* reason) {
    end(result); // before the box: the progress window does not come back behind it
    WriteLog(LogModule::Data, kError, std::string("Submission: ") + reason);
    show(textId);
    return false;
}

// Whether the submission has to end here, because that was requested. What it has made for the
// client is deleted: without its job nobody looks for it.
bool Submission::isEnded() {
    if (!data_.endSubmission.isMade())
        return false;
    if (isPacked_)
        deleteFile(Utf8ToWide(paths_.archivePath));
    if (isDescribed_)
        deleteFile(paths_.jsonDir);
    WriteLog(LogModule::Data, kWarn,
             "Submission: ended by request. Nothing was sent to the client.");
    end(kSubmitEnded);
    return true;
}

void Submission::deleteFile(const std::wstring& path) {
    if (::DeleteFileW(path.c_str()))
        return;
    const DWORD error = ::GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) // 7-Zip was ended before it had one
        LogSystemError(LogModule::Data, kError, "DeleteFileW", error, path);
}

void Submission::takeCoronaLimits() {
    analysis_.useCorona = analysis_.coronaState != CoronaLimitState::NoLimits;
    if (!analysis_.useCorona)
        return;
    const std::int32_t passes = wholeNumber(IDC_PASS_LIMIT, analysis_.coronaPassLimit);
    const double hours = number(IDC_TIME_LIMIT, analysis_.coronaTimeLimitHours);
    const double noise = number(IDC_NOISE_LEVEL, analysis_.coronaNoiseLimit);
    const bool hasLimit = passes != 0 || hours < 0.0 || hours > 0.0 || noise < 0.0 || noise > 0.0;
    if (!hasLimit)
        return;
    analysis_.coronaPassLimit = passes;
    analysis_.coronaTimeLimitHours = hours;
    if (choices_.texts.count(IDC_TIME_LIMIT) !=
        0) // the analysis' own seconds have no rounding in them
        analysis_.coronaTimeLimitSeconds = Within32Bits(hours * 3600.0);
    analysis_.coronaNoiseLimit = noise;
}

bool Submission::checkCameras() {
    std::vector<std::wstring> badNames;
    const int outcome =
        choices_.hasCameraTable
            ? ValidateCamerasForSubmit(choices_.cameras, analysis_.cameras, badNames)
            : kCamerasUnread;
    ::SendMessageW(dialog_, kRebuildCameraTable, 0, 0); // the table shows what was taken
    switch (outcome) {
    case kCamerasUnread:
        return endWith(IDS_CHOICES_NOT_READ, kSubmitFailed, "the camera table is not known.");
    case kCameraNamesBad:
        return endWith(IDS_CAMERA_NAMES_UNUSABLE, kSubmitFailed, "a camera name cannot be used.");
    case kNoCameraChecked:
        return askWithoutCameras();
    default:
        return true;
    }
}

bool Submission::askWithoutCameras() {
    return show(IDS_NO_CAMERA_TICKED, MB_OKCANCEL) != IDCANCEL || end(kSubmitFailed);
}

bool Submission::checkCorona() {
    return CheckCoronaLimits(analysis_, dialog_) == kCoronaGoOn || end(kSubmitFailed);
}

void Submission::takeRenderElements() {
    analysis_.colorChannel = choices_.isChecked(IDC_COLOR_CHANNEL);
    analysis_.aoChannel = choices_.isChecked(IDC_AO_CHANNEL);
    if (analysis_.aoChannel) {
        analysis_.aoRadius = number(IDC_AO_RADIUS, analysis_.aoRadius);
        analysis_.aoSubdivs = wholeNumber(IDC_AO_SUBDIVS, analysis_.aoSubdivs);
    }
    analysis_.materialChannel = choices_.isChecked(IDC_MATERIAL_CHANNEL);
    analysis_.giChannel = choices_.isChecked(IDC_GI_CHANNEL);
    analysis_.psdChannel = choices_.isChecked(IDC_PSD_CHANNEL);
    // A report without a gamma leaves the product's own.
    const float gammaFound = analysis_.gammaOut > 0.0F ? analysis_.gammaOut : analysis_.gamma;
    analysis_.gamma = static_cast<float>(number(IDC_GAMMA, gammaFound));
}

bool Submission::takeSceneName() {
    const std::wstring typed = choices_.text(IDC_SCENE_NAME);
    sceneName_ = SceneNameOf(typed);
    if (IsUsableSceneName(typed) && IsUsableSceneName(sceneName_))
        return true;
    endWith(IDS_SCENE_NAME_UNUSABLE, kSubmitFailed, "the scene's name cannot be used.");
    closeDialog();
    return false;
}

bool Submission::saveScene() {
    data_.stage = SubmissionStage::Saving;
    // The user may have closed the dialog and opened another scene: that one was not chosen.
    if (!choices_.openScene.empty() && host::SceneFilePath() != choices_.openScene)
        return endWith(IDS_SCENE_NOT_SAVED, kSubmitEnded, "another scene was opened meanwhile.");
    const std::string fileName =
        sceneName_.empty() ? std::string() : WideToUtf8(SceneFileNameOf(sceneName_));
    if (!mayReplace(SceneToReplace(analysis_, fileName)))
        return end(kSubmitEnded);
    scenePath_ = SaveSceneAs(analysis_, ::GetDlgItem(dialog_, IDC_SCENE_NAME), fileName);
    if (scenePath_.empty())
        return endWith(IDS_SCENE_NOT_SAVED, kSubmitEnded, "the scene is not saved.");
    if (sceneName_.empty())
        sceneName_ = StemPart(Utf8ToWide(scenePath_)); // the name that the scene kept
    return true;
}

// The typed name may be that of another scene's file.
bool Submission::mayReplace(const std::wstring& scene) {
    if (scene.empty())
        return true;
    const ProgressHold hold;
    const std::wstring question = ResourceText(IDS_SCENE_REPLACED) + L"\n\n" + scene;
    if (ShowMessage(dialog_, question, caption_, MB_YESNO | MB_DEFBUTTON2, languageMarker_) ==
        IDYES)
        return true;
    WriteLog(LogModule::Data, kInfo,
             "Save scene: the user keeps the scene that is there: " + WideToUtf8(scene));
    return false;
}

bool Submission::nameJob() {
    jobName_ = MakeGuidText();
    return !jobName_.empty() || end(kSubmitEnded);
}

void Submission::preparePaths() {
    data_.loadClientInfo(paths_);
    paths_.scenePath = scenePath_;
    const std::int32_t selection = choices_.selection(IDC_GI_SCALE);
    paths_.giScaleText = kGiScales[GiScaleEntry(selection)];
    paths_.giScaleIndex = selection;
    paths_.ip = kClientAddress;
}

bool Submission::makeOutputFolder() {
    const std::wstring sceneFolder = FolderPart(Utf8ToWide(scenePath_));
    if (sceneFolder.empty())
        return endWith(IDS_SCENE_NOT_SAVED, kSubmitEnded, "the scene has no folder.");
    const std::wstring outputFolder = sceneFolder + sceneName_ + kOutputFolderSuffix;
    EnsureFolder(outputFolder); // on failure writing the job file fails, too, with a message
    paths_.jsonDir = outputFolder + L"/json";
    paths_.compressDir = outputFolder + L"/compress";
    return true;
}

void Submission::cleanScene() {
    data_.stage = SubmissionStage::Cleaning;
    SceneBackup backup; // a safety net for as long as the cleaning scripts run
    BackupSceneFile(analysis_, backup.path);
    RunVirusScripts();
    backup.remove();
}

bool Submission::packScene() {
    SessionData session;
    readSessionData(session);
    if (PackScene(scenePath_, paths_, session))
        return true;
    endWith(IDS_SCENE_NAME_UNUSABLE, kSubmitFailed, "the scene cannot be packed.");
    closeDialog();
    return false;
}

void Submission::runArchiver() {
    data_.setPackedFiles(std::make_shared<const PackedFiles>(
        PackedFiles{Utf8ToWide(paths_.scenePath), Utf8ToWide(paths_.archivePath)}));
    data_.stage = SubmissionStage::Packing;
    isPacked_ = true;
    RunArchiver(paths_); // a failure is logged; the client checks the archive anyway
    data_.endSubmission.wait(kArchiveSettleMilliseconds);
}

bool Submission::describeJob() {
    data_.stage = SubmissionStage::Describing;
    isDescribed_ =
        WriteJobDescription(analysis_, choices_, dialog_, paths_, jobName_, requestBody_);
    return isDescribed_ || end(kSubmitFailed);
}

void Submission::postJob() {
    data_.stage = SubmissionStage::Sending;
    ClientLink link;
    link.host = paths_.ip;
    link.port = paths_.port;
    if (PostToClient(link, requestBody_, dialog_) == kReplyAccepted)
        closeDialog();
    else if (data_.endSubmission.isMade())
        WriteLog(LogModule::Data, kWarn,
                 "Submission: ended by request. The client may have the job.");
}

// Nobody else changes the shared analysis while a submission runs; its report and cameras stay as
// they are, except for the ticks.
void Submission::keepResults() {
    SceneAnalysis& shared = data_.analysis;
    shared.sceneFilePath = analysis_.sceneFilePath;
    shared.recordedSceneName = analysis_.recordedSceneName;
    shared.saveCount = analysis_.saveCount;
    shared.useCorona = analysis_.useCorona;
    shared.coronaPassLimit = analysis_.coronaPassLimit;
    shared.coronaTimeLimitHours = analysis_.coronaTimeLimitHours;
    shared.coronaTimeLimitSeconds = analysis_.coronaTimeLimitSeconds;
    shared.coronaNoiseLimit = analysis_.coronaNoiseLimit;
    shared.colorChannel = analysis_.colorChannel;
    shared.aoChannel = analysis_.aoChannel;
    shared.aoRadius = analysis_.aoRadius;
    shared.aoSubdivs = analysis_.aoSubdivs;
    shared.materialChannel = analysis_.materialChannel;
    shared.giChannel = analysis_.giChannel;
    shared.psdChannel = analysis_.psdChannel;
    shared.gamma = analysis_.gamma;
    for (const CameraRow& row : choices_.cameras) {
        const auto camera = shared.cameras.find(row.name);
        if (camera != shared.cameras.end())
            camera->second.selected = row.isChecked;
    }
}

std::int32_t RunSubmission(SubmissionChoices choices, HWND dialog, const std::wstring& caption,
                           const std::wstring& languageMarker) {
    std::string what = "unknown error";
    try {
        Submission submission(std::move(choices), dialog, caption, languageMarker);
        const std::int32_t result = submission.run();
        submission.keepResults();
        return result;
    } catch (const std::exception& error) {
        what = error.what();
    } catch (...) {
        // Nothing is known of it.
    }
    WriteLog(LogModule::Data, kError, "Submission: unexpected error: " + what);
    ShowUnexpectedEnd(dialog, caption, languageMarker);
    return kSubmitFailed;
}

std::int32_t Logged(std::int32_t result) {
    WriteLog(LogModule::Data, kInfo, "The submission ended with " + std::to_string(result) + ".");
    return result;
}

} // namespace

std::int32_t SubmitJob(SubmissionChoices choices, HWND dialog, std::wstring caption, std::wstring,
                       std::wstring languageMarker) {
    return Logged(RunSubmission(std::move(choices), dialog, caption, languageMarker));
}

std::int32_t SubmitJob(HWND dialog, std::wstring caption, std::wstring unused,
                       std::wstring languageMarker) {
    PluginData& data = PluginData::instance();
    SubmissionChoices choices;
    if (TakeChoices(dialog, choices)) {
        choices.analysis = data.analysis;
        return SubmitJob(std::move(choices), dialog, std::move(caption), std::move(unused),
                         std::move(languageMarker));
    }
    EndProgress();
    WriteLog(LogModule::Data, kError, kChoicesNotRead);
    ShowMessage(dialog, ResourceText(IDS_CHOICES_NOT_READ), caption, MB_OK, languageMarker);
    return Logged(kSubmitFailed);
}

} // namespace orv
