#include "ui/render_options/aspect.h"

#include "analysis/text/numbers.h"

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

} // namespace orv
