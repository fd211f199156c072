#include "resources/text.h"

namespace {

HINSTANCE resourceModule = nullptr;

// One text of a language resource at most, its closing zero included.
constexpr int kTextSize = 256;

wchar_t resourceText1[kTextSize];
wchar_t resourceText2[kTextSize];

const wchar_t* LoadInto(wchar_t* buffer, unsigned id) {
    if (resourceModule == nullptr)
        return nullptr;
    return ::LoadStringW(resourceModule, id, buffer, kTextSize) != 0 ? buffer : nullptr;
}

} // namespace

void orv_set_resource_module(HINSTANCE module) {
    resourceModule = module;
}

HINSTANCE orv_resource_module(void) {
    return resourceModule;
}

const wchar_t* loadResourceString(unsigned id) {
    return LoadInto(resourceText1, id);
}

const wchar_t* loadResourceString2(unsigned id) {
    return LoadInto(resourceText2, id);
}
