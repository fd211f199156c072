#include "ui/workers.h"

#include "base/handles.h"
#include "client/winsock_session.h"
#include "config/plugin_data.h"
#include "config/remembered_settings.h"
#include "host/host.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "submit/submit_job.h"
#include "ui/exit/exit_guard.h"
#include "ui/progress/progress_dialog.h"
#include "ui/worker_start.h"

#include <atomic>
#include <exception>
#include <string>
#include <system_error>
#include <thread>

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

// What a worker takes along: copies, because the dialog may be gone before the worker ends. Only
// SubmitJob and the progress dialog use the handle, and a dead one makes their calls fail, no more.
struct WorkerArguments {
    HWND dialog;
    std::wstring caption;
    std::wstring checkCaption;
    std::wstring languageMarker;
    ThreadLanguage language;
};

void LogError(const std::string& message) noexcept {
    try {
        PluginData::instance().writeLog(kError, message);
    } catch (...) {
        // There is nowhere left to tell it.
    }
}

// Runs `body` so that nothing it throws ends the host.
template<class Body>
void RunGuarded(const char* worker, Body body) noexcept {
    try {
        body();
    } catch (const std::exception& error) {
        LogError(std::string(worker) + " ended by an unexpected error: " + error.what());
    } catch (...) {
        LogError(std::string(worker) + " ended by an unexpected error.");
    }
}

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
    RunGuarded("The submit worker", [&arguments] {
        arguments.language.use();
        saveRememberedSettings(arguments.dialog);
        const WinsockSession network; // the dialog's own ends when the dialog is closed
        SubmitJob(arguments.dialog, arguments.caption, arguments.checkCaption,
                  arguments.languageMarker);
    });
    PluginData& data = PluginData::instance();
    if (IsWorkerRunning(data.progressState))
        data.done = true;
    data.submitState = kWorkerFinished;
    ReleaseExit();
}

void RunProgressWorker(const WorkerArguments& arguments) noexcept {
    progressThread = ThisThread();
    PluginData& data = PluginData::instance();
    RunGuarded("The progress worker", [&arguments, &data] {
        arguments.language.use();
        ProgressDialog(data).run(IDD_PROGRESS, arguments.dialog);
    });
    data.progressState = kWorkerFinished;
}

// The workers outlive the dialog, and the host may let go of the plug-in while one still runs: from
// the first submission on the library stays until the process ends.
void KeepLibraryLoaded() {
    HMODULE module = nullptr;
    if (!::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN |
                                  GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                              reinterpret_cast<LPCWSTR>(&RunSubmitWorker), &module)) {
        const DWORD error = ::GetLastError();
        LogError("GetModuleHandleExW error no:" + std::to_string(error));
    }
}

} // namespace

SubmissionStart StartSubmission(HWND dialog, bool savesFirst) noexcept {
    try {
        PluginData& data = PluginData::instance();
        if (IsWorkerRunning(data.submitState))
            return SubmissionStart::RunsAlready;
        KeepLibraryLoaded();
        const WorkerArguments arguments = {dialog, ResourceText(IDS_CAPTION),
                                           ResourceText(IDS_CAPTION_CHECK),
                                           ResourceText(IDS_LANGUAGE_MARKER), ThreadLanguage()};
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
            // the state keeps a second submission away, and the dialog may be gone afterwards.
            isSavingFirst = savesFirst;
            isSaved = !savesFirst || (host::SaveScene() && ::IsWindow(dialog));
            isSavingFirst = false;
            if (!isSaved) {
                data.submitState = kWorkerFinished;
                return;
            }
            std::thread(RunSubmitWorker, arguments).detach();
            GuardExit();
        });
        if (!isSaved)
            return SubmissionStart::SceneNotSaved;
        RunGuarded("Starting the progress worker", [&data, &arguments] {
            StartWorkerOnce(data.progressState,
                            [&arguments] { std::thread(RunProgressWorker, arguments).detach(); });
        });
        return SubmissionStart::Started;
    } catch (const std::exception& error) {
        LogError(std::string("The submission could not be started: ") + error.what());
    } catch (...) {
        LogError("The submission could not be started.");
    }
    return SubmissionStart::Failed;
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
