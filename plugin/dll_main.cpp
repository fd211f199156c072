// The library's entry. Runs under the loader's lock: everything else begins in
// Orv_Rendering::Start.
#include "max.h"
// the host's own header comes first
#include "resources/text.h"

// The name and the linkage are those of the host's headers, which declare it too.
HINSTANCE hInstance = nullptr;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    MaxSDK::Util::UseLanguagePackLocale(module);
    hInstance = module;
    orv_set_resource_module(module);
    DisableThreadLibraryCalls(module);
    return TRUE;
}
