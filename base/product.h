// Names and numbers of the product that users and other programs can see, each stated once.
#pragma once

namespace orv {

// The plug-in's own version, which the farm's client compares with the lowest version it accepts.
constexpr wchar_t kPluginVersion[] = L"1.3.7";

// The product folder's name below the all-users application data folder, with the separator that
// the product puts before each part of a path.
constexpr wchar_t kProductFolderSuffix[] = L"/Orv Rendering";

} // namespace orv
