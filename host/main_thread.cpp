// The hand-over is a message to a window of our own that nobody sees: a sent message is served by
// every message loop of the host's thread, that of a modal dialog too, and its sender waits for the
// answer.
#include "host/main_thread.h"

#include "host/host_api.h"

namespace {

const wchar_t kWindowClass[] = L"OrvHostDoor";
const UINT kRunTask = WM_APP;

struct Task {
    void (*work)(void* context);
    void* context;
    bool done;
};

DWORD hostThread = 0; // known from the first opening on
HWND volatile doorWindow = nullptr;

HINSTANCE OwnModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       kWindowClass, &module);
    return module;
}

// A task that arrives after the door was closed stays undone.
LRESULT CALLBACK DoorProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kRunTask)
        return DefWindowProcW(window, message, wParam, lParam);
    Task* task = reinterpret_cast<Task*>(lParam);
    if (doorWindow == window) {
        task->work(task->context);
        task->done = true;
    }
    return 0;
}

HWND CreateDoorWindow() {
    WNDCLASSEXW door = {};
    door.cbSize = sizeof(door);
    door.lpfnWndProc = DoorProc;
    door.hInstance = OwnModule();
    door.lpszClassName = kWindowClass;
    RegisterClassExW(&door);
    return CreateWindowExW(0, kWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                           door.hInstance, nullptr);
}

} // namespace

void orv_host_open(void) {
    if (doorWindow)
        return;
    hostThread = GetCurrentThreadId();
    doorWindow = CreateDoorWindow();
}

void orv_host_close(void) {
    HWND window = doorWindow;
    if (!window || GetCurrentThreadId() != hostThread)
        return;
    doorWindow = nullptr;
    // Threads that are waiting already get their refusal before the window goes.
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    DestroyWindow(window);
    UnregisterClassW(kWindowClass, OwnModule()); // the library may be unloaded next
}

bool RunOnHostThread(void (*work)(void* context), void* context) {
    if (GetCurrentThreadId() == hostThread) {
        work(context);
        return true;
    }
    HWND window = doorWindow;
    Task task = {work, context, false};
    if (window)
        SendMessageW(window, kRunTask, 0, reinterpret_cast<LPARAM>(&task));
    return task.done;
}
