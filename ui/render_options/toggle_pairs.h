// The padlocks of the dialog: four pairs of buttons, of which one is shown at a time.
#pragma once

#include <array>

namespace orv {

// The fields that one pair locks and unlocks together.
enum class FieldGroup { View, Format, Size, Frame };

// What pressing one padlock does. The pressed button hides and its partner is shown.
struct Toggle {
    int pressed;
    int shown;
    FieldGroup group;
    bool putsBack; // the record's values into the fields
    bool enables;  // the fields; else they are disabled
};

constexpr int kToggleCount = 8;
extern const Toggle kToggles[kToggleCount];

// The one that pressing `button` does, null when it is no padlock.
const Toggle* FindToggle(int button);

struct FieldGroupControls {
    FieldGroup group;
    std::array<int, 5> controls; // 0 where there are fewer
};

constexpr int kFieldGroupCount = 4;
extern const FieldGroupControls kFieldGroups[kFieldGroupCount];

// The group of whose fields `control` is the first, which tells by its state whether the group is
// unlocked.
const FieldGroupControls& ControlsOf(FieldGroup group);

} // namespace orv
