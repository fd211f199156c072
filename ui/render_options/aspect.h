// The arithmetic between an image's width, its height and its aspect (width divided by height).
#pragma once

#include <cstdint>

namespace orv {

// The aspects that the dialog can show.
constexpr double kSmallestAspect = 0.001;
constexpr double kLargestAspect = 2048.0;

// The aspect of an image, kept within the limits above; 0 for one of height 0, which has none.
double AspectOf(std::int32_t width, std::int32_t height);

// The other side of an image of that aspect, rounded to whole pixels, at least 1 where the given
// side is, and kept within 32 bits. `aspect` is above 0.
std::int32_t HeightFor(std::int32_t width, double aspect);
std::int32_t WidthFor(std::int32_t height, double aspect);

} // namespace orv
