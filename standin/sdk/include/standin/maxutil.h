// The seam of the stand-in's maxutil.dll. Link the CMake target standin_maxutil.
#pragma once

extern "C" {

// The language that UseLanguagePackLocale selects for the calling thread (Windows language number:
// 0x0409 English, 0x0804 Chinese). At first that of the environment variable ORV_STANDIN_LANGUAGE,
// a hexadecimal number such as 0804, else English. Set it before the plug-in is loaded.
void standin_set_language(unsigned short language);
unsigned short standin_language(void);

// Blocks of the host's heap that are in use, for tests that look for leaks. Any thread.
long long standin_heap_block_count(void);
}
