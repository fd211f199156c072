// What the render options dialog shows and where, before the user does anything and when a padlock
// puts the record's values back.
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/render_options/aspect.h"
#include "ui/render_options/button_position.h"
#include "ui/render_options/output_formats.h"
#include "ui/render_options/render_options_dialog.h"
#include "ui/skin/image_slots.h"

#include "base/dc.h"

namespace orv {
namespace {

// Longest texts that can be typed.
constexpr WPARAM kMostDigits = 9; // any such number fits 32 bits
constexpr WPARAM kMostNameCharacters = 260;

constexpr float kAspectStep = 0.01F;

void AddEntry(HWND list, const std::wstring& text) {
    ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Select(HWND list, int entry) {
    ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
}

RECT AreaOf(HWND control) {
    RECT area = {};
    ::GetWindowRect(control, &area);
    // The two points of a rectangle follow each other as MapWindowPoints expects.
    ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

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
    ::SetDlgItemTextW(window(), IDC_OPTIONS_CAMERA, cameras_.front().c_str());
}

void RenderOptionsDialog::fillLists() {
    for (const std::wstring& format : OutputFormats())
        AddEntry(control(IDC_OPTIONS_FORMAT), format);
    AddEntry(control(IDC_OPTIONS_VIEW), ResourceText(IDS_CAMERA_NORMAL));
    AddEntry(control(IDC_OPTIONS_VIEW), ResourceText(IDS_CAMERA_SPHERICAL));
}

void RenderOptionsDialog::putBack(FieldGroup group) {
    switch (group) {
    case FieldGroup::View:
        Select(control(IDC_OPTIONS_VIEW), record().isSpherical ? 1 : 0);
        break;
    case FieldGroup::Format:
        Select(control(IDC_OPTIONS_FORMAT), FormatEntry(OutputFormats(), record().imageFormat));
        break;
    case FieldGroup::Size:
        putBackSize();
        ::CheckDlgButton(window(), IDC_OPTIONS_ASPECT_LOCK, BST_CHECKED);
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
    ::CheckDlgButton(window(), IDC_OPTIONS_ASPECT_LOCK, BST_CHECKED);
}

void RenderOptionsDialog::limitTyping() {
    for (const int id : {IDC_OPTIONS_WIDTH, IDC_OPTIONS_HEIGHT, IDC_OPTIONS_FRAME})
        ::SendMessageW(control(id), EM_LIMITTEXT, kMostDigits, 0);
    ::SendMessageW(control(IDC_OPTIONS_NAME), EM_LIMITTEXT, kMostNameCharacters, 0);
}

void RenderOptionsDialog::startFields() {
    const bool several = data_.editsSeveralCameras;
    for (const FieldGroupControls& group : kFieldGroups)
        enableGroup(group.group, !several);
    for (const int id :
         {IDC_OPTIONS_CAMERA_LABEL, IDC_OPTIONS_CAMERA, IDC_OPTIONS_NAME_LABEL, IDC_OPTIONS_NAME}) {
        ::EnableWindow(control(id), !several || id == IDC_OPTIONS_NAME_LABEL);
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
    const int size = [this] {
        const WindowDc dc(window());
        return StateImageSize(dc ? ::GetDeviceCaps(dc.get(), LOGPIXELSX) : USER_DEFAULT_SCREEN_DPI);
    }();
    tips_ = std::make_unique<host::ToolTips>();
    for (const Toggle& toggle : kToggles) {
        HWND padlock = control(toggle.pressed);
        tips_->set(padlock, text(toggle.pressed));
        // The images are sharp at this size only: around the middle of the template's place.
        const RECT area = AreaOf(padlock);
        ::SetWindowPos(padlock, nullptr, (area.left + area.right - size) / 2,
                       (area.top + area.bottom - size) / 2, size, size,
                       SWP_NOZORDER | SWP_NOACTIVATE);
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
        const RECT place =
            area(position.left, top, kDialogWidth - 2 * position.left, kButtonHeight);
        ::SetWindowPos(control(id), nullptr, place.left, place.top, place.right - place.left,
                       place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        top += kButtonStep;
    }
    RECT whole = area(0, 0, kDialogWidth, top - kButtonStep + kButtonHeight + kMargin);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window(), GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(window(), GWL_EXSTYLE));
    ::AdjustWindowRectEx(&whole, style, FALSE, extended);
    ::SetWindowPos(window(), nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void RenderOptionsDialog::setText(int id, const std::wstring& text) {
    filling_ = true;
    ::SetDlgItemTextW(window(), id, text.c_str());
    filling_ = false;
    ::SendDlgItemMessageW(window(), id, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

} // namespace orv
