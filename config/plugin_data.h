// The one process-wide object of the plug-in.
#pragma once

#include "base/noncopyable.h"
#include "config/client_info.h"
#include "config/remembered_settings.h"
#include "config/scene_analysis.h"
#include "config/submission_state.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orv {

// The main dialog's initialisation parameter. Has no data: the dialog reads PluginData.
class OrvRenderingConfigMgr : private rud_Noncopyable {
public:
    // The instance, built on first use.
    static OrvRenderingConfigMgr& instance();

    virtual ~OrvRenderingConfigMgr();

private:
    OrvRenderingConfigMgr();
};

// A control of the render options dialog that shows one of two images.
struct ImageSlot {
    int control; // its id
    bool on;
};

class PluginData : private rud_Noncopyable {
public:
    // The instance, built on first use by whichever thread asks first. Opens the "rud_data" log.
    static PluginData& instance();

    // Fills `info` from the product folder's layout, the settings file and custom.bin, all read
    // afresh (docs/folders-and-settings.md). The members that belong to one submission stay as they
    // are. Always true: whether the files exist is not checked, missing values are empty and 0.
    bool loadClientInfo(ClientInfo& info);

    // Takes the text behind the first "=" of custom.bin as `info.ip`. 1 when a value was taken,
    // else 0; then `info` is unchanged. loadClientInfo calls it.
    int readCustomAddress(ClientInfo& info);

    SceneAnalysis analysis;

    // The dialog's remembered controls, by kind, in the order in which they are saved.
    const RememberedControlLists rememberedControls;

    // The render options dialog: whether it edits several cameras at once, and its images. For the
    // dialogs' own thread.
    bool editsSeveralCameras = false;
    std::vector<ImageSlot> imageSlots;

    // Shared by the dialog and its workers without a lock.
    std::atomic<std::int32_t> submitState{kWorkerNone};
    std::atomic<std::int32_t> progressState{kWorkerNone};
    std::atomic<bool> done{false}; // ends the progress dialog
    std::atomic<bool> hide{false}; // hides the progress dialog while a message box is open
    // The progress dialog is, or is about to be (config/submission_windows.h).
    std::atomic<bool> progressOnScreen{false};
    std::atomic<bool> confirmationRequired{false};
    std::atomic<SubmissionStage> stage{SubmissionStage::Checking};
    std::atomic<std::uint64_t> submitStarted{0}; // GetTickCount64
    EndRequest endSubmission;                    // without its job

    // The files that the running submission packs; null before it packs. Values are immutable, so
    // that a reader's value stays whole.
    void setPackedFiles(std::shared_ptr<const PackedFiles> files) {
        std::atomic_store(&packedFiles_, std::move(files));
    }
    std::shared_ptr<const PackedFiles> packedFiles() const {
        return std::atomic_load(&packedFiles_);
    }

private:
    PluginData();

    std::shared_ptr<const PackedFiles> packedFiles_; // only through the atomic functions
};

} // namespace orv
