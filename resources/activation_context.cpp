#include "resources/activation_context.h"

#include "resources/text.h"

namespace orv {
namespace {

// The manifest is read from the module that also holds the texts. Each scope makes a context of its
// own: message boxes and dialogs are rare, and so nothing has to be given back when the library
// goes.
HANDLE CreatePluginContext() {
    const HINSTANCE module = orv_resource_module();
    if (module == nullptr)
        return INVALID_HANDLE_VALUE; // the flag below would then mean the host's program file
    ACTCTXW description = {};
    description.cbSize = sizeof(description);
    description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.hModule = module;
    description.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
    return ::CreateActCtxW(&description);
}

} // namespace

ActivationContextScope::ActivationContextScope() : context_(CreatePluginContext()) {
    if (context_)
        active_ = ::ActivateActCtx(context_.get(), &cookie_) != FALSE;
}

ActivationContextScope::~ActivationContextScope() {
    if (active_)
        ::DeactivateActCtx(0, cookie_);
}

} // namespace orv
