#include "ui/render_options/toggle_pairs.h"

#include "resources/controls.h"

namespace orv {

// Neither padlock of the frame unlocks it: the farm renders the frame that the scene was analysed
// at.
const Toggle kToggles[kToggleCount] = {
    {IDC_OPTIONS_UNLOCK_VIEW, IDC_OPTIONS_LOCK_VIEW, FieldGroup::View, false, true},
    {IDC_OPTIONS_LOCK_VIEW, IDC_OPTIONS_UNLOCK_VIEW, FieldGroup::View, true, false},
    {IDC_OPTIONS_UNLOCK_FORMAT, IDC_OPTIONS_LOCK_FORMAT, FieldGroup::Format, false, true},
    {IDC_OPTIONS_LOCK_FORMAT, IDC_OPTIONS_UNLOCK_FORMAT, FieldGroup::Format, true, false},
    {IDC_OPTIONS_UNLOCK_SIZE, IDC_OPTIONS_LOCK_SIZE, FieldGroup::Size, false, true},
    {IDC_OPTIONS_LOCK_SIZE, IDC_OPTIONS_UNLOCK_SIZE, FieldGroup::Size, true, false},
    {IDC_OPTIONS_UNLOCK_FRAME, IDC_OPTIONS_LOCK_FRAME, FieldGroup::Frame, false, false},
    {IDC_OPTIONS_LOCK_FRAME, IDC_OPTIONS_UNLOCK_FRAME, FieldGroup::Frame, true, false},
};

// The aspect follows the size: it would change the height.
const FieldGroupControls kFieldGroups[kFieldGroupCount] = {
    {FieldGroup::View, {{IDC_OPTIONS_VIEW}}},
    {FieldGroup::Format, {{IDC_OPTIONS_FORMAT}}},
    {FieldGroup::Size,
     {{IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_ASPECT_LOCK, IDC_OPTIONS_ASPECT,
       IDC_OPTIONS_ASPECT_SPIN}}},
    {FieldGroup::Frame, {{IDC_OPTIONS_FRAME}}},
};

const Toggle* FindToggle(int button) {
    for (const Toggle& toggle : kToggles) {
        if (toggle.pressed == button)
            return &toggle;
    }
    return nullptr;
}

const FieldGroupControls& ControlsOf(FieldGroup group) {
    for (const FieldGroupControls& controls : kFieldGroups) {
        if (controls.group == group)
            return controls;
    }
    return kFieldGroups[0];
}

} // namespace orv
