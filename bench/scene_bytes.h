#pragma once

#include <string>

namespace orv {
namespace bench {

// The content of a scene of 200 MB, the same on each call. It compresses to about a fifth, as a
// scene does: most of it are records that come again and again, the rest is noise.
std::string SceneBytes();

} // namespace bench
} // namespace orv
