#include "tests/unit/analysis/generated_report.h"

#include <random>
#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

using Words = std::vector<const char*>;

const Words kPathParts = {"D:\\maps",
                          "wood (2)",
                          "\xE6\x9C\xA8\xE7\xBA\xB9",
                          "a_b-c+d",
                          "[1]",
                          "100%",
                          "\"x\"",
                          "\xD0\x94\xD0\xBE\xD0\xBC",
                          "\xC3\xA4",
                          "\xEF\xBC\x81",
                          "\xE3\x80\x8A\xE3\x80\x8B",
                          "\xF0\x9F\x8E\xA5",
                          "\xD4\xB0",
                          "\xE4\xB7\xBF",
                          "\tb"};
const Words kCameraParts = {"Cam", "a:b", "cam%1", "\xE7\x9B\xB8\xE6\x9C\xBA", "<x>", " ", "view"};
const Words kNumbers = {"0", "1", "107", "3", "-5", "1920", "12abc", "", "0.0", "99999999999"};

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    Json::Value report() {
        Json::Value report(Json::objectValue);
        report["is_region"] = pick({"true", "false", "True", ""});
        report["image_width"] = number();
        report["image_height"] = number();
        report["start_frame"] = number();
        maybe(report, "image_format", pick({"png", "TIF", "tiff", "Exr"}));
        maybe(report, "version", chance(2) ? Json::Value("2019") : Json::Value(true));
        maybe(report, "name", pick({"D:/a/b.max", "room.max", "D:\\a.max"}));
        maybe(report, "renderer_full_name", pick({"Missing_Renderer", "V-Ray", "Corona"}));
        maybe(report, "gamma_out", number());
        maybe(report, "reference_file", files());
        maybe(report, "missing_file", files());
        maybe(report, "same_file", files());
        maybe(report, "cameras", cameras(8));
        maybe(report, "dupl_cameras", chance(3) ? cameras(3) : Json::Value(Json::arrayValue));
        maybe(report, "errors", errors());
        maybe(report, "corona_setting", corona());
        maybe(report, "vray_setting", vray());
        maybe(report, "unknown", files());
        return report;
    }

private:
    // True once in `times`.
    bool chance(unsigned times) { return random_() % times == 0; }

    const char* pick(const Words& words) { return words[random_() % words.size()]; }

    const char* number() { return pick(kNumbers); }

    // Leaves the member out, or null, now and then.
    void maybe(Json::Value& object, const char* name, const Json::Value& value) {
        if (chance(8))
            object[name] = Json::Value();
        else if (!chance(6))
            object[name] = value;
    }

    std::string phrase(const Words& parts) {
        std::string text;
        for (unsigned count = random_() % 4; count > 0; --count)
            text += pick(parts);
        return text;
    }

    Json::Value files() {
        Json::Value list(Json::arrayValue);
        for (unsigned count = random_() % 12; count > 0; --count) {
            Json::Value entry;
            entry["path"] = phrase(kPathParts) + std::to_string(count);
            if (chance(4))
                entry["note"] = phrase(kPathParts);
            list.append(entry);
        }
        return list;
    }

    Json::Value cameras(unsigned most) {
        Json::Value list(Json::arrayValue);
        for (unsigned count = random_() % most; count > 0; --count) {
            Json::Value camera;
            camera["name"] = phrase(kCameraParts);
            maybe(camera, "camWidth", number());
            maybe(camera, "camHeight", number());
            list.append(camera);
        }
        return list;
    }

    Json::Value errors() {
        Json::Value errors(Json::objectValue);
        for (unsigned count = random_() % 4; count > 0; --count) {
            Json::Value entry;
            entry["code"] = number();
            errors["error_code"].append(entry);
        }
        return errors;
    }

    Json::Value corona() {
        Json::Value setting(Json::objectValue);
        for (const char* name : {"pass_limit", "time_limit", "noise_level_limit"})
            setting[name] = chance(3) ? number() : "0";
        if (chance(4))
            setting.removeMember("time_limit");
        return setting;
    }

    Json::Value vray() {
        Json::Value setting(Json::objectValue);
        maybe(setting, "imagesampler_type", number());
        maybe(setting, "gi_irradmap_preset", number());
        maybe(setting, "camera_override_fov", chance(2));
        maybe(setting, "camera_fov", pick({"360.0", "45", "360"}));
        maybe(setting, "is_spherical", pick({"true", "false", "True"}));
        return setting;
    }

    std::mt19937 random_;
};

} // namespace

Json::Value GeneratedReport(unsigned seed) {
    return Generator(seed).report();
}

} // namespace test
} // namespace orv
