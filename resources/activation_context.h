// The plug-in's own version of the common controls, beside a host that may use another one.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {

namespace handle_kinds {

// What CreateActCtxW returns.
struct ActivationContext {
    using Value = HANDLE;
    static Value none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Value value) noexcept { ::ReleaseActCtx(value); }
};

} // namespace handle_kinds

// While it lives, windows made by this thread get the common controls that the plug-in's own
// manifest names (version 6), whatever the host uses. Does nothing where the manifest cannot be
// activated. Scopes of one thread end in the reverse order of their beginning, as local variables
// do.
class ActivationContextScope : private rud_Noncopyable {
public:
    ActivationContextScope();
    ~ActivationContextScope();

    // Whether the plug-in's manifest is in force.
    bool active() const { return active_; }

private:
    Owner<handle_kinds::ActivationContext> context_;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

} // namespace orv
