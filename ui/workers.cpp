#include "ui/workers.h"

#include "base/handles.h"
#include "client/client_link.h"
#include "config/dialog_choices.h"
#include "config/plugin_data.h"
#include "config/remembered_settings.h"
#include "config/submission_windows.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "submit/submit_job.h"
#include "ui/exit/exit_guard.h"
#include "ui/progress/progress_dialog.h"
#include "windows/guard.h"

#include <atomic>
#include <memory>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace orv {
namespace {

// Windows picks texts and dialogs by the language of the thread that asks. A new thread starts with
// the user's, while the host's language pack set another on the dialog's.
class ThreadLanguage {
public:
    ThreadLanguage() : locale_(::GetThreadLocale()), uiLanguage_(::GetThreadUILanguage()) {}
    void use() const {
        ::SetThreadLocale(locale_);
        ::SetThreadUILanguage(uiLanguage_);
    }

private:
    LCID locale_;
    LANGID uiLanguage_;
};

// What a worker takes along: copies, because the dialog may be gone before the worker ends. The
// handle is there to own windows and to send messages to, and a dead one makes those fail, no more.
struct WorkerArguments {
    HWND dialog;
    std::shared_ptr<SubmissionChoices> choices; // the submit worker's, once the workers run
    std::wstring caption;
    std::wstring checkCaption;
    std::wstring languageMarker;
    ThreadLanguage language;
};

// While the host saves the scene for a submission, which has no thread yet. Of the host's thread.
bool isSavingFirst = false;

// The threads of the last submission. Each is set by the thread itself before its state says that
// it has finished, and read only afterwards.
ThreadHandle submitThread;
ThreadHandle progressThread;
std::atomic<DWORD> submitThreadId{0};

ThreadHandle ThisThread() {
    HANDLE thread = nullptr;
    ::DuplicateHandle(::GetCurrentProcess(), ::GetCurrentThread(), ::GetCurrentProcess(), &thread,
                      SYNCHRONIZE, FALSE, 0);
    return ThreadHandle(thread);
}

bool IsGone(const ThreadHandle& thread) {
    return !thread || ::WaitForSingleObject(thread.get(), 0) == WAIT_OBJECT_0;
}

void RunSubmitWorker(const WorkerArguments& arguments) noexcept {
    submitThread = ThisThread();
    submitThreadId = ::GetCurrentThreadId();
    const bool isDone =
        RunGuarded("The submit worker ended by an unexpected error", LogError, [&arguments] {
            arguments.language.use();
            saveRememberedSettings(*arguments.choices);
            const WinsockSession network; // the dialog's own ends when the dialog is closed
            SubmitJob(std::move(*arguments.choices), arguments.dialog, arguments.caption,
                      arguments.checkCaption, arguments.languageMarker);
        });
    if (!isDone)
        ShowUnexpectedEnd(arguments.dialog, arguments.caption, arguments.languageMarker);
    PluginData& data = PluginData::instance();
    if (IsWorkerRunning(data.progressState))
        data.done = true;
    data.submitState = kWorkerFinished;
    // Waits for nobody, and overtakes what the user has clicked meanwhile.
    ::SendNotifyMessageW(arguments.dialog, kSubmissionEnded, 0, 0);
    ReleaseExit();
}

void RunProgressWorker(const WorkerArguments& arguments,
                       std::unique_ptr<HeldDialog> hold) noexcept {
    progressThread = ThisThread();
    PluginData& data = PluginData::instance();
    RunGuarded("The progress worker ended by an unexpected error", LogError, [&arguments, &data] {
        arguments.language.use();
        // It goes with the dialog, and does not come without it.
        if (ProgressDialog::waitForScreen() && ::IsWindow(arguments.dialog))
            ProgressDialog(data).run(IDD_PROGRESS, arguments.dialog);
    });
    LeaveScreenOfProgress();
    data.progressState = kWorkerFinished;
    hold.reset();
}

// The workers outlive the dialog, and the host may let go of the plug-in while one still runs: from
// the first submission on the library stays until the process ends.
void KeepLibraryLoaded() {
    HMODULE module = nullptr;
    if (!::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN |
                                  GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                              reinterpret_cast<LPCWSTR>(&RunSubmitWorker), &module)) {
        const DWORD error = ::GetLastError();
        LogSystemError(LogModule::Data, kError, "GetModuleHandleExW", error);
    }
}

// Starts both threads, that of the submission first. Throws when that one cannot be started; a
// submission without a progress window goes on.
void StartThreads(const WorkerArguments& arguments) {
    PluginData& data = PluginData::instance();
    std::unique_ptr<HeldDialog> progressHold;
    const auto startSubmitWorker = [&arguments] {
        std::thread(RunSubmitWorker, arguments).detach();
    };
    // The progress worker counts as running before the submission begins, and holds the dialog: the
    // first message, or the end, may come before its thread does.
    const bool startsProgress = StartWorkerOnce(data.progressState, [&] {
        progressHold = std::make_unique<HeldDialog>(arguments.dialog);
        startSubmitWorker();
    });
    if (!startsProgress) { // the last progress window is still closing
        startSubmitWorker();
        return;
    }
    RunGuarded("Starting the progress worker ended by an unexpected error", LogError, [&] {
        try {
            std::thread(RunProgressWorker, arguments, std::move(progressHold)).detach();
        } catch (...) {
            data.progressState = kWorkerNone;
            throw;
        }
    });
}

SubmissionStart Start(HWND dialog) {
    PluginData& data = PluginData::instance();
    if (IsWorkerRunning(data.submitState))
        return SubmissionStart::RunsAlready;
    KeepLibraryLoaded();
    const auto choices = std::make_shared<SubmissionChoices>();
    if (!TakeChoices(dialog, *choices)) { // before the host runs other messages while it saves
        LogError(kChoicesNotRead);
        return SubmissionStart::Failed;
    }
    choices->analysis = data.analysis;
    const bool savesFirst = choices->isChecked(IDC_SAVE_SCENE_FILE);
    const WorkerArguments arguments = {dialog,
                                       choices,
                                       ResourceText(IDS_CAPTION),
                                       ResourceText(IDS_CAPTION_CHECK),
                                       ResourceText(IDS_LANGUAGE_MARKER),
                                       ThreadLanguage()};
    // Cleared before the threads start: a submission that fails at once sets them within this
    // very function, and clearing them afterwards would lose that.
    data.done = false;
    data.hide = false;
    data.endSubmission.clear();
    data.submitStarted = ::GetTickCount64();
    data.stage = savesFirst ? SubmissionStage::Saving : SubmissionStage::Checking;
    data.setPackedFiles(nullptr);
    bool isSaved = true;
    StartWorkerOnce(data.submitState, [&] {
        // The host may ask the user for a file name and deal with other messages meanwhile:
        // the state keeps a second submission away. The dialog may be gone afterwards; what it
        // was asked to submit is submitted all the same.
        isSavingFirst = savesFirst;
        isSaved = !savesFirst || host::SaveScene();
        isSavingFirst = false;
        if (!isSaved) {
            data.submitState = kWorkerFinished;
            return;
        }
        choices->openScene = host::SceneFilePath(); // a first save has named it by now
        StartThreads(arguments);
        GuardExit();
    });
    return isSaved ? SubmissionStart::Started : SubmissionStart::SceneNotSaved;
}

} // namespace

SubmissionStart StartSubmission(HWND dialog) noexcept {
    SubmissionStart start = SubmissionStart::Failed;
    // cppcheck-suppress throwInNoexceptFunction ; RunGuarded catches it
    RunGuarded("The submission could not be started", LogError, [&] { start = Start(dialog); });
    return start;
}

bool IsSubmissionRunning() {
    return IsWorkerRunning(PluginData::instance().submitState);
}

bool HaveWorkersEnded() {
    const PluginData& data = PluginData::instance();
    return (isSavingFirst || !IsWorkerRunning(data.submitState)) &&
           !IsWorkerRunning(data.progressState) && IsGone(submitThread) && IsGone(progressThread);
}

bool IsSubmissionAsking() {
    bool found = false;
    ::EnumThreadWindows(
        submitThreadId,
        [](HWND window, LPARAM result) -> BOOL {
            if (!::IsWindowVisible(window))
                return TRUE;
            *reinterpret_cast<bool*>(result) = true;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace orv
