#include "standin/host/host.h"

#include "standin/host/file_dialog.h"
#include "standin/host/host_folders.h"
#include "standin/host/host_services.h"
#include "standin/host/maxscript_runner.h"
#include "standin/host/text.h"
#include "standin/sdk/include/standin/core.h"
#include "standin/sdk/include/standin/gup.h"
#include "standin/sdk/include/standin/maxutil.h"
#include "standin/sdk/include/standin/menus.h"

#include <algorithm>
#include <cstdio>

namespace standin {
namespace {

// Codes of the host's notifications.
constexpr int kFilePreOpen = 0x09;
constexpr int kFilePostOpen = 0x0A;
constexpr int kFilePreSave = 0x0D;
constexpr int kFilePostSave = 0x0E;
constexpr int kSystemShutdown = 0x49;
constexpr int kSystemStartup = 0x50;
constexpr int kMenusPostLoad = 0xF5;

constexpr unsigned short kEnglish = 0x0409;
constexpr unsigned short kChinese = 0x0804;

constexpr wchar_t kTitle[] = L"Stand-in host";
constexpr wchar_t kUntitled[] = L"Untitled";

std::vector<std::wstring> PluginFiles(const std::wstring& folder) {
    std::vector<std::wstring> files;
    if (folder.empty())
        return files;
    WIN32_FIND_DATAW entry = {};
    const orv::FindHandle search(FindFirstFileW((folder + L"\\*.gup").c_str(), &entry));
    if (!search)
        return files;
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            files.push_back(folder + L"\\" + entry.cFileName);
    } while (FindNextFileW(search.get(), &entry) != FALSE);
    std::sort(files.begin(), files.end());
    return files;
}

std::wstring PluginText(const standin_plugin* plugin, const wchar_t* which) {
    const wchar_t* const text = standin_plugin_text(plugin, which);
    return text != nullptr ? text : L"";
}

HostOptions WithFolders(HostOptions options) {
    if (options.hostFolder.empty())
        options.hostFolder = ProgramFolder();
    return options;
}

} // namespace

Host::Host(HostOptions options, EventSink sink)
    : options_(WithFolders(std::move(options))), sink_(std::move(sink)),
      askForFile_(&AskForSceneFile), runner_(makeRunner()),
      window_({[this](int id) { menuCommand(id); }, [this] { leaving_ = true; }}) {}

std::unique_ptr<ScriptRunner> Host::makeRunner() {
    auto runner = std::make_unique<MaxscriptRunner>(
        scene_, [this](const std::wstring& name) { return HostFolder(options_.hostFolder, name); },
        [this](const std::wstring& text) { listener(text); });
    runner->setQuietMode(options_.quiet);
    return runner;
}

Host::~Host() {
    stop();
}

bool Host::start() {
    if (started_ || !window_.create())
        return false;
    started_ = true;
    leaving_ = false;
    standin_set_language(options_.language == Language::Chinese ? kChinese : kEnglish);
    services_ = std::make_unique<HostServices>(*this);
    standin_menus_reset();
    if (!options_.loadMenusLate)
        loadMenus();
    EnsureFileMenu();
    rebuildMenuBar();
    if (!options_.scenePath.empty())
        openScene(options_.scenePath);
    refresh();
    loadPlugins();
    if (options_.loadMenusLate) {
        loadMenus();
        EnsureFileMenu();
        rebuildMenuBar();
    }
    window_.show();
    standin_broadcast(kSystemStartup);
    leaving_ = options_.exitAfterStart;
    Event("started")
        .with("process", static_cast<int>(GetCurrentProcessId()))
        .with("plugins", pluginCount())
        .with("scene", scene_.path())
        .sendTo(sink_);
    shown_ = true;
    reportMenuBar();
    return true;
}

void Host::run() {
    MSG message = {};
    while (!leaving_ && window() != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0)
        dispatch(message);
}

void Host::pump() {
    MSG message = {};
    while (!leaving_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        dispatch(message);
}

void Host::dispatch(MSG& message) {
    for (HWND dialog : dialogs_) {
        if (IsDialogMessageW(dialog, &message) != FALSE)
            return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void Host::stop() {
    if (!started_)
        return;
    started_ = false;
    shown_ = false;
    standin_broadcast(kSystemShutdown);
    unloadPlugins();
    if (!options_.menuFile.empty() && !saveMenus(options_.menuFile))
        Event("menus_not_saved").with("path", options_.menuFile).sendTo(sink_);
    dialogs_.clear();
    services_.reset();
    standin_menus_reset();
    window_.destroy();
    menuCommands_.clear();
    Event("stopped").sendTo(sink_);
}

void Host::loadMenus() {
    if (options_.menuFile.empty())
        return;
    const bool loaded = standin_menus_load(options_.menuFile.c_str()) != 0;
    Event("menus_loaded").with("path", options_.menuFile).with("ok", loaded).sendTo(sink_);
    standin_broadcast(kMenusPostLoad);
}

bool Host::saveMenus(const std::wstring& path) const {
    return standin_menus_save(path.c_str()) != 0;
}

void Host::loadPlugins() {
    for (const std::wstring& file : PluginFiles(options_.pluginFolder)) {
        wchar_t reason[512] = {};
        standin_plugin* const plugin = standin_plugin_load(file.c_str(), reason, 512);
        if (plugin == nullptr) {
            Event("plugin_refused")
                .with("file", file)
                .with("reason", std::wstring(reason))
                .sendTo(sink_);
            continue;
        }
        plugins_.push_back(plugin);
        Event("plugin_loaded")
            .with("file", file)
            .with("class", PluginText(plugin, L"class"))
            .with("category", PluginText(plugin, L"category"))
            .with("description", PluginText(plugin, L"description"))
            .sendTo(sink_);
    }
}

void Host::unloadPlugins() {
    // The tables that the plug-ins gave to the host are deleted while their code is still there.
    for (standin_plugin* const plugin : plugins_)
        standin_plugin_stop(plugin);
    standin_core_reset();
    for (standin_plugin* const plugin : plugins_)
        standin_plugin_unload(plugin);
    plugins_.clear();
}

void Host::rebuildMenuBar() {
    window_.setMenuBar(BuildMenuBar(menuCommands_));
    if (shown_)
        reportMenuBar();
}

void Host::reportMenuBar() const {
    Event("menu_bar").with("menus", DescribeMenuBar(window())).sendTo(sink_);
}

void Host::menuCommand(int id) {
    const int index = id - kFirstMenuId;
    if (index < 0 || static_cast<std::size_t>(index) >= menuCommands_.size())
        return;
    // A copy: what the command does can rebuild the menu bar.
    const MenuCommand command = menuCommands_[static_cast<std::size_t>(index)];
    if (!command.isAction) {
        hostCommand(command.command);
        return;
    }
    Event("action_started").with("command", command.command).sendTo(sink_);
    const bool handled = standin_run_action(command.table, command.command) != 0;
    Event("action_ended").with("command", command.command).with("handled", handled).sendTo(sink_);
}

void Host::hostCommand(int command) {
    switch (command) {
    case kCommandOpen: {
        const std::wstring path = askForFile_(window(), false);
        if (!path.empty())
            openScene(path);
        break;
    }
    case kCommandSave:
        saveScene();
        break;
    case kCommandSaveAs: {
        const std::wstring path = askForFile_(window(), true);
        if (!path.empty())
            saveSceneTo(path, true, true);
        break;
    }
    case kCommandExit:
        leaving_ = true;
        break;
    default:
        break;
    }
}

bool Host::openScene(const std::wstring& path) {
    standin_broadcast(kFilePreOpen);
    std::string error;
    const bool opened = scene_.open(path, error);
    Event event("scene_opened");
    event.with("path", path).with("ok", opened);
    if (!opened)
        event.with("error", error.c_str());
    event.sendTo(sink_);
    refresh();
    if (opened)
        standin_broadcast(kFilePostOpen);
    return opened;
}

bool Host::saveScene() {
    if (scene_.hasFile())
        return saveSceneTo(scene_.path(), true, true);
    const std::wstring path = askForFile_(window(), true);
    return !path.empty() && saveSceneTo(path, true, true);
}

bool Host::saveSceneTo(const std::wstring& path, bool clearModified, bool makeCurrent) {
    standin_broadcast(kFilePreSave);
    const bool saved = scene_.saveTo(path, clearModified, makeCurrent);
    if (saved)
        standin_broadcast(kFilePostSave);
    Event("scene_saved").with("path", path).with("ok", saved).sendTo(sink_);
    refresh();
    return saved;
}

ScriptOutcome Host::runScript(const std::wstring& text) {
    ScriptOutcome outcome = runner_->run(text);
    if (!outcome.ok)
        listener(L"-- " + outcome.error + L"\n");
    refresh();
    Event("script_run")
        .with("text", text)
        .with("ok", outcome.ok)
        .with("error", outcome.error)
        .sendTo(sink_);
    return outcome;
}

void Host::setScriptRunner(std::unique_ptr<ScriptRunner> runner) {
    runner_ = std::move(runner);
}

void Host::listener(const std::wstring& text) const {
    std::fprintf(stderr, "Listener: %s", ToUtf8(text).c_str());
}

void Host::refresh() {
    const std::wstring name = scene_.hasFile() ? scene_.fileName() : kUntitled;
    window_.setTitle(name + (scene_.modified() ? L" *" : L"") + L" - " + kTitle);
    SceneView view;
    view.title = name;
    view.path = scene_.path();
    view.objects = scene_.description().objects;
    for (const SceneCamera& camera : scene_.description().cameras)
        view.cameras.push_back(camera.name);
    window_.setView(view);
}

} // namespace standin
