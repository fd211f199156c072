#include "analysis/report_steps.h"

#include "analysis/report_json.h"
#include "analysis/text/names.h"
#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "log/module_log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace orv {

// The scene as a whole.

namespace {

constexpr char kUnlimited[] = "0"; // compared as text: "0.0" counts as a limit

} // namespace

void AddMessage(SceneAnalysis& analysis, const char* severity, const std::string& text,
                unsigned shownId) {
    analysis.messages.push_back(
        {severity, text, shownId != 0 ? ResourceText(shownId) : std::wstring()});
}

void AddTip(SceneAnalysis& analysis, unsigned textId) {
    if (analysis.tips.empty())
        analysis.tips.push_back(ResourceText(IDS_TIPS_HEADING));
    analysis.tips.push_back(ResourceText(textId));
}

void CheckRenderer(const Json::Value& report, SceneAnalysis& analysis) {
    if (CTextOf(MemberOf(report, "renderer_full_name")) == "Missing_Renderer")
        AddTip(analysis, IDS_TIP_RENDERER_MISSING);
}

void ReadCoronaLimits(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& setting = MemberOf(report, "corona_setting");
    const Json::Value& passValue = MemberOf(setting, "pass_limit");
    const Json::Value& timeValue = MemberOf(setting, "time_limit");
    const Json::Value& noiseValue = MemberOf(setting, "noise_level_limit");
    if (passValue.isNull() || timeValue.isNull() || noiseValue.isNull()) {
        analysis.coronaState = CoronaLimitState::NoLimits;
        return;
    }
    const std::string pass = CTextOf(passValue);
    const std::string milliseconds = CTextOf(timeValue);
    const std::string noise = CTextOf(noiseValue);
    analysis.coronaPassLimit = WholeNumber(pass);
    analysis.coronaTimeLimitSeconds = WholeNumber(milliseconds) / 1000;
    analysis.coronaTimeLimitHours = analysis.coronaTimeLimitSeconds * (1.0 / 3600.0);
    analysis.coronaNoiseLimit = DecimalNumber(noise);

    if (pass != kUnlimited || noise != kUnlimited) {
        analysis.coronaState = CoronaLimitState::Limited;
    } else if (milliseconds == kUnlimited) {
        analysis.coronaState = CoronaLimitState::NothingLimited;
        AddMessage(analysis, kError,
                   "The progressive pass, time and noise level are not limited in Corona! Please "
                   "revise and submit again!",
                   IDS_WARNING_CORONA_UNLIMITED);
    } else {
        analysis.coronaState = CoronaLimitState::OnlyTimeLimited;
        AddTip(analysis, IDS_TIP_CORONA_BLOCKS);
        AddMessage(
            analysis, kWarn,
            "Block rendering is not recommended in Corona. Please limit progressive pass and "
            "noise level if you still want to use block rendering.",
            IDS_WARNING_CORONA_TIME_ONLY);
    }
}

void ReadRegion(const Json::Value& report, SceneAnalysis& analysis) {
    analysis.isRegion = CTextOf(MemberOf(report, "is_region"));
    if (analysis.isRegion != "true")
        return;
    AddTip(analysis, IDS_TIP_REGION);
    AddMessage(analysis, kWarn,
               "Region rendering is used in your scene file. Please ignore this message if you "
               "confirm to use block rendering.",
               IDS_WARNING_REGION);
}

void ListMissingFiles(const std::vector<const char*>& paths, SceneAnalysis& analysis) {
    if (paths.empty())
        return;
    const std::string prefix = WideToUtf8(ResourceText(IDS_MISSING_FILE_PREFIX));
    analysis.problemFiles.reserve(analysis.problemFiles.size() + 1 + paths.size());
    analysis.problemFiles.push_back(ResourceText(IDS_MISSING_FILES_HEADING));
    for (const char* path : paths)
        analysis.problemFiles.push_back(Utf8ToWide(prefix + path));
}

void ListSameNameFiles(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& files = EntriesOf(report, "same_file");
    if (files.empty())
        return;
    analysis.problemFiles.push_back(ResourceText(IDS_SAME_FILES_HEADING));
    const std::wstring prefix = ResourceText(IDS_SAME_FILE_PREFIX);
    for (const Json::Value& entry : files) {
        const Json::Value& path = MemberOf(entry, "path");
        if (path.isString())
            analysis.problemFiles.push_back(prefix + Utf8ToWide(CTextOf(path)));
    }
}

// The names of the files that the scene refers to.

namespace {

// The offsets of a value in the text that it was parsed from.
std::size_t Begin(const Json::Value& value) {
    return static_cast<std::size_t>(value.getOffsetStart());
}
std::size_t End(const Json::Value& value) {
    return static_cast<std::size_t>(value.getOffsetLimit());
}

// Drops parts of a text, in place and in one pass, by their offsets in the text's UTF-8 form. What
// is kept moves towards the front, so that no second text of the report's size is needed.
class TextShortener {
public:
    explicit TextShortener(std::wstring& text) : text_(text) {}

    void keepUntil(std::size_t utf8Offset) {
        while (utf8Offset_ < utf8Offset && read_ < text_.size()) {
            const wchar_t unit = text_[read_];
            step(); // looks at the units around, of which the next line may replace one
            text_[written_++] = unit;
        }
    }

    void dropUntil(std::size_t utf8Offset) {
        while (utf8Offset_ < utf8Offset && read_ < text_.size())
            step();
    }

    // In the place of something that was dropped.
    void put(wchar_t character) {
        if (written_ < read_)
            text_[written_++] = character;
    }

    void keepRest() { text_.erase(written_, read_ - written_); }

private:
    void step() {
        utf8Offset_ += Utf8SizeAt(text_, read_);
        ++read_;
    }

    std::wstring& text_;
    std::size_t read_ = 0;
    std::size_t written_ = 0;
    std::size_t utf8Offset_ = 0;
};

} // namespace

ReferenceFindings CheckReferences(const std::vector<const char*>& paths) {
    ReferenceFindings findings;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (IsLegalReferenceName(paths[i]))
            continue;
        std::wstring path = Utf8ToWide(paths[i]);
        findings.hasCyrillic = findings.hasCyrillic || HasCyrillic(path); // which are not legal
        findings.illegalPaths.push_back(std::move(path));
        findings.illegalEntries.push_back(i);
    }
    return findings;
}

void WarnOfCyrillicReferences(const ReferenceFindings& findings, SceneAnalysis& analysis) {
    if (!findings.hasCyrillic)
        return;
    AddTip(analysis, IDS_TIP_CYRILLIC_REFERENCE);
    AddMessage(analysis, kWarn, "The name of reference file have Russian characters.",
               IDS_WARNING_CYRILLIC_REFERENCE);
}

void ListIllegalReferences(ReferenceFindings& findings, SceneAnalysis& analysis) {
    if (findings.illegalPaths.empty())
        return;
    analysis.hasIllegalReference = true;
    analysis.problemFiles.push_back(ResourceText(IDS_ILLEGAL_REFERENCES_HEADING));
    AddMessage(analysis, kWarn, "The name of reference file have illegal characters.",
               IDS_WARNING_ILLEGAL_REFERENCE);
    analysis.problemFiles.insert(analysis.problemFiles.end(),
                                 std::make_move_iterator(findings.illegalPaths.begin()),
                                 std::make_move_iterator(findings.illegalPaths.end()));
}

void RemoveIllegalReferences(const ReferenceFindings& findings, Json::Value& report,
                             std::wstring& text) {
    if (findings.illegalEntries.empty())
        return;
    Json::Value& references = report["reference_file"];
    TextShortener shortener(text);
    shortener.keepUntil(Begin(references) + 1); // with the opening bracket
    std::size_t index = 0;
    auto illegal = findings.illegalEntries.begin();
    bool isFirst = true;
    auto kept = references.begin();
    Json::ArrayIndex keptCount = 0;
    for (Json::Value& entry : references) {
        const bool isIllegal = illegal != findings.illegalEntries.end() && *illegal == index;
        ++index;
        if (isIllegal) {
            ++illegal;
            continue;
        }
        shortener.dropUntil(Begin(entry));
        if (!isFirst)
            shortener.put(L',');
        isFirst = false;
        shortener.keepUntil(End(entry));
        if (&*kept != &entry)
            (*kept).swap(entry);
        ++kept;
        ++keptCount;
    }
    shortener.dropUntil(End(references) - 1); // up to the closing bracket
    shortener.keepRest();
    references.resize(keptCount);
}

// The image, the cameras and what follows them.

namespace {

// Cameras' names are used in buffers of 260 characters; a longer one counts as none.
constexpr std::size_t kLongestName = 259;

constexpr double kFullCircle = 360.0;           // degrees
constexpr std::int32_t kProgressiveSampler = 3; // V-Ray's number of it
constexpr std::int32_t kAdvisedErrorCode = 107;

std::wstring NameOf(const Json::Value& entry) {
    const std::wstring name = Utf8ToWide(CTextOf(MemberOf(entry, "name")));
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
    return WholeNumber(CTextOf(MemberOf(object, member)));
}

// A conversion of a number beyond a float's range would be undefined.
float WithinFloat(double value) {
    const double highest = std::numeric_limits<float>::max();
    return static_cast<float>(std::max(-highest, std::min(value, highest)));
}

bool IsSpherical(const Json::Value& vray) {
    const Json::Value& override = MemberOf(vray, "camera_override_fov");
    const Json::Value& fieldOfView = MemberOf(vray, "camera_fov");
    const double degrees = fieldOfView.isNull() ? kFullCircle : DecimalNumber(CTextOf(fieldOfView));
    // The report has 360.0 exactly, so the comparison is exact on purpose.
    const bool isFullCircle = !(degrees < kFullCircle) && !(degrees > kFullCircle);
    return override.isConvertibleTo(Json::booleanValue) && override.asBool() && isFullCircle &&
           TextOf(MemberOf(vray, "is_spherical")) == "true";
}

// A camera's own width or height, 0 when it has none.
std::int32_t OwnSize(const Json::Value& camera, const char* member) {
    return WholeNumber(Utf8ToWide(CTextOf(MemberOf(camera, member))));
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
    return !EntriesOf(report, "cameras").empty();
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
            AddMessage(analysis, kWarn, "The original camera name contain invalid characters!",
                       IDS_WARNING_CAMERA_NAME);
            outputName = StripChars(nameInScene, kDeletedNameChars);
        }
        // Of two cameras with one name the first stays.
        analysis.cameras.emplace(nameInScene, ReadCamera(camera, outputName, image));
    }
}

void ReadGamma(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& gamma = MemberOf(report, "gamma_out");
    if (!gamma.isNull())
        analysis.gammaOut = WithinFloat(DecimalNumber(CTextOf(gamma)));
}

void ReadErrors(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& errors = MemberOf(report, "errors");
    if (errors.isNull()) {
        AddMessage(analysis, kInfo, "No errors!", 0);
        return;
    }
    for (const Json::Value& entry : EntriesOf(errors, "error_code")) {
        if (WholeNumberOf(entry, "code") == kAdvisedErrorCode)
            AddTip(analysis, IDS_TIP_SCENE_ERROR);
    }
}

bool ReadDuplicateCameras(const Json::Value& report, SceneAnalysis& analysis) {
    const Json::Value& cameras = EntriesOf(report, "dupl_cameras");
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
                   TextOf(MemberOf(report, "version")),
               0);
}

} // namespace orv
