// The options of the main dialog: blocks, limits, render elements. What they open with, what is
// restored of earlier choices, and what a change leads to.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "config/plugin_data.h"
#include "config/remembered_settings.h"

#include <cstdint>

namespace orv {

// The limits of a Corona scene.
struct CoronaLimits {
    std::int32_t passes;
    double hours;
    std::int32_t seconds; // the same as hours, without their rounding
    double noise;         // per cent
};

// For the dialog's own thread. `data` has to live as long as the object.
class MainOptions : private rud_Noncopyable {
public:
    explicit MainOptions(PluginData& data) : data_(data) {}

    // Takes over the controls of `dialog`, and gives the fields for numbers their ranges and
    // opening values.
    void open(HWND dialog);

    // Sets the options from the analysis and the remembered settings, and shows a message where
    // these contradict each other. `first` is true for the opening of the dialog, false for a later
    // analysis.
    void fill(bool first);

    // Handles notification `code` of control `id`; returns false for any control but the options.
    bool onCommand(int id, int code);
    // Handles a click on arrows; returns false for arrows that count by themselves.
    bool onArrows(int arrows, int steps);

    // Before a submission: brings the numbers into their ranges, and the records up to date with
    // the options that they hold.
    void prepareSubmission();

private:
    // Writes the block mode and the number of blocks into the records, which belong to the
    // submission while one runs.
    void takeBlocks();
    bool hasLimits() const;
    // Shows the limits of the scene's renderer, or that it has none.
    void showLimits();
    void restoreSettings(bool first);
    void restoreSetting(const RememberedValue& value, bool first);
    // Sets the text of a field under its rules.
    void setNumber(int edit, const std::wstring& text);
    void chooseBlocks(int radioButton);
    void applyMaterialRule();

    PluginData& data_;
    HWND dialog_ = nullptr;
    // Those of the last analysis. A submission with 0 in all three fields takes the records' ones,
    // in which the submission before may have left what was typed.
    CoronaLimits foundLimits_ = {};
};

} // namespace orv
