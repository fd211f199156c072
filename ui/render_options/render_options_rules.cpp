#include "ui/render_options/render_options_rules.h"

#include "analysis/text/numbers.h"
#include "base/windows.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orv {
namespace {

std::int32_t WholePixels(double side, std::int32_t from) {
    // An image that has pixels keeps at least one row and one column.
    const double least = from > 0 ? 1.0 : -std::numeric_limits<std::int32_t>::max();
    return Within32Bits(std::round(std::max(side, least)));
}

const unsigned kFormatTexts[] = {
    IDS_FORMAT_PNG, IDS_FORMAT_JPG, IDS_FORMAT_BMP,  IDS_FORMAT_TGA,   IDS_FORMAT_EXR,
    IDS_FORMAT_HDR, IDS_FORMAT_RLA, IDS_FORMAT_RPF,  IDS_FORMAT_DDS,   IDS_FORMAT_EPS,
    IDS_FORMAT_RGB, IDS_FORMAT_CIN, IDS_FORMAT_TIFF, IDS_FORMAT_VRIMG,
};

constexpr int kTiffEntry = 12;

bool IsSame(const std::wstring& one, const std::wstring& other) {
    return ::CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

} // namespace

double AspectOf(std::int32_t width, std::int32_t height) {
    if (height == 0)
        return 0.0;
    const double aspect = static_cast<double>(width) / height;
    return std::min(std::max(aspect, kSmallestAspect), kLargestAspect);
}

std::int32_t HeightFor(std::int32_t width, double aspect) {
    return WholePixels(width / aspect, width);
}

std::int32_t WidthFor(std::int32_t height, double aspect) {
    return WholePixels(height * aspect, height);
}

std::vector<std::wstring> OutputFormats() {
    std::vector<std::wstring> formats;
    for (const unsigned text : kFormatTexts)
        formats.push_back(ResourceText(text));
    return formats;
}

int FormatEntry(const std::vector<std::wstring>& formats, const std::wstring& format) {
    for (std::size_t entry = 0; entry < formats.size(); ++entry) {
        if (IsSame(formats[entry], format))
            return static_cast<int>(entry);
    }
    return format == L"TIFF" || format == L"TIF" ? kTiffEntry : 0;
}

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

ButtonPosition ApplyButtonPosition(bool severalCameras, bool coronaScene) {
    if (severalCameras)
        return {56, 200};
    return coronaScene ? ButtonPosition{82, 250} : ButtonPosition{56, 225};
}

namespace {

void Write(const CameraEdits& edits, CameraInfo& camera) {
    if (edits.setsSize) {
        camera.width = edits.width;
        camera.height = edits.height;
    }
    if (edits.setsFormat)
        camera.imageFormat = edits.format;
    if (edits.setsName)
        camera.name = edits.name;
    if (edits.setsFrame)
        camera.startFrame = edits.frame;
    if (edits.setsView)
        camera.isSpherical = edits.isSpherical;
}

CameraEdits EditsBetween(const CameraInfo& found, const CameraInfo& edited) {
    CameraEdits edits;
    edits.setsSize = edited.width != found.width || edited.height != found.height;
    edits.width = edited.width;
    edits.height = edited.height;
    edits.setsFormat = edited.imageFormat != found.imageFormat;
    edits.format = edited.imageFormat;
    edits.setsName = edited.name != found.name;
    edits.name = edited.name;
    edits.setsFrame = edited.startFrame != found.startFrame;
    edits.frame = edited.startFrame;
    edits.setsView = edited.isSpherical != found.isSpherical;
    edits.isSpherical = edited.isSpherical;
    return edits;
}

} // namespace

void WriteCameraEdits(CameraMap& cameras, const std::vector<std::wstring>& keys,
                      const CameraEdits& edits) {
    for (const std::wstring& key : keys)
        Write(edits, cameras[key]);
}

void KeepCameraEdits(const CameraMap& found, const CameraMap& edited, CameraMap& cameras) {
    for (auto& camera : cameras) {
        const auto then = found.find(camera.first);
        const auto now = edited.find(camera.first);
        if (then == found.end() || now == edited.end())
            continue;
        Write(EditsBetween(then->second, now->second), camera.second);
        camera.second.selected = now->second.selected;
    }
}

} // namespace orv
