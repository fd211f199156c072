// What a plug-in library includes to export its entry points.
#pragma once

#include "plugapi.h"

extern HINSTANCE hInstance;
