// The dialog through which the user submits the open scene.
#pragma once

#include "client/client_link.h"
#include "config/plugin_data.h"
#include "config/remembered_settings.h"
#include "host/host.h"
#include "ui/camera_table/camera_table.h"
#include "ui/dialog.h"
#include "ui/main_dialog/control_lock.h"

#include <cstdint>
#include <memory>
#include <string>

namespace orv {

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
    void writeError(const std::string& line) override;

private:
    enum class Outcome {
        Filled,
        Ended,       // a check failed, the user was told, the dialog has been ended
        NotAnalysed, // the host could not run the analysis, the user was told
    };

    // Checks the client's version and the scene's name, analyses the scene and fills the dialog.
    // `first` tells the opening from an analysis that the user asked for later.
    Outcome initialise(bool first);
    bool checkClientVersion(const std::wstring& lowestAccepted);
    bool checkSceneFile();
    bool analyse(const std::wstring& parserScript);
    bool readReport();
    void fill(bool first);
    void fillWarnings();
    void fillOptions(bool first);
    // Shows what the scene's renderer has limits for.
    void showLimits();
    void restoreSettings();
    void restoreSetting(const RememberedValue& value);

    // Answers to a control of the options; false for any other.
    bool onOption(int id, int code);
    // The code of the radio button that is chosen.
    std::int32_t blockMode() const;
    // Writes it and the number of blocks into the records, which belong to the submission while one
    // runs.
    void takeBlocks();
    void selectBlocks(int radioButton);
    void applyMaterialRule();

    void analyseAgain();
    void submit();
    // True when the submission runs now; otherwise the user was told what there is to tell.
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
    // While the dialog is open:
    std::unique_ptr<WinsockSession> winsock_;
    std::unique_ptr<host::ToolTips> toolTips_;
    bool isSubmitting_ = false;
    ControlLock lock_;
};

} // namespace orv
