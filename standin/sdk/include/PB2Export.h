#pragma once

#ifdef BLD_PARAMBLK2
#define PB2Export
#else
#define PB2Export __declspec(dllimport)
#endif
