#pragma once

#ifdef BLD_MAXSCRIPT
#define ScripterExport
#else
#define ScripterExport __declspec(dllimport)
#endif
