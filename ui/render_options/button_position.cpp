#include "ui/render_options/button_position.h"

namespace orv {

ButtonPosition ApplyButtonPosition(bool severalCameras, bool coronaScene) {
    if (severalCameras)
        return {56, 200};
    return coronaScene ? ButtonPosition{82, 250} : ButtonPosition{56, 225};
}

} // namespace orv
