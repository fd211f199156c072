#pragma once

#include "strclass.h"

// The plug-in library's own module. The plug-in defines it.
extern HINSTANCE hInstance;
