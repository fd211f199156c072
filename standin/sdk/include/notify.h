// Events of the host that a plug-in can register for.
#pragma once

#include "CoreExport.h"
#include "MaxHeap.h"

#define NOTIFY_FILE_PRE_OPEN 0x09
#define NOTIFY_FILE_POST_OPEN 0x0A
#define NOTIFY_FILE_PRE_SAVE 0x0D
#define NOTIFY_FILE_POST_SAVE 0x0E
#define NOTIFY_SYSTEM_SHUTDOWN 0x49
#define NOTIFY_SYSTEM_STARTUP 0x50

struct NotifyInfo : public MaxHeapOperators {
    int intcode;
    void* callParam;
};

typedef void (*NOTIFYPROC)(void* param, NotifyInfo* info);

// Nonzero when done; to unregister, `param` has to be the same.
CoreExport int RegisterNotification(NOTIFYPROC proc, void* param, int code);
CoreExport int UnRegisterNotification(NOTIFYPROC proc, void* param, int code);
CoreExport int UnRegisterNotification(NOTIFYPROC proc, void* param);
CoreExport void BroadcastNotification(int code);
CoreExport void BroadcastNotification(int code, void* callParam);
