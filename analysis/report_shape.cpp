// Which members a report must have, before anything of it is taken. All of them are texts.
#include "analysis/report_json.h"

namespace orv {
namespace {

using Texts = std::vector<const char*>;

// A list whose entries must have a text.
struct ListShape {
    const char* name;
    const char* entryMember;
    Texts ReportPaths::*texts; // where the texts are noted, if anywhere
};

constexpr ListShape kFiles[] = {
    {"reference_file", "path", &ReportPaths::referenced},
    {"missing_file", "path", &ReportPaths::missing},
};
constexpr ListShape kCameras = {"cameras", "name", nullptr};
constexpr ListShape kErrorCodes = {"error_code", "code", nullptr};
constexpr ListShape kDuplicateCameras = {"dupl_cameras", "name", nullptr};

constexpr const char* kImageMembers[] = {"image_width", "image_height", "start_frame"};

// All return the name of the first member that is missing or is not a text, empty when there is
// none. Only then a name is built: lists have hundreds of thousands of entries.

std::string MissingInList(const Json::Value& object, const ListShape& list, ReportPaths& paths) {
    const Json::Value& entries = EntriesOf(object, list.name);
    Texts unused;
    Texts& texts = list.texts != nullptr ? paths.*list.texts : unused;
    texts.reserve(entries.size());
    for (const Json::Value& entry : entries) {
        const Json::Value& text = MemberOf(entry, list.entryMember);
        if (!text.isString())
            return std::string(list.name) + "[" + std::to_string(texts.size()) + "]." +
                   list.entryMember;
        texts.push_back(text.asCString());
    }
    return {};
}

// What is read before the cameras, also of a report that has none.
std::string MissingInScene(const Json::Value& report, ReportPaths& paths) {
    if (!MemberOf(report, "is_region").isString())
        return "is_region";
    for (const ListShape& files : kFiles) {
        std::string missing = MissingInList(report, files, paths);
        if (!missing.empty())
            return missing;
    }
    return {};
}

std::string MissingWithCameras(const Json::Value& report, ReportPaths& paths) {
    for (const char* member : kImageMembers) {
        if (!MemberOf(report, member).isString())
            return member;
    }
    std::string missing = MissingInList(report, kCameras, paths);
    if (!missing.empty())
        return missing;
    missing = MissingInList(MemberOf(report, "errors"), kErrorCodes, paths);
    if (!missing.empty())
        return "errors." + missing;
    return MissingInList(report, kDuplicateCameras, paths);
}

} // namespace

std::string FindMissingMember(const Json::Value& report, ReportPaths& paths) {
    std::string missing = MissingInScene(report, paths);
    if (missing.empty() && !EntriesOf(report, "cameras").empty())
        missing = MissingWithCameras(report, paths);
    return missing;
}

} // namespace orv
