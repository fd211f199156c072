// How long a submission takes against the archiver alone, and writing a large job file against what
// JsonCpp alone needs for the same text.
#include "analysis/text/text_convert.h"
#include "bench/figures.h"
#include "bench/program.h"
#include "bench/report_text.h"
#include "bench/scene_bytes.h"
#include "client/client_link.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "resources/text.h"
#include "submit/job_description.h"
#include "submit/scene_archive.h"
#include "submit/submit_job.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/archiver.h"
#include "tests/unit/submit/reply_server.h"
#include "tests/unit/submit/test_dialog.h"

#include <json/reader.h>
#include <json/writer.h>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace orv {
namespace bench {
namespace {

constexpr double kWait = 1.0; // seconds that a submission lets the archive settle

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A large scene in a new folder, and everything that its submission needs.
class LargeScene {
public:
    LargeScene() {
        host_.sceneFilePath = folder_.file(L"room.max");
        test::WriteFileBytes(host_.sceneFilePath, SceneBytes());
        test::InstallArchiver();
    }

    // The archiver with the command of a submission, and nothing around it.
    double packAlone() {
        JobPaths paths;
        paths.sevenZipPath = product_.path(L"/7-Zip/7z.exe");
        paths.compressDir = folder_.path();
        if (!PackScene(WideToUtf8(host_.sceneFilePath), paths, SessionData()))
            throw std::runtime_error("the scene cannot be packed");
        const Clock::time_point start = Clock::now();
        if (test::RunSevenZip(Utf8ToWide(paths.archiverArguments)) != 0)
            throw std::runtime_error("the archiver failed");
        const double seconds = SecondsSince(start);
        test::DeleteTree(Utf8ToWide(paths.archivePath));
        return seconds;
    }

    // From the worker's start to its end, less the time that it only waits.
    double submit() {
        test::TestDialog dialog;
        dialog.setText(IDC_SCENE_NAME, L"room");
        dialog.setCameras({{L"Cam", true}});
        SceneAnalysis& analysis = PluginData::instance().analysis;
        analysis = SceneAnalysis();
        analysis.reportText = L"{\"app_version\": \"2019\"}";
        // An unknown code, for which no message box waits for an answer.
        test::ReplyServer client("{\"ret\":1}", std::chrono::minutes(20));
        product_.writeSettings("port=" + std::to_string(client.port()) + "\r\n");
        const Clock::time_point start = Clock::now();
        const std::int32_t result = SubmitJob(dialog.handle(), L"", L"", L"0");
        const double seconds = SecondsSince(start);
        const std::wstring output = folder_.file(L"room_plugin_output");
        if (result != kSubmitEnded || test::ListFolder(output + L"\\compress").size() != 1)
            throw std::runtime_error("the submission failed");
        test::DeleteTree(output);
        return seconds - kWait;
    }

private:
    test::TestProductFolder product_;
    test::TemporaryFolder folder_{L"large scene"};
    test::FakeDoor host_;
};

void ParseAndRenderAlone(const std::string& json) {
    Json::Value report;
    if (!Json::Reader().parse(json.data(), json.data() + json.size(), report))
        throw std::runtime_error("the report is not JSON");
    if (Json::StyledWriter().write(report).empty())
        throw std::runtime_error("the report cannot be written");
}

// Writes the job file into a new folder.
class LargeJob {
public:
    explicit LargeJob(const std::string& json) { analysis_.reportText = Utf8ToWide(json); }

    void write() {
        JobPaths paths;
        paths.jsonDir = folder_.path();
        std::string request;
        if (!WriteJobDescription(analysis_, dialog_.handle(), paths, L"job", request))
            throw std::runtime_error("the job file cannot be written");
    }

private:
    test::TemporaryFolder folder_;
    test::TestDialog dialog_;
    SceneAnalysis analysis_;
};

void Run(Figures& figures) {
    const std::string json = MakeReport(kLargeReport);
    LargeJob job(json);
    figures.measure(
        "job_file_100000_references/json_parse_and_render_alone", kShortWork,
        [&job] { return ProcessorTime(kTimesALarge, [&job] { job.write(); }); },
        [&json] { return ProcessorTime(kTimesALarge, [&json] { ParseAndRenderAlone(json); }); },
        1.2);
    std::unique_ptr<LargeScene> scene; // made when it is measured: a filter may leave it out
    const auto theScene = [&scene]() -> LargeScene& {
        if (!scene)
            scene = std::make_unique<LargeScene>();
        return *scene;
    };
    figures.measure(
        "submission_less_its_wait/archiver_alone", kLongWork,
        [&theScene] { return theScene().submit(); }, [&theScene] { return theScene().packAlone(); },
        1.03);
}

} // namespace
} // namespace bench
} // namespace orv

int main(int argc, char** argv) {
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the language resources
    const orv::WinsockSession network;
    return orv::bench::RunProgram(argc, argv, orv::bench::Run);
}
