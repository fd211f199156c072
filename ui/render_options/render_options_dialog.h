// The window of the render options; callers use render_options.h.
#pragma once

#include "host/host.h"
#include "ui/render_options/render_options.h"
#include "ui/render_options/render_options_rules.h"
#include "ui/skin/skin.h"
#include "windows/controls.h"
#include "windows/dialog.h"

#include <memory>
#include <string>
#include <vector>

namespace orv {

// Ends with 1 when the edits were written to the records, else with 0.
class RenderOptionsDialog : public Dialog {
public:
    static constexpr INT_PTR kApplied = 1;

    // `cameras` are the keys of the records, at least one.
    RenderOptionsDialog(PluginData& data, std::vector<std::wstring> cameras);

protected:
    bool onInit(LPARAM parameter) override;
    bool onCommand(int id, int code) override;
    bool onClose() override;
    void onDestroy() override;
    bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void writeError(const std::string& line) noexcept override;

private:
    // Filling. The record shown is the first camera's.
    CameraInfo& record();
    void fill();
    void fillLists();
    void putBack(FieldGroup group);
    void putBackSize();
    void setUpAspect();
    void limitTyping();

    // What is shown, enabled and where, by the number of cameras and the renderer.
    void startFields();
    void showPadlocks();
    void placeButtons();
    void describePadlocks();

    // What the user does.
    void sizeTyped(int edited);
    void aspectChanged();
    void aspectLocked();
    void nameTyped();
    void toggle(const Toggle& toggle);
    void apply();
    CameraEdits edits();
    void checkBlanks();

    void enableGroup(FieldGroup group, bool enabled);
    bool isEnabled(int id) const { return Control(window(), id).isEnabled(); }
    void show(int id, bool shown) { Control(window(), id).show(shown); }
    std::wstring text(int id) const;
    // Sets a text without taking it for the user's typing; the caret goes to its end.
    void setText(int id, const std::wstring& text);
    void updateImages();

    PluginData& data_;
    const std::vector<std::wstring> cameras_;
    double aspect_ = 0.0;     // what the lock keeps; 0 for none
    bool hasSpinner_ = false; // a camera of height 0 gets none
    bool filling_ = false;    // texts are set by the dialog, not typed
    std::unique_ptr<GdiplusSession> gdiplus_;
    std::unique_ptr<host::ToolTips> tips_;
};

} // namespace orv
