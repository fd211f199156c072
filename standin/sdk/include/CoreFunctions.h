#pragma once

#include "CoreExport.h"
#include "strbasic.h"

// The version that the running host was built with.
CoreExport DWORD Get3DSMAXVersion();
