// The library's entry. Runs under the loader's lock: everything else begins in
// Orv_Rendering::Start.
#include "max.h"
// the host's own header comes first
#include "resources/text.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    MaxSDK::Util::UseLanguagePackLocale(module);
    hInstance = module;
    DisableThreadLibraryCalls(module);
    return TRUE;
}
