// The host application's interface: forwards to the callbacks of the stand-in host program.
#include "core/core_state.h"
#include "max.h"
#include "standin/sdk/include/standin/host_services.h"

namespace {

standin_host_callbacks host;
bool hostPresent = false;
DWORD hostThread = 0;
int wrongThreadCalls = 0;
void* menuManager = nullptr;

// The host's functions belong to its main thread; a call from another one fails and is counted.
bool OnHostThread() {
    if (hostPresent && GetCurrentThreadId() == hostThread)
        return true;
    ++wrongThreadCalls;
    return false;
}

class HostInterface : public Interface {
public:
    HWND GetMAXHWnd() const override {
        return host.main_window ? host.main_window(host.context) : nullptr;
    }
    void RegisterDlgWnd(HWND hDlg) override {
        if (host.register_dialog)
            host.register_dialog(host.context, hDlg);
    }
    int UnRegisterDlgWnd(HWND hDlg) override {
        if (host.unregister_dialog)
            host.unregister_dialog(host.context, hDlg);
        return host.unregister_dialog != nullptr;
    }
    IActionManager* GetActionManager() override { return ActionManager(); }
    IMenuManager* GetMenuManager() override { return static_cast<IMenuManager*>(menuManager); }
    const MCHAR* GetDir(int which) override {
        return host.folder ? host.folder(host.context, which) : L"";
    }
    MSTR& GetCurFileName() override {
        name_ = OnHostThread() && host.scene_file_name ? host.scene_file_name(host.context) : L"";
        return name_;
    }
    MSTR& GetCurFilePath() override {
        path_ = OnHostThread() && host.scene_file_path ? host.scene_file_path(host.context) : L"";
        return path_;
    }
    BOOL FileSave() override {
        return OnHostThread() && host.save_scene ? host.save_scene(host.context) : FALSE;
    }
    int SaveToFile(const MCHAR* fname, BOOL clearNeedSaveFlag, BOOL useNewFile) override {
        return OnHostThread() && host.save_scene_to
                   ? host.save_scene_to(host.context, fname ? fname : L"", clearNeedSaveFlag,
                                        useNewFile)
                   : 0;
    }

private:
    MSTR name_;
    MSTR path_;
};

HostInterface theInterface;

} // namespace

Interface* GetCOREInterface() {
    return hostPresent ? &theInterface : nullptr;
}
FPInterface* GetCOREInterface(Interface_ID) {
    return nullptr;
}
DWORD Get3DSMAXVersion() {
    return VERSION_3DSMAX;
}

HMODULE ModuleOf(const void* address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(address), &module);
    return module;
}

void standin_set_host(const standin_host_callbacks* callbacks) {
    hostPresent = callbacks != nullptr;
    host = callbacks ? *callbacks : standin_host_callbacks();
    hostThread = GetCurrentThreadId();
    wrongThreadCalls = 0;
    RegisterCustomControls();
}

int standin_wrong_thread_count(void) {
    return wrongThreadCalls;
}
void standin_set_menu_manager(void* manager) {
    menuManager = manager;
}

void standin_menu_bar_changed(void) {
    if (hostPresent && host.menu_bar_changed)
        host.menu_bar_changed(host.context);
}

int standin_run_script(const wchar_t* text, int quiet_errors, int log_quiet_errors,
                       standin_value* result) {
    return OnHostThread() && host.run_script
               ? host.run_script(host.context, text, quiet_errors, log_quiet_errors, result)
               : 0;
}

void standin_release_module(HMODULE module) {
    ReleaseNotifications(module);
    ReleaseActions(module);
}

void standin_core_reset(void) {
    standin_release_module(nullptr);
}
