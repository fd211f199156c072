// Steps of reading a report that concern the image, the cameras and what follows them.
#include "analysis/report_json.h"
#include "analysis/report_steps.h"
#include "analysis/text/name_rules.h"
#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "log/module_log.h"
#include "resources/texts.h"

#include <algorithm>
#include <limits>

namespace orv {
namespace {

// Cameras' names are used in buffers of 260 characters; a longer one counts as none.
constexpr std::size_t kLongestName = 259;

constexpr double kFullCircle = 360.0;           // degrees
constexpr std::int32_t kProgressiveSampler = 3; // V-Ray's number of it
constexpr std::int32_t kAdvisedErrorCode = 107;

std::wstring NameOf(const Json::Value& entry) {
    const std::wstring name = Utf8ToWide(RawText(MemberOf(entry, "name")));
    return name.size() > kLongestName ? std::wstring() : name;
}

// Output formats are ASCII words, so nothing else has an upper case that counts.
std::wstring UpperCased(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), [](wchar_t character) {
        return L'a' <= character && character <= L'z'
                   ? static_cast<wchar_t>(character - L'a' + L'A')
                   : character;
    });
    return text;
}

std::int32_t WholeNumberOf(const Json::Value& object, const char* member) {
    return WholeNumber(std::string(RawText(MemberOf(object, member))));
}

// A conversion of a number beyond a float's range would be undefined.
float WithinFloat(double value) {
    const double highest = std::numeric_limits<float>::max();
    return static_cast<float>(std::max(-highest, std::min(value, highest)));
}

bool IsSpherical(const Json::Value& vray) {
    const Json::Value& override = MemberOf(vray, "camera_override_fov");
    const Json::Value& fieldOfView = MemberOf(vray, "camera_fov");
    const double degrees = fieldOfView.isNull() ? kFullCircle : DecimalNumber(RawText(fieldOfView));
    // The report writes 360.0 as it stands, so an exact comparison is meant.
    const bool isFullCircle = !(degrees < kFullCircle) && !(degrees > kFullCircle);
    return override.asBool() && isFullCircle &&
           RawText(MemberOf(vray, "is_spherical")) == std::string("true");
}

// A camera's own width or height, 0 when it has none.
std::int32_t OwnSize(const Json::Value& camera, const char* member) {
    return WholeNumber(Utf8ToWide(RawText(MemberOf(camera, member))));
}

CameraInfo ReadCamera(const Json::Value& camera, const std::wstring& name,
                      const SceneImage& image) {
    const std::int32_t width = OwnSize(camera, "camWidth");
    const std::int32_t height = OwnSize(camera, "camHeight");
    CameraInfo info;
    info.name = name;
    info.width = width != 0 ? width : image.width;
    info.height = height != 0 ? height : image.height;
    info.startFrame = image.startFrame;
    info.imageFormat = image.format;
    info.isSpherical = image.isSpherical;
    return info;
}

} // namespace

bool HasCameras(const Json::Value& report) {
    return !MemberOf(report, "cameras").empty();
}

SceneImage ReadSceneImage(const Json::Value& report, SceneAnalysis& analysis) {
    SceneImage image;
    image.width = WholeNumberOf(report, "image_width");
    image.height = WholeNumberOf(report, "image_height");
    image.startFrame = WholeNumberOf(report, "start_frame");
    image.format = UpperCased(AnsiToWide(TextOf(MemberOf(report, "image_format"))));
    if (image.format == L"TIFF" || image.format == L"TIF")
        AddTip(analysis, IDS_TIP_TIFF);
    return image;
}

void ReadVRay(const Json::Value& report, SceneAnalysis& analysis, SceneImage& image) {
    const Json::Value& vray = MemberOf(report, "vray_setting"); // what is missing reads as 0
    analysis.imageSamplerType = WholeNumberOf(vray, "imagesampler_type");
    if (analysis.imageSamplerType == kProgressiveSampler)
        AddTip(analysis, IDS_TIP_IMAGE_SAMPLER);
    analysis.irradmapPreset = WholeNumberOf(vray, "gi_irradmap_preset");
    analysis.irradmapMinRate = WholeNumberOf(vray, "gi_irradmap_minRate");
    analysis.irradmapMaxRate = WholeNumberOf(vray, "gi_irradmap_maxRate");
    image.isSpherical = IsSpherical(vray);
}

void ReadCameras(const Json::Value& report, const SceneImage& image, SceneAnalysis& analysis) {
    for (const Json::Value& camera : MemberOf(report, "cameras")) {
        const std::wstring nameInScene = NameOf(camera);
        std::wstring outputName = nameInScene;
        if (HasIllegalNameChar(nameInScene)) {
            AddMessage(analysis, kWarn, "The original camera name contain invalid characters!");
            outputName = StripChars(nameInScene, kDeletedNameChars);
        }
        // Of two cameras with one name the first stays.
        analysis.cameras.emplace(nameInScene, ReadCamera(camera, outputName, image));
    }
}

void ReadGamma(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& gamma = MemberOf(report, "gamma_out");
    if (!gamma.isNull())
        analysis.gammaOut = WithinFloat(DecimalNumber(RawText(gamma)));
}

void ReadErrors(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& errors = MemberOf(report, "errors");
    if (errors.isNull()) {
        AddMessage(analysis, kInfo, "No errors!");
        return;
    }
    for (const Json::Value& entry : MemberOf(errors, "error_code")) {
        if (WholeNumberOf(entry, "code") == kAdvisedErrorCode)
            AddTip(analysis, IDS_TIP_SCENE_ERROR);
    }
}

bool ReadDuplicateCameras(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& cameras = MemberOf(report, "dupl_cameras");
    for (Json::ArrayIndex i = 0; i < cameras.size(); ++i) {
        if (i > 0)
            analysis.duplicateCameraNames += L",";
        analysis.duplicateCameraNames += TrimSpaces(NameOf(cameras[i]));
    }
    return !cameras.empty();
}

void AddClosingMessage(const Json::Value& report, SceneAnalysis& analysis) {
    AddMessage(analysis, kInfo,
               "Get analysis information successfully. Current 3ds Max version is :" +
                   TextOf(MemberOf(report, "version")));
}

} // namespace orv
