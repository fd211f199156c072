#include "analysis/report_reader.h"

#include "analysis/report_json.h"
#include "analysis/report_steps.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "log/log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <exception>
#include <memory>
#include <new>
#include <utility>

namespace orv {
namespace {

void BeginRead(SceneAnalysis& analysis) {
    analysis.problemFiles.clear();
    analysis.tips.clear();
    analysis.duplicateCameraNames.clear();
    analysis.hasIllegalReference = false;
    analysis.report.reset();
}

// The report's text is far larger than all the rest, so it stays out of copies.
SceneAnalysis CopyWithoutText(SceneAnalysis& analysis) {
    class TextAside {
    public:
        explicit TextAside(std::wstring& text) : text_(text) { text_.swap(aside_); }
        ~TextAside() { text_.swap(aside_); }
        TextAside(const TextAside&) = delete;
        TextAside& operator=(const TextAside&) = delete;

    private:
        std::wstring& text_;
        std::wstring aside_;
    };
    const TextAside aside(analysis.reportText);
    return analysis;
}

// The order of the steps is the order of the messages that the user sees.
int ReadInOrder(const Json::Value& report, const ReportPaths& paths, ReferenceFindings& references,
                SceneAnalysis& analysis) {
    CheckRenderer(report, analysis);
    ReadCoronaLimits(report, analysis);
    ReadRegion(report, analysis);
    WarnOfCyrillicReferences(references, analysis);
    ListIllegalReferences(references, analysis);
    ListMissingFiles(paths.missing, analysis);
    ListSameNameFiles(report, analysis);
    if (!HasCameras(report)) {
        AddMessage(analysis, kError, "No cameras!", IDS_WARNING_NO_CAMERAS);
        return kReportNoCameras;
    }
    SceneImage image = ReadSceneImage(report, analysis);
    ReadVRay(report, analysis, image);
    ReadCameras(report, image, analysis);
    ReadGamma(report, analysis);
    ReadErrors(report, analysis);
    if (ReadDuplicateCameras(report, analysis))
        return kReportDuplicateCameras;
    AddClosingMessage(report, analysis);
    return kReportRead;
}

// Reads into a copy, so that a read that ends half-way, as when memory runs out, leaves nothing
// behind.
int ReadWhole(const std::shared_ptr<ReportDocument>& document, const ReportPaths& paths,
              SceneAnalysis& analysis) {
    SceneAnalysis filled = CopyWithoutText(analysis);
    ReferenceFindings references = CheckReferences(paths.referenced);
    const int result = ReadInOrder(document->root, paths, references, filled);
    WriteLog(LogModule::Data, kInfo,
             "Analysis report read: " + std::to_string(filled.cameras.size()) + " cameras, " +
                 std::to_string(filled.messages.size()) + " messages.");
    // From here, nothing can fail any more.
    RemoveIllegalReferences(references, document->root, analysis.reportText);
    document->textHash = HashOfReport(analysis.reportText);
    filled.report = document;
    filled.reportText.swap(analysis.reportText);
    analysis = std::move(filled);
    return result;
}

int Refuse(SceneAnalysis& analysis, const std::string& reason, const std::wstring& shown) {
    const std::string text = "The analysis report cannot be used: " + reason + ".";
    analysis.messages.push_back({kError, text, shown});
    WriteLog(LogModule::Data, kError, text);
    return kReportRefused;
}

int RefuseWithout(const std::string& member, SceneAnalysis& analysis) {
    return Refuse(analysis, "\"" + member + "\" is missing or is not a text",
                  ResourceTextWith(IDS_REPORT_LACKS_MEMBER, {Utf8ToWide(member)}));
}

int ReadNothing(SceneAnalysis& analysis) {
    WriteLog(LogModule::Data, kWarn, "The analysis report is not JSON.");
    AddClosingMessage(Json::Value(), analysis);
    return kReportRead;
}

int Read(SceneAnalysis& analysis) {
    const auto document = std::make_shared<ReportDocument>();
    if (!ParseReportJson(WideToUtf8(analysis.reportText), document->root))
        return ReadNothing(analysis);
    ReportPaths paths;
    const std::string missing = FindMissingMember(document->root, paths);
    if (!missing.empty())
        return RefuseWithout(missing, analysis);
    return ReadWhole(document, paths, analysis);
}

} // namespace

int ReadAnalysisReport(SceneAnalysis& analysis) {
    try {
        BeginRead(analysis);
        return Read(analysis);
    } catch (const std::bad_alloc&) {
        return Refuse(analysis, "there is not enough memory for it", {});
    } catch (const std::exception& error) { // of a kind that was not foreseen
        return Refuse(analysis, error.what(), {});
    }
}

std::string InitSceneName(SceneAnalysis& analysis) {
    const std::shared_ptr<const ReportDocument> report = ReportOf(analysis);
    if (report == nullptr) {
        AddMessage(analysis, kWarn, "Parse failed in initing scene name!",
                   IDS_WARNING_SCENE_NAME_UNREADABLE);
        return {};
    }
    const std::string path = TextOf(MemberOf(report->root, "name"));
    const std::size_t nameStart = SceneFileNameStart(path);
    if (nameStart == 0) {
        AddMessage(analysis, kWarn, "The scene name is empty!", IDS_WARNING_SCENE_NAME_EMPTY);
        return {};
    }
    analysis.sceneFileName = path.substr(nameStart);
    analysis.sceneFilePath = path;
    return analysis.sceneFileName;
}

} // namespace orv
