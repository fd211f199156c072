// The dialog through which the user submits the open scene.
#pragma once

#include "client/client_link.h"
#include "config/plugin_data.h"
#include "host/host.h"
#include "ui/camera_table/camera_table.h"
#include "ui/main_dialog/main_controls.h"
#include "ui/main_dialog/main_options.h"
#include "windows/dialog.h"

#include <cstdint>
#include <memory>
#include <string>

namespace orv {

enum class ClientVersion {
    Accepted,
    Missing,      // the client's settings name no version: it was never started here
    PluginTooOld, // the client asks for a newer plug-in
};

// Whether the farm's client accepts this version of the plug-in. Compares the lowest version that
// the client accepts, as its settings give it, with `pluginVersion`, character by character over
// the first five. A longer text that begins with the plug-in's own version asks for a newer one.
ClientVersion CheckClientVersion(const std::wstring& lowestAccepted,
                                 const std::wstring& pluginVersion);

// Ends with 0, or with kSceneNotAnalysed.
class MainDialog : public Dialog {
public:
    static constexpr INT_PTR kSceneNotAnalysed = -2;

    explicit MainDialog(PluginData& data);

protected:
    bool onInit(LPARAM parameter) override;
    bool onCommand(int id, int code) override;
    bool onNotify(NMHDR& header, LRESULT& result) override;
    bool onClose() override;
    void onDestroy() override;
    bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void writeError(const std::string& line) noexcept override;

private:
    enum class Outcome {
        Filled,
        Ended,       // a check failed, the user was told, the dialog has been ended
        NotAnalysed, // the host could not run the analysis, the user was told
    };

    // Checks the client's version and the scene's name, analyses the scene and fills the dialog.
    // `first` is true for the opening, false for a later analysis at the user's request.
    Outcome initialise(bool first);
    bool checkClientVersion(const std::wstring& lowestAccepted);
    bool checkSceneFile();
    bool analyse(const std::wstring& parserScript);
    bool readReport();
    void forgetFindings();
    void fill(bool first);
    void fillWarnings();
    void analyseAgain();
    void submit();
    // True when the submission runs now; otherwise the user has seen why it does not.
    bool startSubmission();
    void endSubmitting();
    // The same where the controls are still locked and the submission has ended.
    void unlockAfterSubmission();
    // Whether the analysis and the controls are the dialog's: they belong to the submission from
    // the press of Submit to its end.
    bool isFree() const;
    void updateEditButton();
    // Shows a message and ends the dialog; false, for a check to return.
    bool refuse(const std::wstring& text);

    PluginData& data_;
    CameraTable cameras_;
    MainOptions options_;
    CameraMap foundCameras_; // as the last analysis found them
    // While the dialog is open:
    std::unique_ptr<WinsockSession> winsock_;
    std::unique_ptr<host::ToolTips> toolTips_;
    bool isSubmitting_ = false;
    ControlLock lock_;
};

} // namespace orv
