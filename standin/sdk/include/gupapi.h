#pragma once

#ifdef GUP_EXPORTS
#define GUPExport
#else
#define GUPExport __declspec(dllimport)
#endif
