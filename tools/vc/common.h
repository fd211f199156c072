// What nearly every source includes, read once by tools/vc_check.py for all of them. GCC compiles
// the same sources without it, so a missing include is still found.
#pragma once

#include "lacking.h"

#include "base/windows.h"

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>
