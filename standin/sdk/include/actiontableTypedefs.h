#pragma once

#include "strbasic.h"

typedef DWORD ActionTableId;
typedef DWORD ActionContextId;
