#pragma once

#include <string>

namespace orv {

// Six letters and digits that tell archives of one scene apart. Two calls within one second return
// the same text. Reseeds the C library's generator of this thread.
std::string RandomText();

// The text for a seed.
std::string RandomTextFromSeed(unsigned seed);

} // namespace orv
