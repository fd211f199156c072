#include "core/core_state.h"
#include "notify.h"
#include "standin/sdk/include/standin/host_services.h"
#include "tab.h"

namespace {

struct Registration {
    NOTIFYPROC proc;
    void* param;
    int code;
};

Tab<Registration> registrations;

template<class Predicate>
int RemoveIf(Predicate matches) {
    int removed = 0;
    for (int i = registrations.Count() - 1; i >= 0; --i)
        if (matches(registrations[i])) {
            registrations.Delete(i, 1);
            ++removed;
        }
    return removed;
}

bool IsRegistered(const Registration& wanted) {
    for (int i = 0; i < registrations.Count(); ++i)
        if (registrations[i].proc == wanted.proc && registrations[i].param == wanted.param &&
            registrations[i].code == wanted.code)
            return true;
    return false;
}

} // namespace

int RegisterNotification(NOTIFYPROC proc, void* param, int code) {
    if (!proc)
        return 0;
    const Registration registration = {proc, param, code};
    return registrations.Append(1, &registration) >= 0 ? 1 : 0;
}

int UnRegisterNotification(NOTIFYPROC proc, void* param, int code) {
    return RemoveIf([=](const Registration& r) {
               return r.proc == proc && r.param == param && r.code == code;
           }) > 0;
}

int UnRegisterNotification(NOTIFYPROC proc, void* param) {
    return RemoveIf([=](const Registration& r) { return r.proc == proc && r.param == param; }) > 0;
}

void BroadcastNotification(int code) {
    BroadcastNotification(code, nullptr);
}

// A procedure may register and unregister: a copy of the list is walked, and each entry is called
// only while it is still registered.
void BroadcastNotification(int code, void* callParam) {
    Tab<Registration> current;
    for (int i = 0; i < registrations.Count(); ++i)
        current.Append(1, &registrations[i]);
    for (int i = 0; i < current.Count(); ++i) {
        if (current[i].code != code || !IsRegistered(current[i]))
            continue;
        NotifyInfo info;
        info.intcode = code;
        info.callParam = callParam;
        current[i].proc(current[i].param, &info);
    }
}

void standin_broadcast(int code) {
    BroadcastNotification(code);
}
int standin_notification_count(void) {
    return registrations.Count();
}

void ReleaseNotifications(HMODULE module) {
    RemoveIf([=](const Registration& r) {
        return !module || ModuleOf(reinterpret_cast<const void*>(r.proc)) == module;
    });
}
