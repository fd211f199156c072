#include "tests/dialogs/in_process/open_dialog.h"

#include "resources/controls.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/support/files.h"
#include "tests/support/wait_until.h"
#include "ui/entry.h"

namespace orv {
namespace test {
namespace {

// The path that stands between the first two quotes behind the parser's entry.
std::wstring ReportPathIn(const std::wstring& script) {
    const std::size_t open = script.find(L'"', script.find(L"gMax.analysis")) + 1;
    return script.substr(open, script.find(L'"', open) - open);
}

void RunHost(LANGID language) {
    const LanguageScope scope(language);
    const HWND mainWindow =
        ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 30, 1200,
                          740, nullptr, nullptr, nullptr, nullptr);
    orv_open_main_dialog(mainWindow);
    ::DestroyWindow(mainWindow);
}

} // namespace

std::string SampleReport() {
    return R"({
        "version": "2019", "name": "C:\\scenes\\Living room.max", "renderer_full_name": "V_Ray_Adv",
        "is_region": "false", "image_width": "1920", "image_height": "1080", "start_frame": "12",
        "image_format": "png", "gamma_out": "2.2", "errors": null, "same_file": [], "reference_file": [],
        "missing_file": [{"path": "D:\\maps\\oak.jpg"}, {"path": "D:\\maps\\wall.png"}],
        "cameras": [{"name": "Camera 01"}, {"name": "Camera 客厅", "camWidth": "4096", "camHeight": "2048"},
                    {"name": "Door"}]})";
}

HostWithScene::HostWithScene() : report_(SampleReport()) {
    product.writeSettings("port=12345\r\nlowerversion=1.3.7\r\n");
    openScene(L"Living room.max");
    host.onScript = [this](const std::wstring& script) { return runParser(script); };
}

int HostWithScene::runParser(const std::wstring& script) const {
    if (scriptResult_ == 1)
        WriteFileBytes(ReportPathIn(script), report_);
    return scriptResult_;
}

OpenDialog::OpenDialog(LANGID language)
    : host_([this, language] {
          RunHost(language);
          ended_ = true;
      }) {}

OpenDialog::~OpenDialog() {
    WaitUntil([this] {
        const HWND dialog = FindDialogWith(IDC_CAMERAS);
        if (dialog != nullptr)
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return ended_.load();
    });
    host_.join();
}

HWND OpenDialog::window() const {
    HWND found = nullptr;
    WaitUntil([this, &found] {
        found = FindDialogWith(IDC_CAMERAS);
        return found != nullptr || ended_;
    });
    return found;
}

bool OpenDialog::waitForEnd() const {
    return WaitUntil([this] { return ended_.load(); });
}

} // namespace test
} // namespace orv
