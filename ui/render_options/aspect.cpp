#include "ui/render_options/aspect.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>

namespace orv {
namespace {

std::int32_t WholePixels(double side, std::int32_t from) {
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    // An image that has pixels keeps at least one row and one column.
    const double least = from > 0 ? 1.0 : -kMost;
    return static_cast<std::int32_t>(std::lround(std::min(std::max(side, least), kMost)));
}

} // namespace

std::int32_t WholeNumberOf(const std::wstring& text) {
    // A number beyond the range of long, which has 32 bits on Windows, comes out as the bound.
    return static_cast<std::int32_t>(std::wcstol(text.c_str(), nullptr, 10));
}

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

} // namespace orv
