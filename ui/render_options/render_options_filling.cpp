// What the render options dialog shows and where, before the user does anything and when a padlock
// puts the record's values back.
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/render_options/render_options_dialog.h"
#include "windows/controls.h"
#include "windows/measures.h"

namespace orv {
namespace {

// Longest texts that can be typed.
constexpr WPARAM kMostDigits = 9; // any such number fits 32 bits
constexpr WPARAM kMostNameCharacters = 260;

constexpr float kAspectStep = 0.01F;

} // namespace

CameraInfo& RenderOptionsDialog::record() {
    return data_.analysis.cameras[cameras_.front()];
}

void RenderOptionsDialog::fill() {
    limitTyping();
    fillLists();
    putBackSize();
    setUpAspect();
    putBack(FieldGroup::Frame);
    putBack(FieldGroup::Format);
    putBack(FieldGroup::View);
    setText(IDC_OPTIONS_NAME, record().name);
    Control(window(), IDC_OPTIONS_CAMERA).setText(cameras_.front());
}

void RenderOptionsDialog::fillLists() {
    for (const std::wstring& format : OutputFormats())
        ComboBox(window(), IDC_OPTIONS_FORMAT).add(format);
    const ComboBox views(window(), IDC_OPTIONS_VIEW);
    views.add(ResourceText(IDS_CAMERA_NORMAL));
    views.add(ResourceText(IDS_CAMERA_SPHERICAL));
}

void RenderOptionsDialog::putBack(FieldGroup group) {
    switch (group) {
    case FieldGroup::View:
        ComboBox(window(), IDC_OPTIONS_VIEW)
            .select(record().isSpherical ? kSphericalEntry : kNormalEntry);
        break;
    case FieldGroup::Format:
        ComboBox(window(), IDC_OPTIONS_FORMAT)
            .select(FormatEntry(OutputFormats(), record().imageFormat));
        break;
    case FieldGroup::Size:
        putBackSize();
        CheckBox(window(), IDC_OPTIONS_ASPECT_LOCK).check(true);
        if (hasSpinner_)
            orv_host_set_spinner_float(window(), IDC_OPTIONS_ASPECT_SPIN,
                                       static_cast<float>(aspect_));
        break;
    case FieldGroup::Frame:
        setText(IDC_OPTIONS_FRAME, std::to_wstring(record().startFrame));
        break;
    }
}

void RenderOptionsDialog::putBackSize() {
    setText(IDC_OPTIONS_WIDTH, std::to_wstring(record().width));
    setText(IDC_OPTIONS_HEIGHT, std::to_wstring(record().height));
    aspect_ = AspectOf(record().width, record().height);
}

void RenderOptionsDialog::setUpAspect() {
    if (aspect_ <= 0.0)
        return; // no height, no aspect to show or keep
    filling_ = true;
    hasSpinner_ = orv_host_setup_float_spinner(
                      window(), IDC_OPTIONS_ASPECT_SPIN, IDC_OPTIONS_ASPECT,
                      static_cast<float>(kSmallestAspect), static_cast<float>(kLargestAspect),
                      static_cast<float>(aspect_), kAspectStep) != 0;
    filling_ = false;
    CheckBox(window(), IDC_OPTIONS_ASPECT_LOCK).check(true);
}

void RenderOptionsDialog::limitTyping() {
    for (const int id : {IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_FRAME})
        Edit(window(), id).limitTyping(kMostDigits);
    Edit(window(), IDC_OPTIONS_NAME).limitTyping(kMostNameCharacters);
}

void RenderOptionsDialog::startFields() {
    const bool several = data_.editsSeveralCameras;
    for (const FieldGroupControls& group : kFieldGroups)
        enableGroup(group.group, !several);
    for (const int id :
         {IDC_OPTIONS_CAMERA_LABEL, IDC_OPTIONS_CAMERA, IDC_OPTIONS_NAME_LABEL, IDC_OPTIONS_NAME}) {
        Control(window(), id).enable(!several || id == IDC_OPTIONS_NAME_LABEL);
        show(id, !several);
    }
    showPadlocks();
}

// Of each pair the one is shown that has something to do: the locking one beside fields that are
// enabled.
void RenderOptionsDialog::showPadlocks() {
    for (const Toggle& toggle : kToggles) {
        const bool locks = toggle.putsBack;
        show(toggle.pressed, locks != data_.editsSeveralCameras);
    }
    updateImages();
}

void RenderOptionsDialog::updateImages() {
    std::size_t index = 0;
    for (const Toggle& toggle : kToggles) {
        ImageSlot& slot = data_.imageSlots[index++];
        slot.on = isEnabled(ControlsOf(toggle.group).controls[0]);
        ::InvalidateRect(control(slot.control), nullptr, TRUE);
    }
}

// The padlocks show no text; what it says, a tip and a screen reader tell.
void RenderOptionsDialog::describePadlocks() {
    const int size = StateImageSize(DotsPerInch(window()));
    tips_ = std::make_unique<host::ToolTips>();
    for (const Toggle& toggle : kToggles) {
        HWND padlock = control(toggle.pressed);
        tips_->set(padlock, text(toggle.pressed));
        // The images are sharp at this size only: around the middle of the template's place.
        const RECT area = PlaceOf(padlock);
        const LONG left = (area.left + area.right - size) / 2;
        const LONG top = (area.top + area.bottom - size) / 2;
        PlaceWindow(padlock, {left, top, left + size, top + size});
    }
}

void RenderOptionsDialog::placeButtons() {
    const bool corona = data_.analysis.coronaState != CoronaLimitState::NoLimits;
    const ButtonPosition position = ApplyButtonPosition(data_.editsSeveralCameras, corona);
    show(IDC_OPTIONS_CORONA_NOTE, corona && !data_.editsSeveralCameras);

    // In dialog units, of which the template has 216 in width.
    constexpr int kDialogWidth = 216;
    constexpr int kButtonHeight = 14;
    constexpr int kButtonStep = 18;
    constexpr int kMargin = 7;
    const auto area = [this](int left, int top, int width, int height) {
        RECT place = {left, top, left + width, top + height};
        ::MapDialogRect(window(), &place);
        return place;
    };
    int top = position.top;
    for (const int id : {IDC_OPTIONS_APPLY, IDC_OPTIONS_CANCEL}) {
        PlaceWindow(control(id),
                    area(position.left, top, kDialogWidth - 2 * position.left, kButtonHeight));
        top += kButtonStep;
    }
    RECT whole = area(0, 0, kDialogWidth, top - kButtonStep + kButtonHeight + kMargin);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window(), GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(window(), GWL_EXSTYLE));
    ::AdjustWindowRectEx(&whole, style, FALSE, extended);
    ResizeWindow(window(), whole.right - whole.left, whole.bottom - whole.top);
}

void RenderOptionsDialog::setText(int id, const std::wstring& text) {
    filling_ = true;
    Edit(window(), id).setTextAndCaret(text);
    filling_ = false;
}

} // namespace orv
