// Character type of the host's texts.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif

#include "base/windows.h"

#define MCHAR_IS_WCHAR
#define MCHAR wchar_t
#define _M(x) L##x
