#include "standin/host/report.h"

#include "standin/host/text.h"

#include "base/windows.h"

#include <cstdio>
#include <map>
#include <set>

namespace standin {
namespace {

Json::Value Text(const std::wstring& text) {
    return Json::Value(ToUtf8(text));
}
Json::Value Text(int number) {
    return Json::Value(std::to_string(number));
}
Json::Value Text(bool flag) {
    return Json::Value(flag ? "true" : "false");
}

Json::Value Text(double number) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.9g", number);
    return Json::Value(text);
}

// A setting as the report holds it: numbers and flags become texts.
Json::Value SettingText(const Json::Value& setting) {
    switch (setting.type()) {
    case Json::booleanValue:
        return Text(setting.asBool());
    case Json::intValue:
    case Json::uintValue:
        return Json::Value(setting.asString());
    case Json::realValue:
        return Text(setting.asDouble());
    default:
        return setting;
    }
}

Json::Value PathObject(const std::wstring& path) {
    Json::Value entry(Json::objectValue);
    entry["path"] = Text(path);
    return entry;
}

// A path without a folder is looked for beside the scene, as the host does.
bool IsMissing(const ExternalFile& file, const Scene& scene) {
    if (file.state != ExternalFile::State::LookOnDisk) {
        return file.state == ExternalFile::State::Missing;
    }
    const bool bareName = FileNameOf(file.path) == file.path;
    return !FileExists(bareName ? FolderOf(scene.path()) + L"\\" + file.path : file.path);
}

std::wstring LowerCase(std::wstring text) {
    if (!text.empty()) {
        CharLowerBuffW(&text[0], static_cast<DWORD>(text.size()));
    }
    return text;
}

void AddFiles(const Scene& scene, Json::Value& report) {
    Json::Value missing(Json::arrayValue);
    Json::Value sameName(Json::arrayValue);
    Json::Value references(Json::arrayValue);
    std::map<std::wstring, std::set<std::wstring>> pathsOfName;
    for (const auto* list : {&scene.description().externalFiles, &scene.description().xrefs}) {
        for (const ExternalFile& file : *list) {
            references.append(PathObject(file.path));
            if (IsMissing(file, scene)) {
                missing.append(PathObject(file.path));
            }
            pathsOfName[LowerCase(FileNameOf(file.path))].insert(LowerCase(file.path));
        }
    }
    for (const auto* list : {&scene.description().externalFiles, &scene.description().xrefs}) {
        for (const ExternalFile& file : *list) {
            if (pathsOfName[LowerCase(FileNameOf(file.path))].size() > 1) {
                sameName.append(PathObject(file.path));
            }
        }
    }
    report["missing_file"] = missing;
    report["same_file"] = sameName;
    report["reference_file"] = references;
}

void AddCameras(const SceneDescription& scene, Json::Value& report) {
    Json::Value cameras(Json::arrayValue);
    Json::Value duplicates(Json::arrayValue);
    std::map<std::wstring, int> countOfName;
    for (const SceneCamera& camera : scene.cameras) {
        Json::Value entry(Json::objectValue);
        entry["name"] = Text(camera.name);
        if (camera.width > 0 && camera.height > 0) {
            entry["camWidth"] = Text(camera.width);
            entry["camHeight"] = Text(camera.height);
        }
        cameras.append(entry);
        if (++countOfName[camera.name] == 2) {
            Json::Value duplicate(Json::objectValue);
            duplicate["name"] = Text(camera.name);
            duplicates.append(duplicate);
        }
    }
    report["cameras"] = cameras;
    if (!duplicates.empty()) {
        report["dupl_cameras"] = duplicates;
    }
}

void AddRenderer(const SceneDescription& scene, Json::Value& report) {
    report["renderer_full_name"] = Text(scene.renderer);
    if (scene.hasVray) {
        Json::Value& settings = report["vray_setting"] = Json::Value(Json::objectValue);
        for (const auto& setting : scene.vray) {
            // This one flag travels as a flag.
            const bool asItIs = setting.first == "camera_override_fov";
            settings[setting.first] = asItIs ? setting.second : SettingText(setting.second);
        }
    }
    if (scene.hasCorona) {
        Json::Value& settings = report["corona_setting"] = Json::Value(Json::objectValue);
        for (const auto& setting : scene.corona) {
            settings[setting.first] = SettingText(setting.second);
        }
    }
}

void AddErrors(const SceneDescription& scene, Json::Value& report) {
    if (scene.errorCodes.empty()) {
        return;
    }
    Json::Value& codes = report["errors"]["error_code"] = Json::Value(Json::arrayValue);
    for (const std::wstring& code : scene.errorCodes) {
        Json::Value entry(Json::objectValue);
        entry["code"] = Text(code);
        codes.append(entry);
    }
}

} // namespace

Json::Value MakeReport(const Scene& scene) {
    const SceneDescription& description = scene.description();
    Json::Value report(Json::objectValue);
    report["name"] = Text(scene.path());
    report["version"] = Text(description.version);
    report["app_version"] = Text(description.appVersion);
    report["start_frame"] = Text(description.startFrame);
    report["end_frame"] = Text(description.endFrame);
    report["image_width"] = Text(description.imageWidth);
    report["image_height"] = Text(description.imageHeight);
    report["image_format"] = Text(description.imageFormat);
    report["gamma_out"] = Text(description.gamma);
    report["is_region"] = Text(description.region);
    AddRenderer(description, report);
    AddCameras(description, report);
    AddFiles(scene, report);
    AddErrors(description, report);
    return report;
}

std::string ReportText(const Json::Value& report) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "  ";
    return Json::writeString(builder, report) + "\n";
}

} // namespace standin
