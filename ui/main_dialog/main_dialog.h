// The dialog through which the user submits the open scene.
#pragma once

#include "client/winsock_session.h"
#include "config/plugin_data.h"
#include "submit/dialog_input/camera_rows.h"
#include "ui/camera_table/camera_table.h"
#include "ui/dialog.h"

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

    void analyseAgain();
    void submit();
    // Shows a message and ends the dialog; false, for a check to return.
    bool refuse(const std::wstring& text);
    void enableWork(bool enabled);

    PluginData& data_;
    CameraTable cameras_;
    std::unique_ptr<WinsockSession> winsock_; // while the dialog is open
};

} // namespace orv
