// The functions that the host calls by name (exports.def).
#include "max.h"
// the host's own header comes first
#include "plugin/class_desc.h"
#include "resources/text.h"
#include "resources/texts.h"

extern "C" {

const MCHAR* LibDescription() {
    return loadResourceString(IDS_LIBRARY_DESCRIPTION);
}

int LibNumberClasses() {
    return 1;
}

ClassDesc* LibClassDesc(int i) {
    return i == 0 ? GetOrv_RenderingDesc() : nullptr;
}

// The release that this library was built for; the host refuses every other one.
ULONG LibVersion() {
    return VERSION_3DSMAX;
}

int LibInitialize() {
    return TRUE;
}

int LibShutdown() {
    return TRUE;
}
}
