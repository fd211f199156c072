#include "tests/hosts/host_in_process.h"

#include "resources/controls.h"
#include "standin/host/host.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/support/box_languages.h"
#include "tests/support/files.h"
#include "tests/support/program_folder.h"
#include "tests/support/wait_until.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

const wchar_t kMenuTitle[] = L"Orv Rendering";
const char kParser[] = "MaxRenderGlobalsParser.mse";

const char kScene[] = R"({
    "cameras": ["Camera 01", {"name": "Camera 客厅", "width": 4096, "height": 2048}, "Door"],
    "renderer": {"name": "V_Ray_Adv_4_10_03"},
    "output": {"width": 1920, "height": 1080, "format": "png"},
    "frames": {"start": 12, "end": 12},
    "external_files": [{"path": "D:\\maps\\oak.jpg", "missing": true},
                       {"path": "D:\\maps\\wall.png", "missing": true}]})";

Json::Value Parsed(const std::string& json) {
    Json::Value value;
    Json::Reader reader;
    if (!reader.parse(json, value))
        throw std::runtime_error("the test's scene is no JSON");
    return value;
}

// The pull-down menu of that title, null when the host has none.
HMENU PullDown(HWND host, const wchar_t* wanted) {
    HMENU bar = ::GetMenu(host);
    for (int position = 0; position < ::GetMenuItemCount(bar); ++position) {
        wchar_t title[64] = {};
        ::GetMenuStringW(bar, static_cast<UINT>(position), title, 64, MF_BYPOSITION);
        if (std::wstring(title) == wanted)
            return ::GetSubMenu(bar, position);
    }
    return nullptr;
}

HMENU ProductMenu(HWND host) {
    return PullDown(host, kMenuTitle);
}

} // namespace

HostInProcess::HostInProcess() : scene(Parsed(kScene)) {
    product.writeSettings("port=12345\r\nlowerversion=1.3.7\r\n");
    product.installScripts();
}

HostInProcess::~HostInProcess() {
    if (!thread_.joinable())
        return;
    WaitUntil([this] {
        HWND dialog = FindDialogWith(IDC_CAMERAS);
        if (dialog != nullptr)
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return events("action_ended").size() == chosen_;
    });
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
    EXPECT_THAT(boxLanguages_, ::testing::Each(boxLanguage_));
}

void HostInProcess::setParser(const std::string& does, const std::string& text) {
    Json::Value& script = scene["scripts"][kParser];
    script["does"] = does;
    script["text"] = text;
    script["message"] = text;
}

void HostInProcess::start(LANGID language) {
    if (!sceneName.empty()) {
        WriteFileBytes(scenePath(), sceneBytes);
        WriteFileBytes(scenePath() + L".json", Json::FastWriter().write(scene));
    }
    thread_ = std::thread([this, language] { run(language); });
    if (!WaitUntil([this] { return !events("started").empty(); }))
        throw std::runtime_error("the host did not start");
}

void HostInProcess::run(LANGID language) {
    standin::HostOptions options;
    options.pluginFolder = ProgramFolder();
    options.scenePath = sceneName.empty() ? std::wstring() : scenePath();
    options.language =
        language == kEnglishLanguage ? standin::Language::English : standin::Language::Chinese;
    // The plug-in selects the language when it is loaded, and stays loaded from its first
    // submission on. Each test has a new main thread, for which the host's choice is made here.
    const LanguageScope scope(language);
    boxLanguage_ = language == kEnglishLanguage ? kEnglishLanguage : WORD{1};
    standin::Host host(options, [this](const Json::Value& event) {
        const std::lock_guard<std::mutex> lock(mutex_);
        events_.push_back(event);
    });
    if (!host.start())
        return;
    window_ = host.window();
    {
        const BoxLanguages languages(::GetModuleHandleW(L"OrvRendering.gup"));
        host.run();
        boxLanguages_ = languages.asked();
    }
    host.stop();
}

void HostInProcess::chooseSubmit() const {
    if (!WaitUntil([this] { return window_ != nullptr && ProductMenu(window_) != nullptr; }))
        throw std::runtime_error("the host has no menu of the product");
    ++chosen_;
    ::PostMessageW(window_, WM_COMMAND, ::GetMenuItemID(ProductMenu(window_), 0), 0);
}

HWND HostInProcess::openDialog() const {
    chooseSubmit();
    HWND found = nullptr;
    WaitUntil([this, &found] {
        found = FindDialogWith(IDC_CAMERAS);
        return found != nullptr || events("action_ended").size() == chosen_;
    });
    return found;
}

void HostInProcess::save() const {
    constexpr int kSave = 2; // behind Open and a line
    ::PostMessageW(window_, WM_COMMAND, ::GetMenuItemID(PullDown(window_, L"&File"), kSave), 0);
}

bool HostInProcess::waitForEnd() const {
    return WaitUntil([this] { return events("action_ended").size() == chosen_; });
}

std::vector<Json::Value> HostInProcess::events(const std::string& name) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    std::vector<Json::Value> found;
    for (const Json::Value& event : events_) {
        if (event["event"].asString() == name)
            found.push_back(event);
    }
    return found;
}

} // namespace test
} // namespace orv
