// Libraries that the host has to refuse; one for each reason, chosen when it is compiled.
#define ENTRY extern "C" __declspec(dllexport)

namespace {
constexpr unsigned long kHostVersion = 0x52083400;
}

ENTRY const wchar_t* LibDescription();
ENTRY int LibNumberClasses();
ENTRY unsigned long LibVersion();
ENTRY int LibInitialize();
ENTRY int LibShutdown();

const wchar_t* LibDescription() {
    return L"A library that the host refuses";
}
int LibNumberClasses() {
    return 0;
}
int LibShutdown() {
    return 1;
}

#ifdef WRONG_VERSION
unsigned long LibVersion() {
    return kHostVersion + 1;
}
#else
unsigned long LibVersion() {
    return kHostVersion;
}
#endif

#ifdef WILL_NOT_INITIALISE
int LibInitialize() {
    return 0;
}
#else
int LibInitialize() {
    return 1;
}
#endif

#ifndef NO_CLASS_DESCRIPTOR
ENTRY void* LibClassDesc(int index);
void* LibClassDesc(int) {
    return nullptr;
}
#endif
