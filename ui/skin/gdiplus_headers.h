// The GDI+ headers, which need the COM ones and names of their own for min and max.
#pragma once

#include "base/windows.h"

#include <objidl.h>

#include <algorithm>

namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>
