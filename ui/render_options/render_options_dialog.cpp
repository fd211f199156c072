#include "ui/render_options/render_options_dialog.h"

#include "analysis/text/names.h"
#include "analysis/text/numbers.h"
#include "config/dialog_choices.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "windows/controls.h"
#include "windows/measures.h"

#include <utility>

namespace orv {
RenderOptionsDialog::RenderOptionsDialog(PluginData& data, std::vector<std::wstring> cameras)
    : data_(data), cameras_(std::move(cameras)) {}

void RenderOptionsDialog::writeError(const std::string& line) noexcept {
    WriteLog(LogModule::Ui, kError, line);
}

bool RenderOptionsDialog::onInit(LPARAM /*parameter*/) {
    gdiplus_ = std::make_unique<GdiplusSession>();
    if (!gdiplus_->started())
        WriteLog(LogModule::Ui, kError, "GdiplusStartup failed.");
    data_.imageSlots.clear();
    for (const Toggle& toggle : kToggles)
        data_.imageSlots.push_back({toggle.pressed, false});
    if (data_.editsSeveralCameras)
        Control(window()).setText(ResourceText(IDS_OPTIONS_TITLE_SEVERAL));
    fill();
    startFields();
    describePadlocks();
    placeButtons();
    CentreOverOwner(window());
    // A single camera's first value, or the first padlock, as all fields of several are locked.
    HWND first = control(data_.editsSeveralCameras ? IDC_OPTIONS_UNLOCK_SIZE : IDC_OPTIONS_WIDTH);
    ::SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
    return false;
}

bool RenderOptionsDialog::onCommand(int id, int code) {
    if (const Toggle* pressed = FindToggle(id)) {
        if (code == BN_CLICKED)
            toggle(*pressed);
        return true;
    }
    switch (id) {
    case IDC_OPTIONS_WIDTH:
    case IDC_OPTIONS_HEIGHT:
        if (code == EN_CHANGE && !filling_)
            sizeTyped(id);
        return true;
    case IDC_OPTIONS_NAME:
        if (code == EN_CHANGE && !filling_)
            nameTyped();
        return true;
    case IDC_OPTIONS_ASPECT_LOCK:
        if (code == BN_CLICKED)
            aspectLocked();
        return true;
    case IDC_OPTIONS_APPLY:
        apply();
        return true;
    case IDC_OPTIONS_CANCEL:
    case IDCANCEL:
        end(0);
        return true;
    default:
        return false;
    }
}

bool RenderOptionsDialog::onClose() {
    end(0);
    return true;
}

void RenderOptionsDialog::onDestroy() {
    tips_.reset();
    gdiplus_.reset();
    data_.imageSlots.clear();
}

bool RenderOptionsDialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        PaintImageSlots(window(), data_.imageSlots);
        return false; // the dialog itself is painted as ever
    case WM_DRAWITEM: {
        // A padlock alone: it was shown, pressed, or got the focus.
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        for (const ImageSlot& slot : data_.imageSlots) {
            if (slot.control == static_cast<int>(item.CtlID))
                DrawStateImage(item.hDC, item.rcItem, slot.on);
        }
        if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0)
            ::DrawFocusRect(item.hDC, &item.rcItem);
        return true;
    }
    case orv_host_spinner_changed:
        if (LOWORD(wParam) == IDC_OPTIONS_ASPECT_SPIN)
            aspectChanged();
        return true;
    default:
        return false;
    }
}

void RenderOptionsDialog::sizeTyped(int edited) {
    const std::int32_t value = WholeNumber(text(edited));
    const std::wstring clean = std::to_wstring(value);
    if (clean != text(edited))
        setText(edited, clean);
    const bool locked = CheckBox(window(), IDC_OPTIONS_ASPECT_LOCK).isChecked() && aspect_ > 0.0;
    if (locked) {
        if (edited == IDC_OPTIONS_WIDTH)
            setText(IDC_OPTIONS_HEIGHT, std::to_wstring(HeightFor(value, aspect_)));
        else
            setText(IDC_OPTIONS_WIDTH, std::to_wstring(WidthFor(value, aspect_)));
        return; // the aspect stays as it is: that of the rounded sides would drift away
    }
    const double aspect =
        AspectOf(WholeNumber(text(IDC_OPTIONS_WIDTH)), WholeNumber(text(IDC_OPTIONS_HEIGHT)));
    if (aspect <= 0.0)
        return; // while the height is being typed
    aspect_ = aspect;
    if (hasSpinner_)
        orv_host_set_spinner_float(window(), IDC_OPTIONS_ASPECT_SPIN, static_cast<float>(aspect));
}

void RenderOptionsDialog::aspectChanged() {
    if (!hasSpinner_ || filling_ || !isEnabled(IDC_OPTIONS_WIDTH))
        return;
    const double aspect =
        static_cast<double>(orv_host_spinner_float(window(), IDC_OPTIONS_ASPECT_SPIN));
    if (aspect <= 0.0)
        return;
    aspect_ = aspect;
    const std::int32_t width = WholeNumber(text(IDC_OPTIONS_WIDTH));
    setText(IDC_OPTIONS_HEIGHT, std::to_wstring(HeightFor(width, aspect)));
}

void RenderOptionsDialog::aspectLocked() {
    const double aspect =
        AspectOf(WholeNumber(text(IDC_OPTIONS_WIDTH)), WholeNumber(text(IDC_OPTIONS_HEIGHT)));
    if (aspect > 0.0)
        aspect_ = aspect;
}

void RenderOptionsDialog::nameTyped() {
    const std::wstring name = text(IDC_OPTIONS_NAME);
    switch (CheckOutputName(name)) {
    case OutputName::Accepted:
        break;
    case OutputName::TooLong:
        ShowMessage(window(), IDS_NAME_TOO_LONG, IDS_CAPTION_CHECK);
        WriteLog(LogModule::Ui, kWarn,
                 "You are setting camera name that its length longer than 100!");
        break;
    case OutputName::HasForbidden:
        WriteLog(LogModule::Ui, kWarn,
                 "You are setting camera name that contain invalid characters.");
        ShowMessage(window(), IDS_NAME_CHARACTERS_REMOVED, IDS_CAPTION_CHECK);
        setText(IDC_OPTIONS_NAME, WithoutIllegalNameChars(name));
        WriteLog(LogModule::Ui, kInfo, "Remove invalid characters successfully.");
        break;
    }
}

void RenderOptionsDialog::toggle(const Toggle& toggle) {
    // The focus goes over before the pressed button hides: a hidden one would swallow the keys.
    const bool hadFocus = ::GetFocus() == control(toggle.pressed);
    show(toggle.shown, true);
    if (hadFocus)
        ::SetFocus(control(toggle.shown));
    show(toggle.pressed, false);
    if (toggle.putsBack)
        putBack(toggle.group);
    enableGroup(toggle.group, toggle.enables);
    updateImages();
}

void RenderOptionsDialog::apply() {
    // An aspect being typed counts when its edit loses the focus.
    ::SetFocus(control(IDC_OPTIONS_APPLY));
    WriteCameraEdits(data_.analysis.cameras, cameras_, edits());
    ::SendMessageW(::GetWindow(window(), GW_OWNER), kRebuildCameraTable, 0, 0);
    end(kApplied);
}

CameraEdits RenderOptionsDialog::edits() {
    checkBlanks();
    CameraEdits edits;
    edits.setsSize = isEnabled(IDC_OPTIONS_WIDTH);
    edits.width = WholeNumber(text(IDC_OPTIONS_WIDTH));
    edits.height = WholeNumber(text(IDC_OPTIONS_HEIGHT));
    edits.setsFormat = isEnabled(IDC_OPTIONS_FORMAT);
    edits.format = text(IDC_OPTIONS_FORMAT);
    edits.setsName = isEnabled(IDC_OPTIONS_NAME);
    edits.name = text(IDC_OPTIONS_NAME);
    edits.setsFrame = isEnabled(IDC_OPTIONS_FRAME);
    edits.frame = WholeNumber(text(IDC_OPTIONS_FRAME));
    edits.setsView = isEnabled(IDC_OPTIONS_VIEW);
    edits.isSpherical = ComboBox(window(), IDC_OPTIONS_VIEW).selection() == kSphericalEntry;
    return edits;
}

void RenderOptionsDialog::checkBlanks() {
    if (!isEnabled(IDC_OPTIONS_NAME))
        return; // several cameras: the name is not shown, and nothing about it should be either
    const std::wstring name = text(IDC_OPTIONS_NAME);
    const OuterBlank blank = OuterBlankOf(name);
    if (blank == OuterBlank::None)
        return;
    ShowMessage(window(),
                blank == OuterBlank::Front ? IDS_NAME_BEGINS_WITH_SPACE : IDS_NAME_ENDS_WITH_SPACE,
                IDS_CAPTION_CHECK);
    setText(IDC_OPTIONS_NAME, TrimSpaces(name));
}

void RenderOptionsDialog::enableGroup(FieldGroup group, bool enabled) {
    for (const int id : ControlsOf(group).controls) {
        const bool needsSpinner = id == IDC_OPTIONS_ASPECT || id == IDC_OPTIONS_ASPECT_SPIN;
        if (id != 0)
            Control(window(), id).enable(enabled && (hasSpinner_ || !needsSpinner));
    }
}

std::wstring RenderOptionsDialog::text(int id) const {
    return Control(window(), id).text();
}

INT_PTR RunRenderOptions(HWND owner, PluginData& data, const std::vector<std::wstring>& cameras,
                         CameraEditing editing) {
    if (cameras.empty())
        return 0;
    data.editsSeveralCameras = editing == CameraEditing::Several;
    RenderOptionsDialog dialog(data, cameras);
    return dialog.run(IDD_RENDER_OPTIONS, owner);
}

} // namespace orv
