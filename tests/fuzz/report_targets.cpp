// The analysis report, which a script in the host has written, and the job that is made of it.
#include "analysis/report_json.h"
#include "analysis/report_reader.h"
#include "analysis/text/names.h"
#include "analysis/text/text_convert.h"
#include "submit/job_description.h"
#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

#include <json/reader.h>

namespace orv {
namespace fuzz {
namespace {

const char kReport[] = R"({
  "name": "D:/scenes/\u5ba2\u5385/room.max", "version": "2019", "app_version": "21000",
  "renderer_full_name": "V-Ray", "is_region": "false",
  "image_width": "1920", "image_height": "1080", "image_format": "png",
  "start_frame": "5", "end_frame": "5", "gamma_out": "2.2",
  "cameras": [
    {"name": "Camera01"},
    {"name": "a:b", "camWidth": "640", "camHeight": "480"},
    {"name": "\u5ba2\u5385 50%", "camWidth": "0"}],
  "corona_setting": {"pass_limit": "0", "time_limit": "3600000", "noise_level_limit": "0.5"},
  "vray_setting": {"imagesampler_type": "3", "gi_irradmap_preset": "2", "gi_irradmap_minRate": "-3",
    "gi_irradmap_maxRate": "0", "camera_override_fov": true, "camera_fov": "360.0",
    "is_spherical": "true"},
  "missing_file": [{"path": "D:/maps/wood.jpg"}],
  "same_file": [{"path": "D:/maps/a.jpg"}, {"path": 7}],
  "reference_file": [{"path": "D:/maps/\u0430.max"}, {"path": "D:/maps/b.max", "size": 3},
    {"path": "D:/scenes/\u5ba2\u5385/room.max"}],
  "errors": {"error_code": [{"code": "107"}, {"code": "3"}]},
  "dupl_cameras": [{"name": " A "}, {"name": "B"}]
})";

// Without what ends the reading early, so that the later steps are reached, too.
const char kPlainReport[] = R"({
  "name": "D:\\scenes\\room.max", "version": "2019", "app_version": 21000,
  "renderer_full_name": "Missing_Renderer", "is_region": "true",
  "image_width": "99999999999", "image_height": "-1", "image_format": "tif", "start_frame": "",
  "cameras": [{"name": "Camera01"}, {"name": "Camera01"}],
  "corona_setting": {"pass_limit": "10", "time_limit": "-1999", "noise_level_limit": "0"},
  "reference_file": [], "errors": null
})";

std::string HostileReport(Random& random) {
    return HostileJson(random.oneIn(2) ? kReport : kPlainReport, random);
}

SceneAnalysis AnalysisOf(const std::string& report) {
    SceneAnalysis analysis;
    analysis.reportText = Utf8ToWide(report);
    return analysis;
}

void ReadReport(const std::string& bytes) {
    SceneAnalysis analysis = AnalysisOf(bytes);
    const int result = ReadAnalysisReport(analysis);
    Require(result == kReportRead || result == kReportNoCameras || result == kReportRefused ||
                result == kReportDuplicateCameras,
            "the reader's result is one of its codes");
    Require(!analysis.messages.empty() || result == kReportDuplicateCameras,
            "the user is told something of every report");
    if (result == kReportRefused)
        Require(analysis.cameras.empty(), "nothing is taken of a refused report");
    for (const auto& camera : analysis.cameras)
        Require(camera.second.name.find_first_of(kDeletedNameChars) == std::wstring::npos,
                "a camera's output name can be a file's");
}

void TakeSceneName(const std::string& bytes) {
    SceneAnalysis analysis = AnalysisOf(bytes);
    const std::string name = InitSceneName(analysis);
    Require(name == analysis.sceneFileName || name.empty(), "the name is the one that is kept");
    Require(name.find('/') == std::string::npos, "a file's name has no folder before it");
}

// The job as the submission writes it, whatever the report was.
class JobReader {
public:
    void read(const std::string& bytes) const {
        SceneAnalysis analysis = AnalysisOf(bytes);
        ReadAnalysisReport(analysis);
        InitSceneName(analysis);
        for (auto& camera : analysis.cameras)
            camera.second.selected = true;
        analysis.giChannel = bytes.size() % 2 == 0;
        analysis.useCorona = bytes.size() % 3 == 0;
        analysis.aoChannel = bytes.size() % 5 == 0;
        JobPaths paths;
        paths.jsonDir = folder_.path();
        paths.scenePath = "D:/scenes/room.max";
        paths.giScaleIndex = static_cast<std::int32_t>(bytes.size() % 5) - 1;
        std::string request;
        if (!WriteJobDescription(analysis, SubmissionChoices(), nullptr, paths, L"job", request)) {
            Require(request.empty(), "no request without a job");
            return;
        }
        Json::Value job;
        Require(Json::Reader().parse(request, job) && job.isObject(), "the request is JSON");
        Json::Reader reader(Json::Features::strictMode());
        Require(reader.parse(test::ReadFileBytes(paths.jsonDir), job, false) && job.isObject(),
                "the job file is JSON");
        Require(job["name"] == paths.scenePath, "the job names the scene that is sent");
    }

private:
    const test::TemporaryFolder folder_;
};

} // namespace

std::vector<Target> ReportTargets() {
    return {{"report", HostileReport, ReadReport},
            {"scene-name", HostileReport, TakeSceneName},
            {"job-description", HostileReport, FedTo<JobReader>()}};
}

} // namespace fuzz
} // namespace orv
