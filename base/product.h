// Names and numbers of the product that users and other programs can see, each stated once.
#pragma once

#include "base/version.h"

namespace orv {

#define ORV_WIDE_(text) L##text
#define ORV_WIDE(text) ORV_WIDE_(text)

// The plug-in's own version, which the farm's client compares with the lowest version it accepts.
constexpr wchar_t kPluginVersion[] = ORV_WIDE(ORV_VERSION);

#undef ORV_WIDE
#undef ORV_WIDE_

// The product folder's name below the all-users application data folder, with the separator that
// the product puts before each part of a path.
constexpr wchar_t kProductFolderSuffix[] = L"/Orv Rendering";

} // namespace orv
