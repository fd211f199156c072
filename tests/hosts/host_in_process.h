// The stand-in host, with its window and menus, in the process of the test: the plug-in as it
// ships, a scene and the client's settings. For tests that are the user of the dialogs.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <json/json.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orv {
namespace test {

// The host runs on a new thread, which is its main thread; the test is the person before the
// screen. Everything about the scene and the settings may be changed until start().
class HostInProcess : private rud_Noncopyable {
public:
    // A client that accepts this plug-in; a scene "Living room.max" of three cameras, "Camera
    // \u5BA2\u5385" among them, in PNG, with two missing textures.
    HostInProcess();
    // Cancels a dialog that is open and closes the host. Expects that each message box of the
    // plug-in was asked for in the language that goes with the host's.
    ~HostInProcess();

    const TestProductFolder product;
    const TemporaryFolder scenes{L"\u573A\u666F folder"};
    std::wstring sceneFolder = scenes.path();    // where start() writes the scene
    std::wstring sceneName = L"Living room.max"; // empty: a scene that was never saved
    std::string sceneBytes = "scene";            // of its file
    Json::Value scene; // its description, as the stand-in host's README has it

    std::wstring scenePath() const { return sceneFolder + L"\\" + sceneName; }

    // Lets the parser behave as the stand-in host's README says for one script.
    void setParser(const std::string& does, const std::string& text = std::string());

    void start(LANGID language = kEnglishLanguage);

    // Chooses the menu's first entry, once the host is started.
    void chooseSubmit() const;
    // The same, and the dialog once it is visible; null when it went without being shown.
    HWND openDialog() const;
    // Whether every command chosen so far has come to its end by the deadline.
    bool waitForEnd() const;

    // The host's main window, once it is started.
    HWND window() const { return window_; }
    // Chooses the host's own command to save the scene, without waiting.
    void save() const;

    // The host's events of that name so far.
    std::vector<Json::Value> events(const std::string& name) const;

private:
    void run(LANGID language);

    mutable std::mutex mutex_; // guards events_
    std::vector<Json::Value> events_;
    mutable std::atomic<std::size_t> chosen_{0};
    std::atomic<HWND> window_{nullptr};
    std::thread thread_;
    std::vector<WORD> boxLanguages_; // written by the thread, read after its end
    WORD boxLanguage_ = 0;
};

} // namespace test
} // namespace orv
