#include "tests/system/races/raced_host.h"

#include "resources/controls.h"
#include "tests/hosts/host_in_process.h"
#include "tests/hosts/host_process.h"
#include "tests/support/files.h"
#include "tests/support/wait_until.h"
#include "tests/system/flow/flow.h"
#include "tests/system/races/screen.h"

#include <json/json.h>

namespace orv {
namespace test {
namespace {

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
    HostInProcess host_;
};

class HostOfItsOwn : public RacedHost {
public:
    void start(const std::string& settings, std::size_t sceneBytes, int saveMilliseconds) override {
        product_.writeSettings(settings);
        product_.installScripts();
        InstallArchiver();
        const std::wstring scene = scenes_.file(kSceneName);
        WriteFileBytes(scene, NoisyBytes(sceneBytes));
        WriteFileBytes(scene + L".json", Json::FastWriter().write(Scene(saveMilliseconds)));
        host_ = std::make_unique<HostProcess>(scene, scenes_.path() + L"\\..\\host.log");
        window_ = host_->mainWindow();
    }

    HWND openDialog() override {
        host_->chooseSubmit();
        HWND dialog = nullptr;
        WaitUntil([&] { return (dialog = FindDialogOf(process(), IDC_CAMERAS)) != nullptr; });
        return dialog;
    }
    DWORD process() const override { return host_->id(); }
    HWND window() const override { return window_; }
    std::wstring sceneFolder() const override { return scenes_.path(); }
    std::string log(const std::wstring& name) const override {
        return product_.log(name, L"1.3.7");
    }
    bool hasEnded() const override { return !host_->runs(); }

private:
    const TestProductFolder product_;
    const TemporaryFolder scenes_{L"\u573A\u666F folder"};
    std::unique_ptr<HostProcess> host_;
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
    return std::make_unique<HostOfItsOwn>();
}

} // namespace test
} // namespace orv
