#pragma once

#ifdef BLD_CORE
#define CoreExport
#else
#define CoreExport __declspec(dllimport)
#endif
