// The controls of the main dialog as tables, and what is done with groups of them.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "windows/number_field.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

// The field that the edit or the arrows `control` belong to, null for any other control.
const NumberRules* FindNumberField(int control);

// Sets the ranges of all fields for numbers, and the values that they have before anything is
// remembered.
void OpenNumberFields(HWND dialog);

// Brings each of their numbers into its range.
void SettleNumberFields(HWND dialog);

// The radio buttons of the block modes (config/render_choices.h).

// The mode of a radio button; 0 for any other control.
std::int32_t BlockModeOf(int radioButton);
// The mode whose radio button is chosen; kNoBlocks when none is.
std::int32_t ChosenBlockMode(HWND dialog);
void ChooseBlockMode(HWND dialog, int radioButton);
// The material channel needs the whole image or blocks that are whole images.
bool IsMaterialChannelPossible(std::int32_t blockMode);

// Groups of controls.

extern const std::vector<int> kBlockCountControls; // of the distributed blocks
extern const std::vector<int> kCoronaControls;     // shown for a renderer that has limits
extern const std::vector<int> kNoLimitControls;    // shown for any other
extern const std::vector<int> kGiControls;         // hidden where there are limits

void EnableControls(HWND dialog, const std::vector<int>& ids, bool enabled);
void ShowControls(HWND dialog, const std::vector<int>& ids, bool shown);

// Some check boxes enable what belongs to them. Enables it by the ticks.
void EnableByCheckBoxes(HWND dialog);

std::vector<HWND> EnabledControlsButCancel(HWND dialog);

// Keeps the controls of a dialog from the user while its submission runs, except for Cancel. For
// the dialog's own thread.
class ControlLock : private rud_Noncopyable {
public:
    // Disables every control of `dialog` that is enabled, except for Cancel, which gets the
    // keyboard. Locking what is locked has no effect.
    void lock(HWND dialog);

    // Enables those controls again, no others, and gives the keyboard back to the one that had it.
    void unlock();

    bool isLocked() const { return isLocked_; }

private:
    bool isLocked_ = false;
    HWND cancel_ = nullptr;
    HWND focus_ = nullptr; // null when no control of the dialog had the keyboard
    std::vector<HWND> disabled_;
};

// The edit that holds the name under which the scene is submitted.

// Puts the scene's name into the edit `field`: `fileName` (UTF-8, as the analysis found it) without
// ".max", which is added again when it is read. Writes its line to "rud_ui".
void SetSceneName(HWND field, const std::string& fileName);

// The file name that the text of the edit `field` stands for, ".max" at its end. Writes it to
// "rud_ui".
std::wstring GetSceneName(HWND field);

} // namespace orv
