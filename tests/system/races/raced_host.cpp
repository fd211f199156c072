#include "tests/system/races/raced_host.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "resources/controls.h"
#include "standin/host/menu_bar.h"
#include "tests/dialogs/plugin_host.h"
#include "tests/support/files.h"
#include "tests/support/wait_until.h"
#include "tests/system/flow/flow.h"
#include "tests/system/races/screen.h"

#include <json/json.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

// The host's own menu comes first: Open, Save, Save As, Exit.
constexpr int kSubmitEntry = standin::kFirstMenuId + 4;
constexpr wchar_t kSceneName[] = L"room.max";

Json::Value Scene(int saveMilliseconds) {
    Json::Value scene;
    for (const std::string& name : RacedCameras())
        scene["cameras"].append(name);
    scene["renderer"]["name"] = "V_Ray_Adv_4_10_03";
    scene["output"]["width"] = 1920;
    scene["output"]["height"] = 1080;
    scene["output"]["format"] = "png";
    scene["save_ms"] = saveMilliseconds;
    return scene;
}

class HostInThisProcess : public RacedHost {
public:
    void start(const std::string& settings, std::size_t sceneBytes, int saveMilliseconds) override {
        host_.sceneName = kSceneName;
        host_.sceneBytes = NoisyBytes(sceneBytes);
        host_.scene = Scene(saveMilliseconds);
        host_.product.writeSettings(settings);
        InstallArchiver();
        host_.start();
    }
    HWND openDialog() override { return host_.openDialog(); }
    DWORD process() const override { return ::GetCurrentProcessId(); }
    HWND window() const override { return host_.window(); }
    std::wstring sceneFolder() const override { return host_.sceneFolder; }
    std::string log(const std::wstring& name) const override {
        return host_.product.log(name, L"1.3.7");
    }
    bool hasEnded() const override { return !host_.events("stopped").empty(); }

private:
    PluginHost host_;
};

std::wstring FolderOfThisProgram() {
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.substr(0, whole.rfind(L'\\'));
}

struct MainWindowOf {
    DWORD process;
    HWND found;
};

BOOL CALLBACK TakeWindowWithMenu(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<MainWindowOf*>(parameter);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != search.process || ::GetMenu(window) == nullptr || !::IsWindowVisible(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

class HostProcess : public RacedHost {
public:
    ~HostProcess() override {
        if (process_ && !hasEnded())
            ::TerminateProcess(process_.get(), 1);
        if (process_)
            ::WaitForSingleObject(process_.get(), 10000);
    }

    void start(const std::string& settings, std::size_t sceneBytes, int saveMilliseconds) override {
        product_.writeSettings(settings);
        product_.installScripts();
        InstallArchiver();
        const std::wstring scene = scenes_.file(kSceneName);
        WriteFileBytes(scene, NoisyBytes(sceneBytes));
        WriteFileBytes(scene + L".json", Json::FastWriter().write(Scene(saveMilliseconds)));
        const std::wstring here = FolderOfThisProgram();
        std::wstring command = L"\"" + here + L"\\standin-host.exe\" --plugin-dir \"" + here +
                               L"\" --scene \"" + scene + L"\" --log \"" + logFile() + L"\"";
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES; // none: its events are in the log
        PROCESS_INFORMATION started = {};
        const auto begin = [&] { // a busy Wine refuses a new process now and then
            return ::CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr,
                                    nullptr, &startup, &started) != FALSE;
        };
        if (!WaitUntil(begin))
            throw std::runtime_error("the stand-in host cannot be started");
        process_.reset(started.hProcess);
        const ThreadHandle thread(started.hThread);
        id_ = started.dwProcessId;
        if (!WaitUntil([this] { return isStarted() || hasEnded(); }) || hasEnded())
            throw std::runtime_error("the stand-in host did not start");
        MainWindowOf search = {id_, nullptr};
        ::EnumWindows(&TakeWindowWithMenu, reinterpret_cast<LPARAM>(&search));
        window_ = search.found;
    }

    HWND openDialog() override {
        ::PostMessageW(window_, WM_COMMAND, kSubmitEntry, 0);
        HWND dialog = nullptr;
        WaitUntil([&] { return (dialog = FindDialogOf(id_, IDC_CAMERAS)) != nullptr; });
        return dialog;
    }
    DWORD process() const override { return id_; }
    HWND window() const override { return window_; }
    std::wstring sceneFolder() const override { return scenes_.path(); }
    std::string log(const std::wstring& name) const override {
        return product_.log(name, L"1.3.7");
    }
    bool hasEnded() const override {
        return ::WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
    }

private:
    std::wstring logFile() const { return scenes_.path() + L"\\..\\host.log"; }
    bool isStarted() const {
        return PathExists(logFile()) &&
               ReadFileBytes(logFile()).find("\"menu_bar\"") != std::string::npos;
    }

    const TestProductFolder product_;
    const TemporaryFolder scenes_{L"\u573A\u666F folder"};
    ProcessHandle process_;
    DWORD id_ = 0;
    HWND window_ = nullptr;
};

} // namespace

const std::vector<std::string>& RacedCameras() {
    static const std::vector<std::string> cameras = {"Camera 01", "Camera \xE5\xAE\xA2\xE5\x8E\x85",
                                                     "Door"};
    return cameras;
}

std::unique_ptr<RacedHost> MakeHostInThisProcess() {
    return std::make_unique<HostInThisProcess>();
}

std::unique_ptr<RacedHost> MakeHostProcess() {
    return std::make_unique<HostProcess>();
}

} // namespace test
} // namespace orv
