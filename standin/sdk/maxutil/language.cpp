#include "base/windows.h"
#include "standin/sdk/include/standin/maxutil.h"
#include "systemutilities.h"

#include <wchar.h>

namespace {

unsigned short language = 0; // 0: not chosen yet

unsigned short LanguageOfEnvironment() {
    wchar_t text[16] = {};
    const DWORD length = GetEnvironmentVariableW(L"ORV_STANDIN_LANGUAGE", text, 16);
    const unsigned long number = length > 0 && length < 16 ? wcstoul(text, nullptr, 16) : 0;
    const unsigned short english = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    return number > 0 && number <= 0xffff ? static_cast<unsigned short>(number) : english;
}

} // namespace

void standin_set_language(unsigned short number) {
    language = number;
}

unsigned short standin_language(void) {
    if (language == 0)
        language = LanguageOfEnvironment();
    return language;
}

namespace MaxSDK {
namespace Util {

// Windows takes resources in the thread's user-interface language, Wine in that of its locale.
void UseLanguagePackLocale(HMODULE) {
    const unsigned short chosen = standin_language();
    SetThreadUILanguage(chosen);
    SetThreadLocale(MAKELCID(chosen, SORT_DEFAULT));
}

} // namespace Util
} // namespace MaxSDK
