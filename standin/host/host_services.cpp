#include "standin/host/host_services.h"

#include "standin/host/host.h"
#include "standin/host/host_folders.h"
#include "standin/host/text.h"
#include "standin/sdk/include/standin/core.h"

#include <algorithm>
#include <exception>

namespace standin {
namespace {

// Folders by their number in the host's list of folders.
constexpr int kSceneFolder = 1;
constexpr int kTempFolder = 29;
constexpr int kStandardPluginFolder = -5;
constexpr int kPluginFolder = -6;

// Calls a service for one of the host's libraries, which know nothing of exceptions.
template<class Result, class Call>
Result Guarded(void* context, Result whenFailed, Call call) {
    try {
        return call(*static_cast<HostServices*>(context));
    } catch (const std::exception& failure) {
        OutputDebugStringA(failure.what());
        return whenFailed;
    }
}

void Fill(standin_value& value, const ScriptOutcome& outcome) {
    switch (outcome.type) {
    case ScriptOutcome::Type::Boolean:
        value.kind = STANDIN_VALUE_BOOLEAN;
        value.integer = outcome.boolean ? 1 : 0;
        break;
    case ScriptOutcome::Type::Integer:
        value.kind = STANDIN_VALUE_INTEGER;
        value.integer = outcome.integer;
        break;
    case ScriptOutcome::Type::Float:
        value.kind = STANDIN_VALUE_FLOAT;
        value.number = static_cast<double>(outcome.real);
        break;
    case ScriptOutcome::Type::Text:
        value.kind = STANDIN_VALUE_STRING;
        break;
    case ScriptOutcome::Type::Nothing:
        value.kind = STANDIN_VALUE_NONE;
        break;
    }
}

standin_host_callbacks CallbacksFor(HostServices* services) {
    standin_host_callbacks callbacks = {};
    callbacks.context = services;
    callbacks.main_window = [](void* context) {
        return Guarded(context, HWND(nullptr), [](HostServices& s) { return s.mainWindow(); });
    };
    callbacks.scene_file_name = [](void* context) {
        return Guarded(context, L"", [](HostServices& s) { return s.sceneFileName(); });
    };
    callbacks.scene_file_path = [](void* context) {
        return Guarded(context, L"", [](HostServices& s) { return s.sceneFilePath(); });
    };
    callbacks.folder = [](void* context, int which) {
        return Guarded(context, L"", [which](HostServices& s) { return s.folder(which); });
    };
    callbacks.save_scene = [](void* context) {
        return Guarded(context, 0, [](HostServices& s) { return s.saveScene(); });
    };
    callbacks.save_scene_to = [](void* context, const wchar_t* path, int clear, int useNew) {
        return Guarded(context, 0, [path, clear, useNew](HostServices& s) {
            return s.saveSceneTo(path, clear != 0, useNew != 0);
        });
    };
    callbacks.run_script = [](void* context, const wchar_t* text, int, int, standin_value* result) {
        return Guarded(context, 0,
                       [text, result](HostServices& s) { return s.runScript(text, *result); });
    };
    callbacks.register_dialog = [](void* context, HWND dialog) {
        Guarded(context, 0, [dialog](HostServices& s) { return s.registerDialog(dialog), 0; });
    };
    callbacks.unregister_dialog = [](void* context, HWND dialog) {
        Guarded(context, 0, [dialog](HostServices& s) { return s.unregisterDialog(dialog), 0; });
    };
    callbacks.menu_bar_changed = [](void* context) {
        Guarded(context, 0, [](HostServices& s) { return s.menuBarChanged(), 0; });
    };
    return callbacks;
}

} // namespace

HostServices::HostServices(Host& host) : host_(host) {
    const standin_host_callbacks callbacks = CallbacksFor(this);
    standin_set_host(&callbacks);
}

HostServices::~HostServices() {
    standin_set_host(nullptr);
}

HWND HostServices::mainWindow() const {
    return host_.window();
}

const wchar_t* HostServices::sceneFileName() {
    fileName_ = host_.scene_.fileName();
    return fileName_.c_str();
}

const wchar_t* HostServices::sceneFilePath() {
    const std::wstring& reported = host_.scene_.description().reportedPath;
    filePath_ = reported.empty() ? host_.scene_.path() : reported;
    return filePath_.c_str();
}

const wchar_t* HostServices::folder(int which) {
    switch (which) {
    case kSceneFolder:
        folder_ = FolderOf(host_.scene_.path());
        break;
    case kTempFolder:
        folder_ = TempFolder();
        break;
    case kStandardPluginFolder:
    case kPluginFolder:
        folder_ = host_.options_.pluginFolder;
        break;
    default:
        folder_ = ProgramFolder();
        break;
    }
    return folder_.c_str();
}

int HostServices::saveScene() {
    return host_.saveScene() ? 1 : 0;
}

int HostServices::saveSceneTo(const wchar_t* path, bool clearModified, bool makeCurrent) {
    return path != nullptr && host_.saveSceneTo(path, clearModified, makeCurrent) ? 1 : 0;
}

int HostServices::runScript(const wchar_t* text, standin_value& result) {
    const ScriptOutcome outcome = host_.runScript(text != nullptr ? text : L"");
    if (!outcome.ok)
        return 0;
    scriptText_ = outcome.text;
    Fill(result, outcome);
    result.text = scriptText_.c_str();
    return 1;
}

void HostServices::registerDialog(HWND dialog) {
    host_.dialogs_.push_back(dialog);
}

void HostServices::unregisterDialog(HWND dialog) {
    auto& dialogs = host_.dialogs_;
    dialogs.erase(std::remove(dialogs.begin(), dialogs.end(), dialog), dialogs.end());
}

void HostServices::menuBarChanged() {
    host_.rebuildMenuBar();
}

} // namespace standin
