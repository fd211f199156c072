// The main dialog, opened as the plug-in's menu action does, over a host whose answers the test
// gives.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace orv {
namespace test {

// A host with one scene open, the settings of a client, and a parser that writes `report`.
// Everything may be changed until the dialog is opened.
class HostWithScene : private rud_Noncopyable {
public:
    HostWithScene();

    // The same as `report`, given as JSON text, for the next analysis.
    void setReport(const std::string& json) { report_ = json; }
    // What the host answers to the analysis script; 1 is success.
    void setScriptResult(int result) { scriptResult_ = result; }
    void openScene(const std::wstring& fileName) { host.sceneFilePath = scenes.file(fileName); }

    const TestProductFolder product;
    const TemporaryFolder scenes{L"\u573A\u666F folder"};
    FakeDoor host;

private:
    int runParser(const std::wstring& script) const;

    std::string report_;
    std::atomic<int> scriptResult_{1};
};

// A report of three cameras, "Camera \u5BA2\u5385" among them, with two missing files.
std::string SampleReport();

// Opens the dialog on a new thread that has the language `language` and a main window, as the host
// has.
class OpenDialog : private rud_Noncopyable {
public:
    explicit OpenDialog(LANGID language = kEnglishLanguage);
    // Cancels the dialog when it is still open.
    ~OpenDialog();

    // The dialog once it is visible, null when it did not come.
    HWND window() const;
    // Whether the menu action has returned by the deadline.
    bool waitForEnd() const;
    bool ended() const { return ended_; }

private:
    std::atomic<bool> ended_{false};
    std::thread host_;
};

} // namespace test
} // namespace orv
