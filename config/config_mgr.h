// What the menu's first action hands to the main dialog when it opens it.
#pragma once

#include "base/noncopyable.h"

namespace orv {

// Has no data: the dialog finds everything in PluginData. The dialog's initialisation parameter is
// the address of the one instance.
class OrvRenderingConfigMgr : private rud_Noncopyable {
public:
    // The instance, built on first use.
    static OrvRenderingConfigMgr& instance();

    virtual ~OrvRenderingConfigMgr();

private:
    OrvRenderingConfigMgr();
};

} // namespace orv
