#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {

// While it lives, windows made by this thread get the common controls that the plug-in's own manifest
// names (version 6), whatever the host uses. Does nothing where the manifest cannot be activated.
class ActivationContextScope : private rud_Noncopyable {
public:
    ActivationContextScope();
    ~ActivationContextScope();

private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

} // namespace orv
