#pragma once

#ifdef BLD_UTIL
#define UtilExport
#else
#define UtilExport __declspec(dllimport)
#endif
