// The open scene after its analysis, and the user's options for it: plain data that includes
// nothing of the product, so that every folder can use it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orv {

// A finding of the analysis.
struct AnalysisMessage {
    std::string severity; // "ERROR", "WARN" or "INFO"
    std::string text;     // for the record, English, UTF-8
    std::wstring shown;   // for the user, in the language of the texts; empty: for the record alone
};

enum class CoronaLimitState : std::int32_t {
    NoLimits = 0,       // the report has no Corona limits
    NothingLimited = 1, // it would render for ever
    OnlyTimeLimited = 2,
    Limited = 3,
};

struct CameraInfo {
    std::wstring name;           // output name: the camera's name without forbidden characters
    std::int32_t width = 0;      // pixels
    std::int32_t height = 0;     // pixels
    std::int32_t startFrame = 0; // the frame to render
    std::wstring imageFormat;    // upper case, for example "PNG"
    bool isSpherical = false;
    bool selected = false; // the check mark of the camera table
};

// The cameras by the name that the report gives them.
using CameraMap = std::map<std::wstring, CameraInfo>;

struct ReportDocument; // analysis/report_json.h

struct SceneAnalysis {
    std::wstring reportText; // the analysis report, JSON
    std::vector<std::wstring> problemFiles;
    std::vector<std::wstring> tips;
    double coronaTimeLimitHours = 0.0;
    std::int32_t coronaPassLimit = 0;
    std::int32_t coronaTimeLimitSeconds = 0;
    double coronaNoiseLimit = 0.0; // per cent
    std::string isRegion;          // "true" when region rendering is on
    std::vector<AnalysisMessage> messages;
    float gammaOut = 0.0F;
    CoronaLimitState coronaState = CoronaLimitState::NoLimits;
    std::int32_t irradmapPreset = 0;
    std::int32_t irradmapMinRate = 0;
    std::int32_t irradmapMaxRate = 0;
    std::int32_t imageSamplerType = 0;
    CameraMap cameras;
    std::wstring duplicateCameraNames; // joined by ","
    bool hasIllegalReference = false;

    std::wstring reportPath; // the file that the report was read from
    // The report, parsed: for as long as reportText is the text that it was parsed from (ReportOf).
    std::shared_ptr<const ReportDocument> report;

    std::string sceneFileName;     // UTF-8, last part of the scene's path
    std::string sceneFilePath;     // UTF-8, the scene's full path
    std::string recordedSceneName; // UTF-8, the name last typed for the scene
    std::int32_t saveCount = 0;    // scenes saved under a typed name so far

    // Options collected from the dialog when a job is submitted.
    std::int32_t blockMode = 1;   // 1 none, 10 three, 64 six, 1010 distributed blocks
    std::int32_t blockCount = 10; // blocks of mode 1010, 2 to 10
    bool useCorona = false;
    bool colorChannel = false;
    bool aoChannel = false;
    double aoRadius = 1000.0;
    std::int32_t aoSubdivs = 16;
    float gamma = 2.2F;
    double blockStep = 1.0; // what one click on the arrows beside the number of blocks adds
    bool materialChannel = false;
    bool giChannel = false;
    bool psdChannel = false;
};

} // namespace orv
