// The header that every plug-in includes first.
#pragma once

#include "CoreFunctions.h"
#include "custcont.h"
#include "dllutilities.h"
#include "maxapi.h"
#include "plugin.h"
#include "strclass.h"
#include "utillib.h"
#include "winutil.h"
