// The product's version, stated once. The resource compiler and the build read this header, too, so
// it has nothing but macros.
#pragma once

#define ORV_VERSION "1.3.7"
#define ORV_VERSION_NUMBERS 1, 3, 7, 0
#define ORV_COPYRIGHT "Copyright (C) 2019 Orv Rendering"
