// The stand-in host: one window, one scene, its scripts, menus and plug-ins. There can be one at a
// time in a process, because the host's libraries know one host.
#pragma once

#include "base/noncopyable.h"
#include "standin/host/events.h"
#include "standin/host/main_window.h"
#include "standin/host/menu_bar.h"
#include "standin/host/options.h"
#include "standin/host/scene.h"
#include "standin/host/script_runner.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

struct standin_plugin;

namespace standin {

class HostServices;

class Host : private orv::rud_Noncopyable {
public:
    // Asks the user for a file to open or to save to; an empty answer means that the user changed
    // their mind.
    using AskForFile = std::function<std::wstring(HWND owner, bool toSave)>;

    explicit Host(HostOptions options, EventSink sink = EventSink());
    ~Host(); // stops

    // Everything up to the message loop: window, menus, scene, plug-ins, the start-up notification.
    // A plug-in or scene that cannot be loaded is reported by an event and does not stop the host.
    // False only when there can be no window. The calling thread becomes the host's main thread.
    bool start();

    // Runs the message loop until the user leaves or the window is closed.
    void run();

    // Dispatches the messages that wait, without waiting for more: for tests that have no loop.
    void pump();

    // Stops and unloads the plug-ins, saves the menu file and destroys the window. Twice does
    // nothing.
    void stop();

    HWND window() const { return window_.handle(); }
    Scene& scene() { return scene_; }
    int pluginCount() const { return static_cast<int>(plugins_.size()); }

    bool openScene(const std::wstring& path);
    bool saveScene(); // asks for a file when the scene has none
    bool saveSceneTo(const std::wstring& path, bool clearModified, bool makeCurrent);
    ScriptOutcome runScript(const std::wstring& text);
    bool saveMenus(const std::wstring& path) const;

    // Shows the scene's name and content as they are now.
    void refresh();

    // Replaces what runs the scripts, and what asks for files (at first the system's dialogs).
    void setScriptRunner(std::unique_ptr<ScriptRunner> runner);
    void setAskForFile(AskForFile ask) { askForFile_ = std::move(ask); }

private:
    friend class HostServices;

    std::unique_ptr<ScriptRunner> makeRunner();
    void loadMenus();
    void loadPlugins();
    void unloadPlugins();
    void rebuildMenuBar();
    void reportMenuBar() const;
    void menuCommand(int id);
    void hostCommand(int command);
    void dispatch(MSG& message);
    void listener(const std::wstring& text) const;

    HostOptions options_;
    EventSink sink_;
    AskForFile askForFile_;
    Scene scene_;
    std::unique_ptr<ScriptRunner> runner_;
    std::unique_ptr<HostServices> services_;
    MainWindow window_;
    std::vector<MenuCommand> menuCommands_;
    std::vector<standin_plugin*> plugins_;
    std::vector<HWND> dialogs_; // modeless ones, which the message loop serves
    bool started_ = false;
    bool shown_ = false; // from the end of start() on, changes of the menu bar are reported
    bool leaving_ = false;
};

} // namespace standin
