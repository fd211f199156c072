// The host's word that it is about to exit.
#include "max.h"
// the host's own header comes first
#include "notify.h"

#include "host/host_api.h"
#include "host/main_thread.h"

namespace {

// All on the host's thread.
void (*whenExiting)(void) = nullptr;
bool registered = false;
bool delivering = false;

void OnExit(void*, NotifyInfo*) {
    if (!whenExiting)
        return;
    delivering = true;
    whenExiting();
    delivering = false;
}

} // namespace

// The host walks its list of procedures while it calls one: the list stays as it is meanwhile.
void orv_host_watch_exit(void (*exiting)(void)) {
    OnHostThread([=] {
        whenExiting = exiting;
        const bool wanted = exiting != nullptr;
        if (delivering || wanted == registered)
            return;
        if (wanted)
            registered = RegisterNotification(OnExit, nullptr, NOTIFY_SYSTEM_SHUTDOWN) != 0;
        else
            registered = UnRegisterNotification(OnExit, nullptr, NOTIFY_SYSTEM_SHUTDOWN) == 0;
    });
}
