// How long the camera table takes to fill against a bare list view, and for how long the dialog
// does not answer while a large scene is submitted from it.
#include "base/noncopyable.h"
#include "bench/fastest_reporter.h"
#include "bench/figures.h"
#include "bench/program.h"
#include "bench/scene_bytes.h"
#include "client/client_link.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/text.h"
#include "resources/texts.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/dialogs/in_process/open_dialog.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/unit/submit/archiver.h"
#include "tests/unit/submit/reply_server.h"
#include "ui/camera_table/camera_table.h"

#include <benchmark/benchmark.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orv {
namespace bench {
namespace {

constexpr char kBareList[] = "bare_list_view_2000_rows";
constexpr char kTable[] = "camera_table_2000_rows";
constexpr char kSubmission[] = "dialog_during_submission_200_mb";

constexpr int kCameras = 2000;
constexpr int kFillRepetitions = 12;
constexpr double kAllowedGap = 100.0; // milliseconds
constexpr std::chrono::milliseconds kTick{30};
constexpr std::chrono::minutes kDeadline{10};

using Clock = std::chrono::steady_clock;
using Row = std::array<std::wstring, 7>;

// A list view on a window that shows, as large as in the dialog.
class List : private rud_Noncopyable {
public:
    List()
        : parent_(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 780,
                                    240, nullptr, nullptr, nullptr, nullptr)),
          list_(::CreateWindowExW(0, WC_LISTVIEWW, L"",
                                  WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, 0, 0, 750,
                                  180, parent_, nullptr, nullptr, nullptr)) {
        if (list_ == nullptr)
            throw std::runtime_error("there is no list view");
        table_.attach(list_);
        table_.createHead();
    }
    ~List() { ::DestroyWindow(parent_); }

    void fillByTable(const CameraMap& cameras) {
        table_.update(cameras);
        ::UpdateWindow(list_);
    }

    // What any list view costs: the texts are at hand, and nothing is looked up.
    void fillBare(const std::vector<Row>& rows) {
        ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
        ::SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
        for (std::size_t row = 0; row < rows.size(); ++row)
            addRow(static_cast<int>(row), rows[row]);
        ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
        ::InvalidateRect(list_, nullptr, TRUE);
        ::UpdateWindow(list_);
    }

    // All texts of a row, to see that both ways show the same.
    std::wstring textOf(int row) const {
        std::wstring all;
        for (int column = 0; column < 7; ++column) {
            wchar_t text[260] = {};
            LVITEMW item = {};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = 260;
            ::SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                           reinterpret_cast<LPARAM>(&item));
            all += std::wstring(text) + L"|";
        }
        return all;
    }

private:
    void addRow(int row, const Row& texts) {
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_STATE;
        item.iItem = row;
        item.pszText = const_cast<wchar_t*>(texts[0].c_str()); // read only
        ::SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (int column = 1; column < 7; ++column) {
            item.iSubItem = column;
            item.pszText = const_cast<wchar_t*>(texts[static_cast<std::size_t>(column)].c_str());
            ::SendMessageW(list_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                           reinterpret_cast<LPARAM>(&item));
        }
        LVITEMW tick = {};
        tick.state = INDEXTOSTATEIMAGEMASK(1);
        tick.stateMask = LVIS_STATEIMAGEMASK;
        ::SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&tick));
    }

    HWND parent_;
    HWND list_;
    CameraTable table_;
};

CameraMap Cameras() {
    CameraMap cameras;
    for (int number = 0; number < kCameras; ++number) {
        CameraInfo camera;
        camera.name = L"Camera \u5BA2\u5385 " + std::to_wstring(10000 + number);
        camera.width = 1920 + number;
        camera.height = 1080;
        camera.startFrame = number;
        camera.imageFormat = L"png";
        cameras[camera.name] = camera;
    }
    return cameras;
}

std::vector<Row> RowsOf(const CameraMap& cameras) {
    std::vector<Row> rows;
    const std::wstring normal = ResourceText(IDS_CAMERA_NORMAL);
    for (const auto& camera : cameras) {
        const CameraInfo& info = camera.second;
        rows.push_back({camera.first, std::to_wstring(info.width), std::to_wstring(info.height),
                        std::to_wstring(info.startFrame), normal, info.imageFormat, info.name});
    }
    return rows;
}

template<class Function>
void Register(const char* name, int repetitions, Function function) {
    benchmark::RegisterBenchmark(name,
                                 [function](benchmark::State& state) {
                                     for (auto iteration : state) {
                                         static_cast<void>(iteration);
                                         function();
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(repetitions);
}

// Submits a large scene from the real dialog and asks the dialog's thread for an answer on each
// tick. Returns the longest time between two answers, in milliseconds.
double LongestGap() {
    test::HostWithScene scene;
    test::WriteFileBytes(scene.host.sceneFilePath, SceneBytes());
    test::InstallArchiver();
    // An unknown code, for which no message box waits for an answer.
    test::ReplyServer client("{\"ret\":1}", kDeadline);
    scene.product.writeSettings("port=" + std::to_string(client.port()) +
                                "\r\nlowerversion=1.3.7\r\n");
    const test::OpenDialog dialog;
    const HWND window = dialog.window();
    if (window == nullptr)
        throw std::runtime_error("the dialog did not open");
    test::ClickCheckBox(window, IDC_CAMERAS, 0);
    ::SendMessageW(window, WM_COMMAND, IDC_SUBMIT, 0);
    const PluginData& data = PluginData::instance();
    const Clock::time_point start = Clock::now();
    Clock::time_point last = start;
    Clock::duration longest{};
    int answers = 0;
    while (data.submitState == kWorkerRunning) {
        std::this_thread::sleep_until(last + kTick);
        DWORD_PTR unused = 0;
        if (!::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 60000, &unused) &&
            ::IsWindow(window))
            throw std::runtime_error("the dialog does not answer");
        longest = std::max(longest, Clock::now() - last);
        last = Clock::now();
        ++answers;
        if (last - start > kDeadline)
            throw std::runtime_error("the submission does not end");
    }
    const std::wstring output = scene.scenes.file(L"Living room_plugin_output\\compress");
    if (test::ListFolder(output).empty())
        throw std::runtime_error("nothing was packed");
    std::printf("times: submission %.1f s, %d answers of the dialog\n",
                std::chrono::duration<double>(last - start).count(), answers);
    return std::chrono::duration<double, std::milli>(longest).count();
}

int Run() {
    const CameraMap cameras = Cameras();
    const std::vector<Row> rows = RowsOf(cameras);
    List bare;
    List table;
    double longestGap = -1.0;
    Register(kBareList, kFillRepetitions, [&] { bare.fillBare(rows); });
    Register(kTable, kFillRepetitions, [&] { table.fillByTable(cameras); });
    Register(kSubmission, 1, [&] { longestGap = LongestGap(); });
    FastestReporter times;
    benchmark::RunSpecifiedBenchmarks(&times);

    Figures figures;
    if (times.has(kTable) && times.has(kBareList)) {
        if (table.textOf(kCameras - 1) != bare.textOf(kCameras - 1))
            throw std::runtime_error("the two lists show different rows");
        figures.add("camera_table_2000/bare_list_view",
                    times.fastest(kTable) / times.fastest(kBareList), 1.3);
    }
    if (longestGap >= 0.0)
        figures.add("longest_gap_of_the_dialog_milliseconds", longestGap, kAllowedGap);
    return figures.exitCode();
}

} // namespace
} // namespace bench
} // namespace orv

int main(int argc, char** argv) {
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the language resources
    ::InitCommonControls();
    const orv::WinsockSession network; // of the client that the submission is posted to
    return orv::bench::RunProgram(argc, argv, orv::bench::Run);
}
