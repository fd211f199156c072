#include "submit/job_description.h"

#include "analysis/report_json.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "analysis/work_folder.h"
#include "base/handles.h"
#include "config/dialog_choices.h"
#include "config/render_choices.h"
#include "config/submission_windows.h"
#include "log/log.h"
#include "resources/controls.h"
#include "resources/texts.h"

#include <json/value.h>
#include <json/writer.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace orv {
namespace {

Json::Value CameraJson(const std::wstring& name, const CameraInfo& camera) {
    Json::Value json;
    json["name"] = WideToUtf8(name);
    json["camera_width"] = camera.width;
    json["camera_height"] = camera.height;
    json["frame_to_render"] = camera.startFrame;
    json["img_output_format"] = WideToUtf8(camera.imageFormat);
    json["img_output_name"] = WideToUtf8(camera.name);
    json["renderable"] = "1";
    json["is_spherical"] = camera.isSpherical;
    return json;
}

// The cameras that are checked; the member is missing when none is.
void AddCameras(const SceneAnalysis& analysis, Json::Value& job) {
    for (const auto& entry : analysis.cameras) {
        if (entry.second.selected)
            job["cameras"].append(CameraJson(entry.first, entry.second));
    }
}

bool IsText(const Json::Value& value, const std::string& text) {
    const char* begin = nullptr;
    const char* end = nullptr;
    return value.getString(&begin, &end) &&
           text.compare(0, std::string::npos, begin, static_cast<std::size_t>(end - begin)) == 0;
}

bool IsPathOf(const Json::Value& path, const std::string& file) {
    return path.isString() ? IsText(path, file) : TextOf(path) == file;
}

// An entry without anything but its path.
Json::Value ReducedToPath(const Json::Value& entry) {
    const Json::Value& path = MemberOf(entry, "path");
    if (entry.isObject() && entry.size() == 1 && path.isString())
        return entry;
    Json::Value reduced;
    reduced["path"] = TextOf(path);
    return reduced;
}

// The referenced files except the scene itself; the member is missing when none is left.
void AddReferences(const Json::Value& report, const SceneAnalysis& analysis, Json::Value& job) {
    const Json::Value& references = MemberOf(report, "reference_file");
    if (!references.isArray())
        return;
    Json::Value kept(Json::arrayValue);
    for (const Json::Value& entry : references) {
        if (!IsPathOf(MemberOf(entry, "path"), analysis.sceneFilePath))
            kept.append(ReducedToPath(entry));
    }
    if (!kept.empty())
        job["reference_file"] = std::move(kept);
}

void SetBlocking(const SceneAnalysis& analysis, Json::Value& job) {
    const bool isDistributed = analysis.blockMode == kDistributedBlocks;
    const bool isBlocked = analysis.blockMode != kNoBlocks && !isDistributed;
    job["enable_blocking"] = isBlocked ? 1 : 0;
    job["num_blocks"] = isBlocked ? analysis.blockMode : 0;
    job["distributed_render"] = isDistributed ? analysis.blockCount : 0;
}

// Each step down in the image's scale lowers the irradiance map's rates by one.
Json::Value ScaledRate(std::int32_t rate, const SceneAnalysis& analysis, const JobPaths& paths) {
    const Json::Int64 scaled = analysis.giChannel ? Json::Int64{rate} - paths.giScaleIndex : rate;
    return scaled;
}

// The client knows colour, ambient occlusion and material as booleans, but GI and PSD as the texts
// "1" and "0". Both kinds are part of the format.
Json::Value MaxOptions(const SceneAnalysis& analysis, const JobPaths& paths) {
    Json::Value options;
    options["color_channel"] = analysis.colorChannel;
    options["ao_channel"] = analysis.aoChannel;
    if (analysis.aoChannel) {
        options["ao_radius"] = analysis.aoRadius;
        options["ao_subdivs"] = analysis.aoSubdivs;
    }
    options["gamma_out"] = static_cast<double>(analysis.gamma);
    options["mtl_channel"] = analysis.materialChannel;
    options["gi_irradmap_preset"] = analysis.irradmapPreset;
    options["gi_irradmap_minRate"] = ScaledRate(analysis.irradmapMinRate, analysis, paths);
    options["gi_irradmap_maxRate"] = ScaledRate(analysis.irradmapMaxRate, analysis, paths);
    if (analysis.giChannel)
        options["gi_image_scale"] = paths.giScaleText;
    options["gi_channel"] = analysis.giChannel ? "1" : "0";
    options["psd_channel"] = analysis.psdChannel ? "1" : "0";
    return options;
}

Json::Value CoronaOptions(const SceneAnalysis& analysis) {
    Json::Value options;
    options["CoronaNoiseLevelLimit"] = analysis.coronaNoiseLimit * 0.01; // per cent
    options["CoronaPassLimit"] = analysis.coronaPassLimit;
    options["CoronaTimeLimit"] = analysis.coronaTimeLimitSeconds;
    options["useCorona"] = analysis.useCorona;
    return options;
}

// The members of a report that a job has with other values.
constexpr const char* kReplaced[] = {"cameras", "name", "reference_file"};

bool PassesThrough(const std::string& member, const Json::Value& value) {
    if (member == "errors")
        return value.isNull();
    return std::find(std::begin(kReplaced), std::end(kReplaced), member) == std::end(kReplaced);
}

// The members and comments of a report that pass into the job unchanged.
Json::Value PassedThrough(const Json::Value& report) {
    Json::Value job(Json::objectValue);
    for (auto member = report.begin(); member != report.end(); ++member) {
        if (PassesThrough(member.name(), *member))
            job[member.name()] = *member;
    }
    for (const auto place :
         {Json::commentBefore, Json::commentAfterOnSameLine, Json::commentAfter}) {
        if (report.hasComment(place))
            job.setComment(report.getComment(place), place);
    }
    return job;
}

Json::Value JobOf(const Json::Value& report, const SceneAnalysis& analysis, const JobPaths& paths) {
    Json::Value job = PassedThrough(report);
    AddReferences(report, analysis, job);
    job["name"] = paths.scenePath;
    AddCameras(analysis, job);
    SetBlocking(analysis, job);
    job["max_options"] = MaxOptions(analysis, paths);
    if (analysis.useCorona)
        job["corona_options"] = CoronaOptions(analysis);
    return job;
}

// For a caller that has not collected the options before. The file keeps what was collected.
void RefreshChannels(SceneAnalysis& analysis, const SubmissionChoices& choices) {
    analysis.aoChannel = analysis.aoChannel || choices.isChecked(IDC_AO_CHANNEL);
    analysis.colorChannel = analysis.colorChannel || choices.isChecked(IDC_COLOR_CHANNEL);
}

bool WriteBytes(HANDLE file, const std::string& bytes) {
    DWORD written = 0;
    return ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// A step at a time, so that a large job is not held a second time.
bool WriteLines(HANDLE file, const std::string& text) {
    constexpr std::size_t kStep = std::size_t{1} << 20;
    std::string lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find('\n', start);
        if (end == std::string::npos) {
            lines.append(text, start, std::string::npos);
            break;
        }
        lines.append(text, start, end - start).append("\r\n");
        start = end + 1;
        if (lines.size() >= kStep) {
            if (!WriteBytes(file, lines))
                return false;
            lines.clear();
        }
    }
    return WriteBytes(file, lines);
}

// Text for Windows: every line ends with CR LF. Others may read and write the file meanwhile: the
// client watches the folder. False when the file cannot be opened. Not through the C library's
// files: some do not tell of a disk that became full.
bool WriteTextFile(const std::wstring& path, const std::string& text) {
    if (path.size() > kLongestPath)
        return false;
    FileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return false;
    if (WriteLines(file.get(), text))
        return true;
    const DWORD error = ::GetLastError();
    file.reset();
    // A half-written job is worse than none: a missing one the client reports.
    LogSystemError(LogModule::Data, kError, "WriteFile", error, path);
    ::DeleteFileW(path.c_str());
    return true;
}

std::string RequestBody(const Json::Value& job, const JobPaths& paths, const std::wstring& jobFile,
                        const SubmissionChoices& choices) {
    Json::Value request;
    request["scenePath"] = paths.scenePath;
    request["filePath"] = WideToUtf8(jobFile);
    request["maxVersion"] = "3ds Max " + TextOf(MemberOf(job, "app_version"));
    request["compressPath"] = paths.archivePath;
    request["PLUGIN_SAVE_SCENE_FILE"] = Json::UInt{choices.boxState(IDC_SAVE_SCENE_FILE)};
    return Json::StyledWriter().write(request);
}

bool Fail(HWND dialog, const char* logLine) {
    WriteLog(LogModule::Data, kError, logLine);
    ShowSubmissionMessage(dialog, IDS_JOB_NOT_WRITTEN, IDS_CAPTION);
    return false;
}

} // namespace

bool WriteJobDescription(SceneAnalysis& analysis, const SubmissionChoices& choices, HWND dialog,
                         JobPaths& paths, const std::wstring& baseName, std::string& requestBody) {
    const std::shared_ptr<const ReportDocument> report = ReportOf(analysis);
    if (report == nullptr || !report->root.isObject())
        return Fail(dialog, "Parse failed in writing json file when submiting!");
    const Json::Value job = JobOf(report->root, analysis, paths);
    RefreshChannels(analysis, choices);

    EnsureFolder(paths.jsonDir);
    const std::wstring jobFile = paths.jsonDir + L"/" + baseName + L".json";
    if (!WriteTextFile(jobFile, Json::StyledWriter().write(job)))
        return Fail(dialog, "Open json file failed when write it!");
    requestBody = RequestBody(job, paths, jobFile, choices);
    paths.jsonDir = jobFile;
    WriteLog(LogModule::Data, kInfo,
             "Write json file at: " + WideToUtf8(jobFile) + " successfully.");
    return true;
}

bool WriteJobDescription(SceneAnalysis& analysis, HWND dialog, JobPaths& paths,
                         const std::wstring& baseName, std::string& requestBody) {
    SubmissionChoices choices;
    if (!TakeChoices(dialog, choices))
        return Fail(dialog, kChoicesNotRead);
    return WriteJobDescription(analysis, choices, dialog, paths, baseName, requestBody);
}

} // namespace orv
