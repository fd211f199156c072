#include "tests/hosts/bare_host.h"

#include "standin/menus.h"

namespace orv {
namespace test {
namespace {

BareHost& Of(void* context) {
    return *static_cast<BareHost*>(context);
}

HWND MainWindow(void* context) {
    return Of(context).mainWindow;
}

const wchar_t* SceneFileName(void* context) {
    Of(context).record(L"scene file name()");
    return Of(context).sceneFileName.c_str();
}

const wchar_t* SceneFilePath(void* context) {
    Of(context).record(L"scene file path()");
    return Of(context).sceneFilePath.c_str();
}

const wchar_t* Folder(void* context, int which) {
    Of(context).record(L"folder(" + std::to_wstring(which) + L")");
    return Of(context).folder.c_str();
}

int SaveScene(void* context) {
    Of(context).record(L"save()");
    if (Of(context).duringSave)
        Of(context).duringSave();
    return Of(context).saved;
}

int SaveSceneTo(void* context, const wchar_t* path, int clearModified, int useNewFile) {
    Of(context).record(L"save to(" + std::wstring(path) + L", " + std::to_wstring(clearModified) +
                       L", " + std::to_wstring(useNewFile) + L")");
    return Of(context).saved;
}

int RunScript(void* context, const wchar_t* text, int quiet, int logQuiet, standin_value* result) {
    Of(context).record(L"script(" + std::wstring(text) + L", " + std::to_wstring(quiet) + L", " +
                       std::to_wstring(logQuiet) + L")");
    *result = Of(context).scriptResult;
    return Of(context).scriptAnswer;
}

void RegisterDialog(void* context, HWND) {
    Of(context).record(L"register dialog()");
}

void UnregisterDialog(void* context, HWND) {
    Of(context).record(L"unregister dialog()");
}

void MenuBarChanged(void* context) {
    Of(context).record(L"menu bar changed()");
}

} // namespace

BareHost::BareHost() {
    standin_core_reset();
    standin_menus_reset();
    const standin_host_callbacks callbacks = {
        this,        MainWindow, SceneFileName,  SceneFilePath,    Folder,        SaveScene,
        SaveSceneTo, RunScript,  RegisterDialog, UnregisterDialog, MenuBarChanged};
    standin_set_host(&callbacks);
}

BareHost::~BareHost() {
    standin_core_reset();
    standin_menus_reset();
    standin_set_host(nullptr);
}

void BareHost::record(const std::wstring& call) {
    calls.push_back(call);
    threads.push_back(::GetCurrentThreadId());
}

} // namespace test
} // namespace orv
