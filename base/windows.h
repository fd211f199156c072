// The Windows headers in the one order that works: Winsock 2 has to come before windows.h.
#pragma once

// clang-format off
#include <winsock2.h>
#include <windows.h>
// clang-format on
