// Where the dialog's buttons stand, which decides how high it is.
#pragma once

namespace orv {

// Left and top of the Apply button in dialog units. Cancel stands below it, and the dialog ends
// below that.
struct ButtonPosition {
    int left;
    int top;
};

// Several cameras have no name to edit; in a Corona scene a note stands under the name of a single
// one.
ButtonPosition ApplyButtonPosition(bool severalCameras, bool coronaScene);

} // namespace orv
