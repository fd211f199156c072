// How long the dialog takes to open with a large report against the parsing of it, its camera table
// to fill against a bare list view, and for how long it does not answer while a large scene is
// submitted from it.
#include "analysis/report_reader.h"
#include "analysis/text/text_convert.h"
#include "base/noncopyable.h"
#include "bench/figures.h"
#include "bench/program.h"
#include "bench/report_text.h"
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
#include "tests/support/test_window.h"
#include "tests/unit/submit/archiver.h"
#include "tests/unit/submit/reply_server.h"
#include "ui/camera_table/camera_table.h"
#include "ui/camera_table/warnings_list.h"

#include <commctrl.h>
#include <json/reader.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orv {
namespace bench {
namespace {

constexpr int kCameras = 2000;
constexpr int kTimes = 10; // that a list is filled for a time to measure
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

// The controls of the dialog that the analysis fills, which does not show yet.
class OpeningControls : private rud_Noncopyable {
public:
    OpeningControls() {
        cameras_.attach(table_.get());
        cameras_.createHead();
    }

    void fill(SceneAnalysis& analysis) {
        if (ReadAnalysisReport(analysis) != kReportRead || InitSceneName(analysis).empty())
            throw std::runtime_error("the report cannot be read");
        FillWarnings(list_.get(), WarningLines(analysis));
        cameras_.create(analysis.cameras);
    }

private:
    const test::TestWindow table_{WC_LISTVIEWW, LVS_REPORT | LVS_SHOWSELALWAYS};
    const test::TestWindow list_{L"LISTBOX",
                                 LBS_NOINTEGRALHEIGHT | LBS_NOTIFY | WS_HSCROLL | WS_VSCROLL};
    CameraTable cameras_;
};

double Open(OpeningControls& controls, const std::wstring& report) {
    const auto prepare = [&report] {
        SceneAnalysis analysis;
        analysis.reportText = report;
        return analysis;
    };
    return ProcessorTime(kTimesALarge, prepare, [&controls](SceneAnalysis& analysis) {
        controls.fill(analysis);
        analysis.report.reset();
    });
}

double ParseAlone(const std::string& report) {
    return ProcessorTime(kTimesALarge, [&report] {
        Json::Value document;
        if (!Json::Reader().parse(report, document))
            throw std::runtime_error("the report is not JSON");
    });
}

void MeasureOpening(Figures& figures) {
    const test::TestProductFolder product;
    const std::string report = MakeReport(kLargeReport);
    const std::wstring text = Utf8ToWide(report);
    OpeningControls controls;
    figures.measure(
        "open_dialog/json_parse_alone", kShortWork, [&] { return Open(controls, text); },
        [&report] { return ParseAlone(report); }, 1.7);
}

void MeasureTable(Figures& figures) {
    const CameraMap cameras = Cameras();
    const std::vector<Row> rows = RowsOf(cameras);
    List bare;
    List table;
    table.fillByTable(cameras);
    bare.fillBare(rows);
    if (table.textOf(kCameras - 1) != bare.textOf(kCameras - 1))
        throw std::runtime_error("the two lists show different rows");
    figures.measure(
        "camera_table_2000/bare_list_view", kShortWork,
        [&] { return ProcessorTime(kTimes, [&] { table.fillByTable(cameras); }); },
        [&] { return ProcessorTime(kTimes, [&] { bare.fillBare(rows); }); }, 1.3);
}

// A window on a thread of its own, which does nothing but answer.
class BareWindow : private rud_Noncopyable {
public:
    BareWindow() : thread_([this] { run(); }) {
        window_ = shown_.get_future().get();
        if (window_ == nullptr) {
            thread_.join();
            throw std::runtime_error("there is no window");
        }
    }
    ~BareWindow() {
        ::PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
    }

    HWND get() const { return window_; }

private:
    void run() {
        const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                              0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
        shown_.set_value(window);
        MSG message = {};
        while (::IsWindow(window) && ::GetMessageW(&message, nullptr, 0, 0) > 0)
            ::DispatchMessageW(&message);
    }

    std::promise<HWND> shown_;
    HWND window_ = nullptr;
    std::thread thread_;
};

// How long the window's thread takes to answer a message.
Clock::duration AnswerTime(HWND window, UINT message, WPARAM wParam) {
    const Clock::time_point start = Clock::now();
    DWORD_PTR unused = 0;
    if (!::SendMessageTimeoutW(window, message, wParam, 0, SMTO_NORMAL, 60000, &unused) &&
        ::IsWindow(window))
        throw std::runtime_error("a window does not answer");
    return Clock::now() - start;
}

// The longest gaps between two answers of windows that are asked on each tick.
struct Gaps {
    Clock::duration dialog;
    Clock::duration bare;
};

Gaps GapsUntilTheEnd(HWND dialog) {
    const BareWindow bare;
    const PluginData& data = PluginData::instance();
    const Clock::time_point start = Clock::now();
    Gaps gaps = {AnswerTime(dialog, WM_COMMAND, IDC_SUBMIT) + kTick, kTick};
    while (data.submitState == kWorkerRunning) {
        std::this_thread::sleep_for(kTick);
        gaps.bare = std::max(gaps.bare, AnswerTime(bare.get(), WM_NULL, 0) + kTick);
        gaps.dialog = std::max(gaps.dialog, AnswerTime(dialog, WM_NULL, 0) + kTick);
        if (Clock::now() - start > kDeadline)
            throw std::runtime_error("the submission does not end");
    }
    return gaps;
}

// Submits a large scene from the real dialog. A machine that is busy keeps every window waiting, so
// the dialog's longest gap counts as a ratio to that of a window that has nothing to do.
double GapRatioOfASubmission() {
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
    const Gaps gaps = GapsUntilTheEnd(window);
    if (test::ListFolder(scene.scenes.file(L"Living room_plugin_output\\compress")).empty())
        throw std::runtime_error("nothing was packed");
    using Milliseconds = std::chrono::duration<double, std::milli>;
    std::printf("times: longest gap of the dialog %.0f ms, of a bare window %.0f ms\n",
                Milliseconds(gaps.dialog).count(), Milliseconds(gaps.bare).count());
    return Milliseconds(gaps.dialog) / Milliseconds(gaps.bare);
}

void Run(Figures& figures) {
    MeasureOpening(figures);
    MeasureTable(figures);
    figures.measure("gap_of_the_dialog/gap_of_a_bare_window", kLongWork, GapRatioOfASubmission,
                    3.0);
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
