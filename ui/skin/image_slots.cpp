#include "ui/skin/image_slots.h"

#include "resources/controls.h"
#include "resources/text.h"
#include "ui/skin/skin_image.h"

#include <algorithm>

namespace orv {
namespace {

constexpr int kImageSize = 16;

} // namespace

int StateImageSize(int dotsPerInch) {
    const int half = USER_DEFAULT_SCREEN_DPI / 2;
    return kImageSize * std::max(1, (dotsPerInch + half) / USER_DEFAULT_SCREEN_DPI);
}

void DrawStateImage(HDC target, const RECT& area, bool on) {
    SkinImage image;
    if (!image.load(orv_resource_module(), on ? IDP_PADLOCK_OPEN : IDP_PADLOCK_CLOSED, L"PNG"))
        return;
    // What the control showed before would shine through.
    ::FillRect(target, &area, ::GetSysColorBrush(COLOR_3DFACE));
    image.draw(target, area);
}

void PaintImageSlots(HWND dialog, const std::vector<ImageSlot>& slots) {
    for (const ImageSlot& slot : slots) {
        HWND control = ::GetDlgItem(dialog, slot.control);
        if (control == nullptr || !::IsWindowVisible(control))
            continue;
        PAINTSTRUCT paint = {};
        if (::BeginPaint(control, &paint) == nullptr)
            continue;
        RECT area = {};
        ::GetClientRect(control, &area);
        DrawStateImage(paint.hdc, area, slot.on);
        ::EndPaint(control, &paint);
    }
}

} // namespace orv
