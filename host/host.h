// The door to the host for the product's C++ code.
#pragma once

#include "base/noncopyable.h"
#include "host/host_api.h"

#include <string>

namespace orv {
namespace host {

inline HWND MainWindow() {
    return orv_host_main_window();
}

// Name and full path of the open scene, empty for a scene that was never saved.
std::wstring SceneFileName();
std::wstring SceneFilePath();

inline bool SaveScene() {
    return orv_host_save_scene() != 0;
}
inline bool SaveSceneTo(const std::wstring& path) {
    return orv_host_save_scene_to(path.c_str()) != 0;
}

// A value that a script can return, made and freed by the host's own code.
class ScriptValue : private rud_Noncopyable {
public:
    ScriptValue() : value_(orv_host_value_create()) {}
    ~ScriptValue() { orv_host_value_destroy(value_); }
    FPValue& get() { return *value_; }

private:
    FPValue* value_;
};

// Runs a MAXScript text; what the host returned, 1 when it ran without an error.
inline int RunScript(const std::wstring& text, FPValue& result) {
    return orv_host_run_script(text.c_str(), &result);
}

inline bool IsUnattended() {
    return orv_host_is_unattended() != 0;
}

// Has `exiting` called on the host's thread when the host is about to exit; null ends it.
inline void WatchExit(void (*exiting)()) {
    orv_host_watch_exit(exiting);
}

// Tooltips of one dialog; they are removed with the object.
class ToolTips : private rud_Noncopyable {
public:
    ToolTips() : tips_(orv_host_tooltips_create()) {}
    ~ToolTips() { orv_host_tooltips_destroy(tips_); }
    void set(HWND control, const std::wstring& text) {
        orv_host_tooltips_set(tips_, control, text.c_str());
    }

private:
    void* tips_;
};

} // namespace host
} // namespace orv
