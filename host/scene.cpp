// The host's main window, its open scene and saving it.
#include "max.h"
// the host's own header comes first
#include "host/host_api.h"
#include "host/main_thread.h"

namespace {

int CopyText(const wchar_t* text, wchar_t* buffer, int capacity) {
    if (buffer && capacity > 0)
        lstrcpynW(buffer, text, capacity);
    return lstrlenW(text);
}

// Runs `use(host)` on the host's thread where there is a host; else the answer stays `nothing`.
template<class Result, class Use>
Result AskHost(Result nothing, Use use) {
    Result result = nothing;
    OnHostThread([&] {
        if (Interface* host = GetCOREInterface())
            result = use(*host);
    });
    return result;
}

} // namespace

HWND orv_host_main_window(void) {
    return AskHost(static_cast<HWND>(nullptr), [](Interface& host) { return host.GetMAXHWnd(); });
}

int orv_host_scene_file_name(wchar_t* buffer, int capacity) {
    return AskHost(0, [&](Interface& host) {
        return CopyText(host.GetCurFileName().data(), buffer, capacity);
    });
}

int orv_host_scene_file_path(wchar_t* buffer, int capacity) {
    return AskHost(0, [&](Interface& host) {
        return CopyText(host.GetCurFilePath().data(), buffer, capacity);
    });
}

int orv_host_save_scene(void) {
    return AskHost(0, [](Interface& host) { return static_cast<int>(host.FileSave()); });
}

int orv_host_save_scene_to(const wchar_t* path) {
    return AskHost(0, [=](Interface& host) { return host.SaveToFile(path, TRUE, TRUE); });
}
