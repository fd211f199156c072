#pragma once

#include "strbasic.h"
#include "utilexp.h"

namespace MaxSDK {
namespace Util {

// Selects the host's language for the resources that this thread loads.
UtilExport void UseLanguagePackLocale(HMODULE hMyModule);

} // namespace Util
} // namespace MaxSDK
