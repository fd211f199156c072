// The rules of the render options dialog, which need no window.
#pragma once

#include "config/scene_analysis.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orv {

// The arithmetic between an image's width, its height and its aspect (width divided by height).

// The aspects that the dialog can show.
constexpr double kSmallestAspect = 0.001;
constexpr double kLargestAspect = 2048.0;

// The aspect of an image, kept within the limits above; 0 for one of height 0, which has none.
double AspectOf(std::int32_t width, std::int32_t height);

// The other side of an image of that aspect, rounded to whole pixels, at least 1 where the given
// side is, and kept within 32 bits. `aspect` is above 0.
std::int32_t HeightFor(std::int32_t width, double aspect);
std::int32_t WidthFor(std::int32_t height, double aspect);

// The output formats that the farm can write.

// Their names, in the order of the dialog's list.
std::vector<std::wstring> OutputFormats();

// The entry of `formats` to select for a camera's format: the one of that name, in any case; for
// "TIFF" and "TIF" the TIFF entry; else the first.
int FormatEntry(const std::vector<std::wstring>& formats, const std::wstring& format);

// The entries of the list of views.
constexpr int kNormalEntry = 0;
constexpr int kSphericalEntry = 1;

// The padlocks of the dialog: four pairs of buttons, of which one is shown at a time.

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

// The toggle of padlock `button`, null for any other control.
const Toggle* FindToggle(int button);

struct FieldGroupControls {
    FieldGroup group;
    std::array<int, 5> controls; // 0 where there are fewer
};

constexpr int kFieldGroupCount = 4;
extern const FieldGroupControls kFieldGroups[kFieldGroupCount];

// The fields of a group. The first of them is enabled while the group is unlocked.
const FieldGroupControls& ControlsOf(FieldGroup group);

// Where the dialog's buttons stand, which decides how high it is.

// Left and top of the Apply button in dialog units. Cancel stands below it, and the dialog ends
// below that.
struct ButtonPosition {
    int left;
    int top;
};

// Several cameras have no name to edit; in a Corona scene a note stands under the name of a single
// one.
ButtonPosition ApplyButtonPosition(bool severalCameras, bool coronaScene);

// What the user decided in the dialog, and taking it over into the camera records.

// Only the fields whose flag is set are taken over: those whose controls were enabled.
struct CameraEdits {
    bool setsSize = false;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool setsFormat = false;
    std::wstring format;
    bool setsName = false;
    std::wstring name;
    bool setsFrame = false;
    std::int32_t frame = 0;
    bool setsView = false;
    bool isSpherical = false;
};

// Writes `edits` into the record of each of these keys; a key without a record gets one. A record
// keeps its key when its name changes.
void WriteCameraEdits(CameraMap& cameras, const std::vector<std::wstring>& keys,
                      const CameraEdits& edits);

// What keeps the user's work when the scene is analysed again. `cameras` are those of the new
// analysis, `found` those of the one before, `edited` the records that the user has worked on
// since. Each camera that is still there keeps its tick and the fields in which its record differs
// from what was found; in all others it is what the new analysis says. Width and height count as
// one field.
void KeepCameraEdits(const CameraMap& found, const CameraMap& edited, CameraMap& cameras);

} // namespace orv
