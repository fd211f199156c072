// Texts of the language resources, looked up by number. This side is plain C, so that the code
// compiled for the host's object layout can use it too.
#pragma once

#include "base/windows.h"

extern "C" {

// The module whose resources are the product's: the library's own, which its entry stores once at
// load (a test program stores itself). Null before that. Every lookup goes through it.
void orv_set_resource_module(HINSTANCE module);
HINSTANCE orv_resource_module(void);

// The text of number `id` in a buffer of 256 characters that the next call of the same function
// overwrites; null when no module is stored yet or the number has no text. For the host's thread
// only.
const wchar_t* loadResourceString(unsigned id);
const wchar_t* loadResourceString2(unsigned id);
}
