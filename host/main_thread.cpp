// Calls are handed over by a message to a hidden window: a sent message is served by
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

// Written by the host's thread, read by every thread: only through the functions below.
LONG volatile hostThread = 0; // known from the first opening on
void* volatile doorWindow = nullptr;
LONG volatile callers = 0; // other threads within RunOnHostThread

// Calls that the host's thread is carrying out, one within another. Of that thread alone.
LONG running = 0;

const DWORD kLookMilliseconds = 5; // between two looks at the callers
// The longest wait for them: a thread that was ended within a call never leaves.
const DWORD kLongestCloseMilliseconds = 2000;

// A comparison that never exchanges is an atomic reading.
HWND DoorWindow() {
    return static_cast<HWND>(InterlockedCompareExchangePointer(&doorWindow, nullptr, nullptr));
}

void SetDoorWindow(HWND window) {
    InterlockedExchangePointer(&doorWindow, window);
}

bool OnHostThread() {
    return GetCurrentThreadId() ==
           static_cast<DWORD>(InterlockedCompareExchange(&hostThread, 0, 0));
}

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
    if (DoorWindow() == window) {
        ++running;
        task->work(task->context);
        --running;
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
    if (DoorWindow())
        return;
    InterlockedExchange(&hostThread, static_cast<LONG>(GetCurrentThreadId()));
    SetDoorWindow(CreateDoorWindow());
}

void orv_host_close(void) {
    HWND window = DoorWindow();
    if (!window || !OnHostThread())
        return;
    SetDoorWindow(nullptr);
    // Threads that have seen the window get their refusal before it goes: a message to a window
    // that is destroyed between the look at it and the sending may wait for good. Those whose calls
    // are being carried out, one of which may have led here, get their answer afterwards.
    const DWORD begun = GetTickCount();
    while (InterlockedCompareExchange(&callers, 0, 0) > running &&
           GetTickCount() - begun < kLongestCloseMilliseconds) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kLookMilliseconds, QS_SENDMESSAGE);
    }
    DestroyWindow(window);
    UnregisterClassW(kWindowClass, OwnModule()); // the library may be unloaded next
}

bool RunOnHostThread(void (*work)(void* context), void* context) {
    if (OnHostThread()) {
        work(context);
        return true;
    }
    InterlockedIncrement(&callers); // before the look at the window
    HWND window = DoorWindow();
    Task task = {work, context, false};
    if (window)
        SendMessageW(window, kRunTask, 0, reinterpret_cast<LPARAM>(&task));
    InterlockedDecrement(&callers);
    return task.done;
}
